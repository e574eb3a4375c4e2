#include "support/setting_menu_test.h"

#include "support/drawing_log.h"
#include "support/virtual_slot.h"

#include <climits>

using testing::ElementsAre;

class SettingMenuDrawTest : public SettingMenuTest {
protected:
    /// The numbers of the rows that a draw draws.
    std::vector<int> drawn() {
        log.draws.clear();
        EXPECT_EQ(menu->draw(), 0);
        std::vector<int> numbers;
        for (const std::string& line : log.draws)
            numbers.push_back(std::stoi(line));
        return numbers;
    }
};

TEST_F(SettingMenuTest, HasSixRowsOf96PixelsAndNoBackgrounds) {
    gThemePath = "theme/";
    menu = std::make_unique<OpenSettingMenu>();
    EXPECT_EQ(takeLog(), "mItemHeight = 96, mYSpaceInList = 0\nSettingMenu::~SettingMenu\n");
    EXPECT_EQ(menu->getRowsPerPage(), 6);
    EXPECT_EQ(menu->mSelectedBackground, nullptr);
    EXPECT_EQ(menu->mNormalBackground, nullptr);
    EXPECT_EQ(menu->mThemePath, "theme/");
    EXPECT_EQ(menu->getListNum(), 0);
    EXPECT_EQ(menu->getRect().y, 80);
    EXPECT_EQ(menu->getRect().h, 580);
}

TEST_F(SettingMenuTest, TheVirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(virtualSlot(&SettingMenu::eventHandling), 3);
    EXPECT_EQ(virtualSlot(&SettingMenu::select), 4);
    EXPECT_EQ(virtualSlot(&SettingMenu::getItemByIndex), 5);
    EXPECT_EQ(virtualSlot(&SettingMenu::draw), 7);
    EXPECT_EQ(virtualSlot(&SettingMenu::getListNum), 8);
    EXPECT_EQ(virtualSlot(&ItemDrawable::draw), 2);
    EXPECT_EQ(virtualSlot(&ItemDrawable::isFocusable), 3);
    EXPECT_EQ(virtualSlot(&ItemDrawable::handleEvent), 4);
    EXPECT_EQ(virtualSlot(&ValueHandler::changeValue), 2);
    EXPECT_EQ(virtualSlot(&ValueHandler::getValue), 3);
    EXPECT_EQ(virtualSlot(&ValueHandler::getValueText), 4);
    EXPECT_EQ(virtualSlot(&SwitchHandler::getValue), 2);
    EXPECT_EQ(virtualSlot(&SwitchHandler::setValue), 3);
}

TEST_F(SettingMenuTest, AppendsRowsAndIgnoresNull) {
    ItemDrawable* const first = add();
    menu->insertSettingItem(nullptr);
    ItemDrawable* const second = add();
    ListMenu& base = *menu;
    EXPECT_EQ(base.getListNum(), 2);
    EXPECT_EQ(base.getItemByIndex(0), first);
    EXPECT_EQ(base.getItemByIndex(1), second);
    for (const int index : {-1, 2, INT_MIN, INT_MAX})
        EXPECT_EQ(base.getItemByIndex(index), nullptr) << index;
}

TEST_F(SettingMenuTest, DeletesItsRowsWithTheirActions) {
    add(new RecordedAction(actions));
    add();
    add(new RecordedAction(actions));
    menu.reset();
    EXPECT_EQ(takeLog(), "SettingMenu::~SettingMenu\n");
    EXPECT_EQ(log.deleted, 3);
    EXPECT_EQ(actions.deleted, 2);
}

TEST_F(SettingMenuTest, SelectRunsTheRowsActionAndGivesItsResultAsItIs) {
    for (const int result : {0, 5, 1002, -1, -7, INT_MIN})
        add(new RecordedAction(actions, result));
    for (int i = 0; i < 6; ++i) {
        menu->setCursor(i);
        const int wanted[] = {0, 5, 1002, -1, -7, INT_MIN};
        EXPECT_EQ(static_cast<ListMenu&>(*menu).select(), wanted[i]);
        EXPECT_EQ(actions.ran.back(), menu->getItemByIndex(i));
    }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SettingMenuTest, SelectWithoutRowOrActionGivesMinusOne) {
    EXPECT_EQ(menu->select(), -1);
    add();
    for (const int cursor : {0, -1, 1, INT_MIN, INT_MAX}) {
        menu->setCursor(cursor);
        EXPECT_EQ(menu->select(), -1) << cursor;
    }
}

