#include "navora/game_list_page.h"

#include "navora/folder.h"
#include "navora/game_list_menu.h"
#include "navora/place.h"
#include "navora/words.h"

namespace navora {

static int titleOf(ListKind kind) {
    return kind == ListKind::favourites ? wordFavourites : wordRecents;
}

static const char* nameOf(ListKind kind) {
    return kind == ListKind::favourites ? "favourites" : "recents";
}

static std::unique_ptr<TextMenuDrawer> makeList(Shell& shell, ListKind kind) {
    return std::make_unique<GameListMenu>(shell, kind, "skin/bg-list-f.png", "skin/bg-list-n.png");
}

GameListPage::GameListPage(Shell& shell, ListKind kind)
    : ListPage(shell, titleOf(kind), makeList(shell, kind)), mKind(kind) {
    readList();
}

GameListPage* GameListPage::reopened(Shell& shell, const cJSON* state) {
    for (const ListKind kind : {ListKind::favourites, ListKind::recents})
        if (textOf(state, "list") == nameOf(kind)) {
            auto* const page = new GameListPage(shell, kind);
            restorePosition(page->list(), state);
            return page;
        }
    return nullptr;
}

void GameListPage::saveState(cJSON* state) {
    cJSON_AddStringToObject(state, "page", "list");
    cJSON_AddStringToObject(state, "list", nameOf(mKind));
    savePosition(list(), state);
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
