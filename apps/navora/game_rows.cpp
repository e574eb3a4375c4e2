#include "navora/game_rows.h"

#include "core/host.h"
#include "hostkit/files.h"
#include "navora/folder_reading.h"
#include "navora/game_menu.h"
#include "navora/program.h"

namespace navora {

void startGameRows(Shell& shell) {
    hostkit::setFileChosen([&shell](const std::string& path) { return openGame(shell, path); });
    hostkit::setFileMenu([&shell](const std::string& path) {
        openGameMenu(shell, path, ListKind::folder);
        return loopIgnored;
    });
}

} // namespace navora

/// In place of the host kit's, to see how far the reading of a folder has come.
TextMenuItem* file_handler(const char* name, const char* path, int kind) {
    constexpr int folder = 102;
    navora::FolderReading::entryRead();
    if (!name || !path)
        return nullptr;
    if (kind == folder)
        return hostkit::makeFolderRow(name, path);
    if (!file_filter(name, path))
        return nullptr;
    TextMenuItem* const row = hostkit::makeFileRow(name, path);
    row->setFirstFlag(true); // for the hint about its menu
    return row;
}
