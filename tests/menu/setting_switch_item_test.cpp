#include "menu/setting_switch_item.h"

#include "support/setting_drawing_test.h"
#include "support/setting_rows.h"

#include <algorithm>
#include <climits>

using testing::ElementsAre;

class SettingSwitchItemTest : public SettingDrawingTest {
protected:
    RecordedSwitch handler;
    KestroSurface* on = nullptr;
    KestroSurface* off = nullptr;

    void SetUp() override {
        SettingDrawingTest::SetUp();
        on = picture("on", 80, 41);
        off = picture("off", 70, 30);
    }
};

TEST_F(SettingSwitchItemTest, ShowsItsState) {
    SettingSwitchItem item(selected, normal, on, off, 4, &handler);
    EXPECT_THAT(drawn(item, false), ElementsAre("'normal' all -> 10,93 900x70 on W", label("OPEN"),
                                                "'off' all -> 1160,113 70x30 on W"));
    handler.on = true;
    EXPECT_THAT(drawn(item, true), ElementsAre("'selected' all -> 10,83 800x90 on W", label("OPEN"),
                                               "'on' all -> 1160,107 80x41 on W"));
}

TEST_F(SettingSwitchItemTest, TheImageDoesNotFollowTheRowsWidth) {
    SettingSwitchItem item(nullptr, nullptr, on, off, -1, &handler);
    EXPECT_THAT(drawnIn(item, {100, 0, 300, 50}, false), ElementsAre("'off' all -> 1250,10 70x30 on W"));
}

TEST_F(SettingSwitchItemTest, WithoutHandlerOrEitherImageThereIsNone) {
    SettingSwitchItem noHandler(nullptr, normal, on, off, 4, nullptr);
    SettingSwitchItem noOn(nullptr, normal, nullptr, off, 4, &handler);
    SettingSwitchItem noOff(nullptr, normal, on, nullptr, 4, &handler);
    for (const bool state : {false, true}) {
        handler.on = state;
        for (SettingSwitchItem* item : {&noHandler, &noOn, &noOff})
            EXPECT_THAT(drawn(*item, true), ElementsAre("'normal' all -> 10,93 900x70 on W", label("OPEN")));
    }
}

TEST_F(SettingSwitchItemTest, TheLabelFollowsTheLanguage) {
    SettingSwitchItem item(nullptr, nullptr, nullptr, nullptr, 4, nullptr);
    useLanguage({{4, "打开"}});
    EXPECT_THAT(drawn(item, false), ElementsAre(label("打开")));
}

TEST_F(SettingSwitchItemTest, HandlesEveryCodeAndTogglesForFour) {
    SettingSwitchItem item(selected, normal, on, off, 4, &handler);
    for (const int swap : {0, 1, -1}) {
        gTestHost.table[19] = swap;
        const std::vector<int> toggling{swap ? 2 : 1, 4, 7, 8};
        std::vector<int> codes{INT_MIN, -1, 42, 1002, INT_MAX};
        for (int code = 0; code <= 20; ++code)
            codes.push_back(code);
        for (const int code : codes) {
            const bool before = handler.on;
            const int settings = handler.settings;
            EXPECT_EQ(static_cast<ItemDrawable&>(item).handleEvent(code), 0) << code;
            const bool toggles = std::find(toggling.begin(), toggling.end(), code) != toggling.end();
            EXPECT_EQ(handler.on, before != toggles) << code;
            EXPECT_EQ(handler.settings, settings + toggles) << code;
        }
    }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SettingSwitchItemTest, WithoutHandlerItHandlesEveryCodeAndDoesNothing) {
    SettingSwitchItem item(selected, normal, on, off, 4, nullptr);
    for (const int code : {0, 1, 2, 4, 7, 8, 11})
        EXPECT_EQ(item.handleEvent(code), 0);
    item.switchValue();
}

TEST_F(SettingSwitchItemTest, SwitchesOver) {
    SettingSwitchItem item(selected, normal, on, off, 4, &handler);
    item.switchValue();
    EXPECT_TRUE(handler.on);
    item.switchValue();
    EXPECT_FALSE(handler.on);
    EXPECT_EQ(handler.settings, 2);
}

TEST_F(SettingSwitchItemTest, HasNoAction) {
    const SettingSwitchItem item(selected, normal, on, off, 4, &handler);
    EXPECT_EQ(item.getAction(), nullptr);
}
