#pragma once

#include "core/export.h"
#include "menu/setting_item.h"
#include "menu/text_menu_drawer.h"

#include <vector>

/// A page of settings, six rows of 96 pixels at a time. Main thread.
class KESTRO_API SettingMenu : public TextMenuDrawer {
public:
    SettingMenu();
    ~SettingMenu() override;

    /// Handles one key: up and down move, left and right go to the current row, the confirming key and the
    /// fourth face button go to it too and run its action if it does not handle them. Returns 1002 for the
    /// back key and the third face button, 11 for the menu key and for a B that a row has handled, the
    /// action's result, or -1.
    int eventHandling() override;

    /// Runs the current row's action. Returns its result as it is; -1 if there is none.
    int select() override;

    ItemDrawable* getItemByIndex(int index) override;
    int draw() override;
    int getListNum() override;

    /// Appends a row and takes it over; null is ignored.
    void insertSettingItem(ItemDrawable* row);

private:
    std::vector<ItemDrawable*> mRows;

    KESTRO_HIDDEN int confirm(int code, int handledResult);
};
