#include "navora/game_list_page.h"

#include "navora/folder.h"
#include "navora/game_list_menu.h"
#include "navora/words.h"

namespace navora {

static int titleOf(ListKind kind) {
    return kind == ListKind::favourites ? wordFavourites : wordRecents;
}

static std::unique_ptr<TextMenuDrawer> makeList(Shell& shell, ListKind kind) {
    return std::make_unique<GameListMenu>(shell, kind, "skin/bg-list-f.png", "skin/bg-list-n.png");
}

GameListPage::GameListPage(Shell& shell, ListKind kind)
    : ListPage(shell, titleOf(kind), makeList(shell, kind)), mKind(kind) {
    readList();
}

void GameListPage::readList() {
    const GameLists& lists = gameLists();
    std::vector<std::string> there;
    for (const std::string& path : mKind == ListKind::favourites ? lists.favourites() : lists.recents()) {
        Entry entry;
        if (readEntry(path, entry))
            there.push_back(path);
    }
    static_cast<GameListMenu&>(list()).setPaths(std::move(there));
    mVersion = lists.version();
}

void GameListPage::update() {
    Page::update();
    if (mVersion != gameLists().version())
        readList();
}

int GameListPage::answer(int code) {
    return code == keyMenu ? loopClose : ListPage::answer(code);
}

} // namespace navora
