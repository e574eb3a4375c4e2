#include "menu/menu_item.h"

#include "support/recorded_action.h"
#include "support/skinned_test.h"
#include "support/virtual_slot.h"
#include "system/current_language.h"
#include "system/language.h"

#include <memory>

class MenuItemTest : public KestroTest {
protected:
    void TearDown() override {
        gLangTable.clear();
        setSystemLanguage("en.lang");
        KestroTest::TearDown();
    }
};

TEST_F(MenuItemTest, StartsWithItsInitialValues) {
    TextMenuItem item("Name", nullptr, nullptr, false);
    EXPECT_EQ(item.labelText(), "Name");
    EXPECT_EQ(item.getLabel(), "Name");
    EXPECT_EQ(item.getLabelId(), -1);
    EXPECT_EQ(item.getAction(), nullptr);
    EXPECT_EQ(item.getLabelIcon(), nullptr);
    EXPECT_FALSE(item.getFirstFlag());
    EXPECT_FALSE(item.getSecondFlag());
    EXPECT_EQ(item.getSubLabel(), "");
    EXPECT_EQ(item.getExtraText(), "");
    EXPECT_EQ(item.getImagePath(), "");
    EXPECT_EQ(item.getSecondImagePath(), "");
    EXPECT_EQ(item.getThemePath(), "");
    EXPECT_EQ(item.getUserData(), nullptr);
}

TEST_F(MenuItemTest, TheVirtualOperationsKeepTheirSlots) {
    using Row = TextMenuItemProvider;
    EXPECT_EQ(virtualSlot(&Row::getAction), 2);
    EXPECT_EQ(virtualSlot(&Row::getImagePath), 3);
    EXPECT_EQ(virtualSlot(&Row::getExtraText), 4);
    EXPECT_EQ(virtualSlot(&Row::getSecondImagePath), 5);
    EXPECT_EQ(virtualSlot(&Row::getLabel), 6);
    EXPECT_EQ(virtualSlot(&Row::getSubLabel), 7);
    EXPECT_EQ(virtualSlot(&Row::getLabelIcon), 8);
    EXPECT_EQ(virtualSlot(&Row::getUserData), 9);
    EXPECT_EQ(virtualSlot(&Row::getFirstFlag), 10);
    EXPECT_EQ(virtualSlot(&Row::getThemePath), 11);
}

TEST_F(MenuItemTest, AnswersThroughTheBase) {
    ActionLog log;
    RecordedAction action(log);
    TextMenuItem item("Name", nullptr, &action, false);
    item.setExtraText("third");
    item.setImagePath("fourth");
    item.setSecondImagePath("fifth");
    item.setFirstFlag(true);
    item.setSubLabelPresent(true);
    item.setSubLabel("sub");
    TextMenuItemProvider& row = item;
    EXPECT_EQ(row.getAction(), &action);
    EXPECT_EQ(row.getImagePath(), "fourth");
    EXPECT_EQ(row.getExtraText(), "third");
    EXPECT_EQ(row.getSecondImagePath(), "fifth");
    EXPECT_EQ(row.getLabel(), "Name");
    EXPECT_EQ(row.getSubLabel(), "sub");
    EXPECT_EQ(row.getUserData(), nullptr);
    EXPECT_TRUE(row.getFirstFlag());
    EXPECT_EQ(row.getThemePath(), "");
}

TEST_F(MenuItemTest, ARowThatHasOnlyALabelHasNothingElse) {
    class LabelOnly : public TextMenuItemProvider {
    public:
        std::string getLabel() override { return "only"; }
    };
    LabelOnly row;
    EXPECT_EQ(row.getAction(), nullptr);
    EXPECT_EQ(row.getImagePath(), "");
    EXPECT_EQ(row.getExtraText(), "");
    EXPECT_EQ(row.getSecondImagePath(), "");
    EXPECT_EQ(row.getSubLabel(), "");
    EXPECT_EQ(row.getLabelIcon(), nullptr);
    EXPECT_EQ(row.getUserData(), nullptr);
    EXPECT_FALSE(row.getFirstFlag());
    EXPECT_EQ(row.getThemePath(), "");
}

TEST_F(MenuItemTest, AnEmptyLabelShowsTheWordOfItsId) {
    for (const char* const label : {static_cast<const char*>(nullptr), ""}) {
        TextMenuItem item(label, nullptr, nullptr, false);
        EXPECT_EQ(item.labelText(), "");
        EXPECT_EQ(item.getLabel(), "");
        item.setLabelId(4);
        EXPECT_EQ(item.getLabel(), "OPEN");
        EXPECT_EQ(item.labelText(), "");
        item.setLabelId(100000);
        EXPECT_EQ(item.getLabel(), "wrongbeef");
    }
}

