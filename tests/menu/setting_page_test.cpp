#include "support/setting_menu_test.h"

/// The three kinds of rows on one page, worked by keys.
class SettingPageTest : public SettingMenuTest {
protected:
    RecordedValue value;
    RecordedSwitch toggle;

    void SetUp() override {
        SettingMenuTest::SetUp();
        menu->insertSettingItem(
            new SettingItem(nullptr, nullptr, "plain", nullptr, new RecordedAction(actions, 33)));
        menu->insertSettingItem(new SettingValueItem(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                                     nullptr, 4, new RecordedAction(actions, 44), &value));
        menu->insertSettingItem(new SettingSwitchItem(nullptr, nullptr, nullptr, nullptr, 4, &toggle));
    }

    int press(int row, int code) {
        menu->setCursor(row);
        return SettingMenuTest::press(code);
    }
};

TEST_F(SettingPageTest, APlainRowRunsItsActionAndIgnoresLeftAndRight) {
    EXPECT_EQ(press(0, 1), 33);
    EXPECT_EQ(press(0, 4), 33);
    EXPECT_EQ(press(0, 7), -1);
    EXPECT_EQ(press(0, 8), -1);
    EXPECT_EQ(press(0, 2), 1002);
    gTestHost.table[19] = 1;
    EXPECT_EQ(press(0, 2), 33);
    EXPECT_EQ(press(0, 1), 1002);
    EXPECT_EQ(actions.ran.size(), 3u);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SettingPageTest, AValueRowStepsAndRunsItsAction) {
    EXPECT_EQ(press(1, 7), -1);
    EXPECT_EQ(press(1, 8), -1);
    EXPECT_THAT(value.codes, testing::ElementsAre(7, 8));
    EXPECT_THAT(takeLog(), testing::MatchesRegex("mValueChanger 0x[0-9a-f]+ changeValue 7\n"
                                                 "mValueChanger 0x[0-9a-f]+ changeValue 8\n"));
    EXPECT_EQ(press(1, 1), 44);
    EXPECT_EQ(press(1, 4), 44);
    gTestHost.table[19] = 1;
    EXPECT_EQ(press(1, 2), 44);
    EXPECT_EQ(value.codes.size(), 2u);
}

TEST_F(SettingPageTest, ASwitchRowTogglesAndNeverLeavesByAConfirmation) {
    EXPECT_EQ(press(2, 1), -1);
    EXPECT_TRUE(toggle.on);
    EXPECT_EQ(press(2, 2), 1002);
    EXPECT_TRUE(toggle.on);
    EXPECT_EQ(press(2, 4), -1);
    EXPECT_FALSE(toggle.on);
    EXPECT_EQ(press(2, 7), -1);
    EXPECT_EQ(press(2, 8), -1);
    EXPECT_EQ(toggle.settings, 4);
    gTestHost.table[19] = 1;
    EXPECT_EQ(press(2, 2), 11);
    EXPECT_EQ(press(2, 1), 1002);
    EXPECT_EQ(toggle.settings, 5);
}
