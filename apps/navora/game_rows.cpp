#include "navora/game_rows.h"

#include "core/window_stack.h"
#include "hostkit/files.h"
#include "navora/details_page.h"
#include "navora/folder.h"

namespace navora {

void startGameRows(Shell& shell) {
    hostkit::setFileChosen([&shell](const std::string& path) {
        Entry entry;
        if (readEntry(path, entry))
            add2PopupList(new DetailsPage(shell, entry));
        return loopIgnored;
    });
}

} // namespace navora
