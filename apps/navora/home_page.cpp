#include "navora/home_page.h"

#include "core/window_stack.h"
#include "menu/text_menu.h"
#include "navora/game_list_page.h"
#include "navora/games_page.h"
#include "navora/look.h"
#include "navora/place.h"
#include "navora/search_page.h"
#include "navora/settings_page.h"
#include "navora/words.h"

namespace navora {

static std::unique_ptr<TextMenuDrawer> makeList() {
    auto list = std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
    list->setShowNumber(false);
    list->setShowListNumber(false);
    return list;
}

HomePage::HomePage(Shell& shell, std::string gamesFolder)
    : ListPage(shell, wordHome, makeList()), mGamesFolder(std::move(gamesFolder)) {
    addRow(wordGames, "skin/ic-game.png", openGames);
    addRow(wordFavourites, "skin/ic-favorite.png", openFavourites);
    addRow(wordRecents, "skin/ic-recent.png", openRecents);
    addRow(wordSearch, "skin/ic-search.png", openSearch);
    addRow(wordSettings, "skin/ic-settings.png", openSettings);
}

void HomePage::addRow(int word, const char* icon, int (*open)(void*)) {
    auto* const row = new TextMenuItem(nullptr, nullptr, new GeneralAction(open, this), true);
    row->setLabelId(word); // follows the language
    row->setImagePath(icon);
    static_cast<TextMenu&>(list()).insertItem(static_cast<TextMenuItemProvider*>(row));
}

void HomePage::saveState(cJSON* state) {
    cJSON_AddStringToObject(state, "page", "home");
    savePosition(list(), state);
}

void HomePage::restore(const cJSON* state) {
    restorePosition(list(), state);
}

int HomePage::openGames(void* page) {
    auto* const home = static_cast<HomePage*>(page);
    add2PopupList(new GamesPage(home->shell(), home->mGamesFolder));
    return loopIgnored;
}

int HomePage::openFavourites(void* page) {
    add2PopupList(new GameListPage(static_cast<HomePage*>(page)->shell(), ListKind::favourites));
    return loopIgnored;
}

int HomePage::openRecents(void* page) {
    add2PopupList(new GameListPage(static_cast<HomePage*>(page)->shell(), ListKind::recents));
    return loopIgnored;
}

int HomePage::openSearch(void* page) {
    auto* const home = static_cast<HomePage*>(page);
    add2PopupList(new SearchPage(home->shell(), home->mGamesFolder));
    return loopIgnored;
}

int HomePage::openSettings(void* page) {
    add2PopupList(new SettingsPage(static_cast<HomePage*>(page)->shell()));
    return loopIgnored;
}

/// There is nothing to go back to: back and menu leave the launcher.
int HomePage::answer(int code) {
    if (code == keyRightShoulder)
        return openSearch(this);
    return code == keyA || code == keyB || code == keyMenu ? loopQuit : code;
}

} // namespace navora
