#include "navora/game_rows.h"

#include "core/window_stack.h"
#include "hostkit/files.h"
#include "navora/details_page.h"
#include "navora/folder.h"
#include "navora/game_lists.h"
#include "navora/game_menu.h"

namespace navora {

void showDetails(Shell& shell, const std::string& path) {
    Entry entry;
    if (readEntry(path, entry))
        add2PopupList(new DetailsPage(shell, entry));
}

int chooseGame(Shell& shell, const std::string& path) {
    noteStarted(path);
    showDetails(shell, path);
    return loopIgnored;
}

void startGameRows(Shell& shell) {
    hostkit::setFileChosen([&shell](const std::string& path) { return chooseGame(shell, path); });
    hostkit::setFileMenu([&shell](const std::string& path) {
        openGameMenu(shell, path, ListKind::folder);
        return loopIgnored;
    });
}

} // namespace navora