TEST_F(MenuItemTest, TheWordIsThatOfTheCurrentLanguage) {
    TextMenuItem item(nullptr, nullptr, nullptr, false);
    item.setLabelId(4);
    gLangTable.push_back({"xx.lang", "Xx", "", {{4, "Öffnen"}}});
    setSystemLanguage("xx.lang");
    EXPECT_EQ(item.getLabel(), "Öffnen");
}

TEST_F(MenuItemTest, ALabelWinsOverTheId) {
    TextMenuItem item("Own", nullptr, nullptr, false);
    item.setLabelId(4);
    EXPECT_EQ(item.getLabel(), "Own");
    item.setLabel(nullptr);
    EXPECT_EQ(item.getLabel(), "OPEN");
    item.setLabel("New");
    EXPECT_EQ(item.getLabel(), "New");
}

TEST_F(MenuItemTest, TheLabelIsACopy) {
    char label[] = "abc";
    TextMenuItem item(label, nullptr, nullptr, false);
    label[0] = 'X';
    EXPECT_EQ(item.getLabel(), "abc");
}

TEST_F(MenuItemTest, TheSubLabelIsShownOnlyWhenItIsPresent) {
    TextMenuItem item("Name", nullptr, nullptr, false);
    item.setSubLabel("sub");
    item.setSubLabelId(4);
    EXPECT_EQ(item.getSubLabel(), "");
    item.setSubLabelPresent(true);
    EXPECT_EQ(item.getSubLabel(), "sub");
    item.setSubLabel("");
    EXPECT_EQ(item.getSubLabel(), "OPEN");
    item.setSubLabel(nullptr);
    EXPECT_EQ(item.getSubLabel(), "OPEN");
    item.setSubLabelPresent(false);
    EXPECT_EQ(item.getSubLabel(), "");
}

TEST_F(MenuItemTest, APresentSubLabelWithoutTextOrIdIsEmpty) {
    TextMenuItem item("Name", nullptr, nullptr, false);
    item.setSubLabelPresent(true);
    EXPECT_EQ(item.getSubLabel(), "");
}

TEST_F(MenuItemTest, KeepsTheOtherTextsAndFlags) {
    TextMenuItem item("Name", nullptr, nullptr, false);
    item.setExtraText("a");
    item.setImagePath("b");
    item.setSecondImagePath("c");
    item.setSecondFlag(true);
    EXPECT_FALSE(item.getFirstFlag());
    EXPECT_TRUE(item.getSecondFlag());
    EXPECT_EQ(item.getExtraText(), "a");
    EXPECT_EQ(item.getImagePath(), "b");
    EXPECT_EQ(item.getSecondImagePath(), "c");
    item.setExtraText(nullptr);
    item.setImagePath(nullptr);
    item.setSecondImagePath(nullptr);
    EXPECT_EQ(item.getExtraText(), "");
    EXPECT_EQ(item.getImagePath(), "");
    EXPECT_EQ(item.getSecondImagePath(), "");
}

TEST_F(MenuItemTest, DeletesTheActionThatItOwnsOnce) {
    ActionLog log;
    auto* item = new TextMenuItem("Name", nullptr, new RecordedAction(log), true);
    EXPECT_EQ(log.deleted, 0);
    delete static_cast<ListRow*>(item);
    EXPECT_EQ(log.deleted, 1);
}

TEST_F(MenuItemTest, LeavesAnActionThatItDoesNotOwnAlone) {
    ActionLog log;
    RecordedAction action(log);
    delete new TextMenuItem("Name", nullptr, &action, false);
    EXPECT_EQ(log.deleted, 0);
    delete new TextMenuItem("Name", nullptr, nullptr, true);
}

/// Rows with a picture need a screen.
class MenuItemIconTest : public SkinnedTest {};

TEST_F(MenuItemIconTest, LogsItsIconAndLeavesItToItsOwner) {
    const std::unique_ptr<KestroSurface> icon(newPicture(8, 8, 0xFFFF0000));
    char line[64];
    for (const char* const label : {static_cast<const char*>(nullptr), "", "Name"}) {
        auto* const item = new TextMenuItem(label, icon.get(), nullptr, false);
        snprintf(line, sizeof line, "%s labelicon = %p\n", label ? label : "",
                 static_cast<void*>(icon.get()));
        EXPECT_EQ(takeLog(), line);
        EXPECT_EQ(item->getLabelIcon(), icon.get());
        delete item;
    }
    SDL_Rect place{3, 4, 0, 0};
    EXPECT_EQ(icon->render(nullptr, &place, true, nullptr), 0);
    EXPECT_EQ(pixel(3, 4), 0xFFFF0000);
}
