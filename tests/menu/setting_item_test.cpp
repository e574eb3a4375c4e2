#include "menu/setting_item.h"

#include "shell/skin.h"
#include "support/recorded_action.h"
#include "support/setting_drawing_test.h"

using testing::ElementsAre;

class SettingItemTest : public SettingDrawingTest {};

TEST_F(SettingItemTest, DrawsBackgroundAndLabel) {
    SettingItem item(selected, normal, "Alpha", nullptr, nullptr);
    EXPECT_THAT(drawn(item, false), ElementsAre("'normal' all -> 10,93 900x70 on W", label("Alpha")));
    EXPECT_THAT(drawn(item, true), ElementsAre("'selected' all -> 10,83 800x90 on W", label("Alpha")));
}

TEST_F(SettingItemTest, WithoutASelectionBackgroundTheSelectedRowHasTheNormalOne) {
    SettingItem item(nullptr, normal, "Alpha", nullptr, nullptr);
    EXPECT_EQ(drawn(item, true).front(), "'normal' all -> 10,93 900x70 on W");
    SettingItem onlySelected(selected, nullptr, "Alpha", nullptr, nullptr);
    EXPECT_EQ(drawn(onlySelected, true).size(), 2u);
    EXPECT_THAT(drawn(onlySelected, false), ElementsAre(label("Alpha")));
}

TEST_F(SettingItemTest, ARowThatCannotBeFocusedNeverShowsItsSelection) {
    class Heading : public SettingItem {
    public:
        using SettingItem::SettingItem;
        bool isFocusable() override { return false; }
    };
    Heading heading(selected, normal, "Alpha", nullptr, nullptr);
    EXPECT_EQ(drawn(heading, true).front(), "'normal' all -> 10,93 900x70 on W");
    Heading bare(selected, nullptr, "Alpha", nullptr, nullptr);
    EXPECT_THAT(drawn(bare, true), ElementsAre(label("Alpha")));
    SettingItem plain(nullptr, nullptr, "", "", nullptr);
    EXPECT_TRUE(plain.isFocusable());
}

TEST_F(SettingItemTest, ABackgroundHigherThanTheRowReachesOutOnBothSides) {
    const std::unique_ptr<KestroSurface> tall(newPicture(500, 121, 0xFFFF0000));
    SettingItem item(nullptr, tall.get(), "", nullptr, nullptr);
    EXPECT_THAT(drawn(item, false), ElementsAre("copy all -> 10,68 500x121 on W")); // half of -25 is -12
}

TEST_F(SettingItemTest, TheValueEndsNearTheRightEdge) {
    SettingItem item(nullptr, nullptr, "Alpha", "12", nullptr);
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, "12", &w, &h);
    EXPECT_THAT(drawn(item, false),
                testing::UnorderedElementsAre(label("Alpha"),
                                              white("12", 10 + 1260 - 85 + 60 - w, 80 + (96 - h) / 2)));
    item.setValueText("");
    EXPECT_THAT(drawn(item, false), ElementsAre(label("Alpha")));
    item.setValueText(nullptr);
    EXPECT_THAT(drawn(item, false), ElementsAre(label("Alpha")));
    item.setValueText("34");
    EXPECT_EQ(drawn(item, false).size(), 2u);
}

TEST_F(SettingItemTest, TheRightIconStandsInTheMiddleOfTheRow) {
    SettingItem item(nullptr, nullptr, "Alpha", nullptr, nullptr);
    EXPECT_EQ(drawn(item, false).size(), 1u);
    item.setRightIcon(normal);
    EXPECT_THAT(drawn(item, true),
                testing::UnorderedElementsAre(label("Alpha"), "'normal' all -> 345,93 900x70 on W"));
    item.setRightIcon(nullptr);
    EXPECT_EQ(drawn(item, false).size(), 1u);
}

TEST_F(SettingItemTest, ALabelByItsIndexFollowsTheLanguage) {
    SettingItem item(nullptr, nullptr, 4, nullptr, nullptr);
    EXPECT_THAT(drawn(item, false), ElementsAre(label("OPEN")));
    useLanguage({{4, "打开"}});
    EXPECT_THAT(drawn(item, false), ElementsAre(label("打开")));
    SettingItem first(nullptr, nullptr, 0, nullptr, nullptr);
    EXPECT_THAT(drawn(first, false), ElementsAre(label("Cancel")));
    SettingItem unknown(nullptr, nullptr, 100000, nullptr, nullptr);
    EXPECT_THAT(drawn(unknown, false), ElementsAre(label("wrongbeef")));
    SettingItem none(nullptr, nullptr, -1, nullptr, nullptr);
    EXPECT_TRUE(drawn(none, false).empty());
}

TEST_F(SettingItemTest, NullTextsCountAsEmpty) {
    SettingItem item(nullptr, nullptr, static_cast<const char*>(nullptr), nullptr, nullptr);
    EXPECT_TRUE(drawn(item, true).empty());
}

TEST_F(SettingItemTest, FollowsItsRectangle) {
    SettingItem item(nullptr, normal, "Alpha", "12", nullptr);
    item.setRightIcon(selected);
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, "Alpha", nullptr, &h);
    TTF_SizeUTF8(gListFontTxt, "12", &w, nullptr);
    EXPECT_THAT(drawnIn(item, {100, 200, 1000, 50}, false),
                testing::UnorderedElementsAre("'normal' all -> 100,190 900x70 on W",
                                              white("Alpha", 140, 200 + (50 - h) / 2),
                                              "'selected' all -> 275,180 800x90 on W",
                                              white("12", 1100 - 85 + 60 - w, 200 + (50 - h) / 2)));
}

TEST_F(SettingItemTest, HandlesNoKeyAndOwnsItsAction) {
    ActionLog log;
    auto* const action = new RecordedAction(log);
    auto* const item = new SettingItem(nullptr, nullptr, "Alpha", nullptr, action);
    for (const int code : {1, 2, 4, 7, 8, 0, -1})
        EXPECT_EQ(item->handleEvent(code), -1);
    EXPECT_EQ(item->getAction(), action);
    delete static_cast<ListRow*>(item);
    EXPECT_EQ(log.deleted, 1);
    EXPECT_TRUE(log.ran.empty());
    delete new SettingItem(nullptr, nullptr, "Alpha", nullptr, nullptr);
}

TEST_F(SettingItemTest, WithoutFontsOnlyPicturesAreDrawn) {
    uninit_shared_skin();
    SettingItem item(selected, normal, "Alpha", "12", nullptr);
    EXPECT_THAT(drawn(item, true), ElementsAre("'selected' all -> 10,83 800x90 on W"));
}
