#pragma once

#include "menu/text_menu_drawer.h"
#include "navora/game_menu.h"
#include "navora/page.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace navora {

/// A list of games by their paths. Its rows are made when they are looked at, so that it can be as long as
/// one likes.
class GameListMenu : public TextMenuDrawer {
public:
    /// `kind` tells what the pop-up menu of a row offers.
    GameListMenu(Shell& shell, ListKind kind, const char* selectedBackground, const char* normalBackground);

    /// Shows other games, with the cursor on the row where it was, as far as there is one.
    void setPaths(std::vector<std::string> paths);

    TextMenuItemProvider* getItemByIndex(int index) override;
    int getListNum() override { return static_cast<int>(mPaths.size()); }
    int draw() override;

private:
    Shell& mShell;
    ListKind mKind;
    std::vector<std::string> mPaths;
    std::map<int, std::unique_ptr<TextMenuItem>> mRows;
};

} // namespace navora
