#pragma once

#include "navora/game_lists.h"
#include "navora/game_menu.h"
#include "navora/page.h"

namespace navora {

/// The favourites, or what was played of late; without the games that are no longer there.
class GameListPage : public ListPage {
public:
    GameListPage(Shell& shell, ListKind kind);

    /// As it was kept by saveState; null for a list that there is not. The caller owns it.
    static GameListPage* reopened(Shell& shell, const cJSON* state);

    void saveState(cJSON* state) override;
    void update() override;

protected:
    int answer(int code) override;

private:
    ListKind mKind;
    unsigned mVersion = 0; // of the lists that the page shows

    void readList();
};

} // namespace navora
