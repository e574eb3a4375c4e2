#pragma once

#include "menu/list_menu.h"

#include <string>
#include <vector>

/// A list with a number of rows and nothing behind them, that notes what it is asked to do.
class CountedList : public ListMenu {
public:
    explicit CountedList(int rows) : ListMenu(true), rowCount(rows) {}

    int rowCount;
    int selectResult = 77;
    int xselectResult = 88;
    std::vector<std::string> calls;

    using ListMenu::mLastKeyTime;
    using ListMenu::mPressedKeys;

    int select() override {
        calls.emplace_back("select");
        return selectResult;
    }
    int xselect() override {
        calls.emplace_back("xselect");
        return xselectResult;
    }
    ListRow* getItemByIndex(int) override { return nullptr; }
    int draw() override { return 0; }
    int getListNum() override { return rowCount; }
};
