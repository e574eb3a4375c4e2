#include "menu/setting_menu.h"

#include "core/host.h"
#include "core/input.h"
#include "core/log.h"

static constexpr int rowsPerPage = 6;
static constexpr int settingRowHeight = 96;
static constexpr int margin = 10;
static constexpr int leavePage = 1002;
static constexpr int menuKey = 11;
static constexpr int handled = -1;
static constexpr int confirmWithB = 19; // index in the host's table

SettingMenu::SettingMenu() : TextMenuDrawer(nullptr, nullptr, rowsPerPage, 0) {
    mThemePath = gThemePath ? gThemePath : "";
}

SettingMenu::~SettingMenu() {
    tprintf("SettingMenu::~SettingMenu\n");
    for (ItemDrawable* row : mRows)
        delete row;
}

void SettingMenu::insertSettingItem(ItemDrawable* row) {
    if (row)
        mRows.push_back(row);
}

int SettingMenu::getListNum() {
    return static_cast<int>(mRows.size());
}

ItemDrawable* SettingMenu::getItemByIndex(int index) {
    return index >= 0 && index < SettingMenu::getListNum() ? mRows[static_cast<size_t>(index)] : nullptr;
}

int SettingMenu::select() {
    ItemDrawable* const row = getItemByIndex(mCursor);
    Action* const action = row ? row->getAction() : nullptr;
    return action ? action->dowork(row) : -1;
}

/// Gives the key to the current row, and runs its action if it does not want it.
int SettingMenu::confirm(int code, int handledResult) {
    ItemDrawable* const row = getItemByIndex(mCursor);
    if (row && row->handleEvent(code) >= 0)
        return handledResult;
    return select();
}

int SettingMenu::eventHandling() {
    SDL_Event event{};
    const int code = wait_event(&event);
    const bool swapped = GetKeyShm(gShmInfo, confirmWithB) != 0;
    switch (code) {
    case 1:
        return swapped ? leavePage : confirm(code, handled);
    case 2:
        return swapped ? confirm(code, menuKey) : leavePage; // the two results differ, and hosts know it
    case 3:
        return leavePage;
    case 4:
        return confirm(code, handled);
    case 5:
        moveBackward();
        return handled;
    case 6:
        moveForward();
        return handled;
    case 7:
    case 8:
        if (ItemDrawable* const row = getItemByIndex(mCursor))
            row->handleEvent(code);
        return handled;
    case menuKey:
        return menuKey;
    default:
        return handled;
    }
}

int SettingMenu::draw() {
    const int count = getListNum();
    if (count < 1)
        return 0;
    layOutPage(count, rowsPerPage);
    for (int index = mFirstVisible; index <= mLastVisible; ++index) {
        const int y = mRect.y + settingRowHeight * (index - mFirstVisible);
        SDL_Rect rect{mRect.x + margin, y, mRect.w - 2 * margin, settingRowHeight};
        if (ItemDrawable* const row = getItemByIndex(index))
            row->draw(rect, index == mCursor);
    }
    return 0;
}
