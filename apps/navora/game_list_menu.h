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
    /// `kind` tells what the pop-up menu of a row offers. The names of the pictures behind the rows are kept.
    GameListMenu(Shell& shell, ListKind kind, const char* selectedBackground, const char* normalBackground);

    /// Shows other games, with the cursor on the row where it was, as far as there is one.
    void setPaths(std::vector<std::string> paths);

    /// The same with paths that stay the caller's, and where they are for as long as they are shown.
    void setPaths(std::vector<const std::string*> paths);

    TextMenuItemProvider* getItemByIndex(int index) override;
    int getListNum() override { return static_cast<int>(mPaths.size()); }
    int draw() override;
    void refresh() override;

private:
    Shell& mShell;
    ListKind mKind;
    const char* mSelectedName; // of the pictures behind the rows
    const char* mNormalName;
    std::vector<std::string> mOwnPaths;
    std::vector<const std::string*> mPaths;
    std::map<int, std::unique_ptr<TextMenuItem>> mRows;
};

} // namespace navora
