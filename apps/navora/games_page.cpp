#include "navora/games_page.h"

#include "menu/file_browser_menu.h"
#include "navora/words.h"

#include <filesystem>

namespace navora {

static std::unique_ptr<TextMenuDrawer> makeList(const std::string& folder) {
    return std::make_unique<FileBrowserMenu>(folder.c_str(), nullptr, "skin/bg-list-f.png",
                                             "skin/bg-list-n.png", 6, 0);
}

GamesPage::GamesPage(Shell& shell, const std::string& folder)
    : ListPage(shell, wordGames, makeList(folder)) {}

void GamesPage::init() {
    static_cast<FileBrowserMenu&>(list()).LoadDir();
}

const char* GamesPage::getTitle() {
    const char* const folder = static_cast<FileBrowserMenu&>(list()).getCurrentDir();
    mTitle = folder ? std::filesystem::path(folder).filename().string() : "";
    return mTitle.empty() ? Page::getTitle() : mTitle.c_str();
}

int GamesPage::answer(int code) {
    return code == keyMenu ? loopClose : code;
}

} // namespace navora
