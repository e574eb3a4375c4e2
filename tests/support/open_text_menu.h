#pragma once

#include "menu/text_menu.h"

#include <string>
#include <vector>

/// A text menu that shows what it keeps to itself, and notes the numbers of the rows that it draws.
class OpenTextMenu : public TextMenu {
public:
    using TextMenu::TextMenu;

    using TextMenuDrawer::mNormalBackground;
    using TextMenuDrawer::mPiece;
    using TextMenuDrawer::mReservedFlag;
    using TextMenuDrawer::mReservedSurface;
    using TextMenuDrawer::mSelectedBackground;
    using TextMenuDrawer::mThemePath;

    std::vector<int> drawnNumbers;

    int drawListNum(int number, SDL_Rect& rect, TTF_Font* font) override {
        drawnNumbers.push_back(number);
        return TextMenu::drawListNum(number, rect, font);
    }

    /// Appends a row without action and returns it.
    TextMenuItem* add(const char* label) {
        auto* const row = new TextMenuItem(label, nullptr, nullptr, false);
        insertItem(static_cast<TextMenuItemProvider*>(row));
        return row;
    }

    /// Appends `count` rows with the labels "row 1" and so on.
    void addRows(int count) {
        for (int i = 1; i <= count; ++i)
            add(("row " + std::to_string(i)).c_str());
    }
};