TEST_F(SettingMenuTest, TheInheritedSecondaryActionFindsNone) {
    add(new RecordedAction(actions, 5));
    EXPECT_EQ(menu->xselect(), -1);
    EXPECT_EQ(takeLog(), "TextMenuDrawer::xselect\n");
    EXPECT_TRUE(actions.ranSecondary.empty());
}

TEST_F(SettingMenuTest, AnActionMayDeleteThePage) {
    auto* const action = new RecordedAction(actions, 1002);
    action->onRun = [this] { menu.reset(); };
    add(action);
    EXPECT_EQ(menu->select(), 1002);
    EXPECT_EQ(log.deleted, 1);
}

TEST_F(SettingMenuDrawTest, RowsStand96PixelsApart) {
    addRows(3);
    menu->setCursor(1);
    EXPECT_EQ(menu->draw(), 0);
    EXPECT_THAT(log.draws,
                ElementsAre("1 at 10,80 1260x96", "2 at 10,176 1260x96 selected", "3 at 10,272 1260x96"));
    log.draws.clear();
    SDL_Rect rect{100, 7, 500, 300};
    menu->updateRectAndNum(rect, 3); // the rows' height does not follow
    menu->draw();
    EXPECT_THAT(log.draws,
                ElementsAre("1 at 110,7 480x96", "2 at 110,103 480x96 selected", "3 at 110,199 480x96"));
}

TEST_F(SettingMenuDrawTest, DrawsNothingButItsRows) {
    addRows(3);
    DrawingLog calls;
    menu->draw();
    EXPECT_TRUE(calls.take().empty());
}

TEST_F(SettingMenuDrawTest, TheSelectionDoesNotNeedTheFocus) {
    addRows(1);
    menu->setFocus(false);
    menu->draw();
    EXPECT_THAT(log.draws, ElementsAre("1 at 10,80 1260x96 selected"));
}

TEST_F(SettingMenuDrawTest, ScrollsAPageOfSix) {
    addRows(10);
    EXPECT_THAT(drawn(), ElementsAre(1, 2, 3, 4, 5, 6));
    menu->setCursor(5);
    EXPECT_THAT(drawn(), ElementsAre(1, 2, 3, 4, 5, 6));
    menu->setCursor(6);
    EXPECT_THAT(drawn(), ElementsAre(2, 3, 4, 5, 6, 7));
    EXPECT_EQ(menu->getFirstVisible(), 1);
    EXPECT_EQ(menu->getLastVisible(), 6);
    menu->setCursor(9);
    EXPECT_THAT(drawn(), ElementsAre(5, 6, 7, 8, 9, 10));
    menu->setCursor(4);
    EXPECT_THAT(drawn(), ElementsAre(5, 6, 7, 8, 9, 10));
    menu->setCursor(3);
    EXPECT_THAT(drawn(), ElementsAre(4, 5, 6, 7, 8, 9));
    menu->setCursor(0);
    EXPECT_THAT(drawn(), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(SettingMenuDrawTest, APageHasSixRowsWhateverItsArea) {
    addRows(10);
    SDL_Rect rect{100, 7, 500, 300};
    menu->updateRectAndNum(rect, 3);
    EXPECT_THAT(drawn(), ElementsAre(1, 2, 3, 4, 5, 6));
    menu->setCursor(7);
    EXPECT_THAT(drawn(), ElementsAre(3, 4, 5, 6, 7, 8));
}

TEST_F(SettingMenuDrawTest, AShortPageShowsAllItsRows) {
    addRows(2);
    EXPECT_THAT(drawn(), ElementsAre(1, 2));
    EXPECT_EQ(menu->getLastVisible(), 1);
    menu->setCursor(1);
    EXPECT_THAT(drawn(), ElementsAre(1, 2));
    menu->setCursor(50);
    EXPECT_TRUE(drawn().empty());
}

TEST_F(SettingMenuDrawTest, AnEmptyPageDrawsNothingAndKeepsItsRange) {
    EXPECT_TRUE(drawn().empty());
    EXPECT_EQ(menu->getLastVisible(), 0);
    addRows(8);
    EXPECT_THAT(drawn(), ElementsAre(1, 2, 3, 4, 5, 6));
}
