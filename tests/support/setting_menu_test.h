#pragma once

#include "support/key_events.h"
#include "support/recorded_action.h"
#include "support/screen_test.h"
#include "support/setting_rows.h"

#include <memory>

/// A setting page that shows what it keeps to itself.
class OpenSettingMenu : public SettingMenu {
public:
    using TextMenuDrawer::mNormalBackground;
    using TextMenuDrawer::mSelectedBackground;
    using TextMenuDrawer::mThemePath;
};

/// A test of setting pages, with an empty one. What that logs is taken.
class SettingMenuTest : public ScreenTest {
protected:
    SettingRowLog log;
    ActionLog actions;
    std::unique_ptr<OpenSettingMenu> menu;

    void SetUp() override {
        ScreenTest::SetUp();
        menu = std::make_unique<OpenSettingMenu>();
        takeLog();
    }

    void TearDown() override {
        menu.reset();
        takeLog();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        ScreenTest::TearDown();
    }

    /// Appends recorded rows, which are numbered from 1.
    RecordedSettingRow* add(Action* action = nullptr) {
        auto* const row = new RecordedSettingRow(log, menu->getListNum() + 1, action);
        menu->insertSettingItem(row);
        return row;
    }
    void addRows(int count) {
        while (count-- > 0)
            add();
    }

    /// Handles one key code.
    int press(int code) {
        pressCode(code);
        return static_cast<ListMenu&>(*menu).eventHandling();
    }
};
