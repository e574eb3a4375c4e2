#include "menu/list_menu.h"

#include "support/counted_list.h"
#include "support/kestro_test.h"
#include "support/virtual_slot.h"

class ListMenuTest : public KestroTest {};

static void expectInitialValues(CountedList& list) {
    EXPECT_TRUE(list.getFirstFlag());
    EXPECT_TRUE(list.getWrap());
    EXPECT_EQ(list.getCursor(), 0);
    EXPECT_EQ(list.getFirstVisible(), 0);
    EXPECT_EQ(list.getLastVisible(), 0);
    EXPECT_EQ(list.getKeyword(), "");
    EXPECT_EQ(list.mLastKeyTime, 0u);
    EXPECT_TRUE(list.mPressedKeys.empty());
    EXPECT_TRUE(list.getFocus());
}

TEST_F(ListMenuTest, StartsWithItsInitialValues) {
    CountedList list(3);
    expectInitialValues(list);
}

namespace {

class PlainList : public ListMenu {
public:
    explicit PlainList(bool flag) : ListMenu(flag) {}
    int select() override { return 0; }
    ListRow* getItemByIndex(int) override { return nullptr; }
    int draw() override { return 0; }
    int getListNum() override { return 0; }
};

} // namespace

TEST_F(ListMenuTest, IgnoresTheConstructorsArgument) {
    for (const bool argument : {false, true}) {
        const PlainList list(argument);
        EXPECT_TRUE(list.getFirstFlag()) << argument;
        EXPECT_TRUE(list.getWrap()) << argument;
    }
}

TEST_F(ListMenuTest, CopiesTheRectangle) {
    CountedList list(3);
    SDL_Rect rect{1, 2, 3, 4};
    list.setRect(rect);
    rect = {9, 9, 9, 9};
    const SDL_Rect kept = list.getRect();
    EXPECT_EQ(kept.x, 1);
    EXPECT_EQ(kept.y, 2);
    EXPECT_EQ(kept.w, 3);
    EXPECT_EQ(kept.h, 4);
}

TEST_F(ListMenuTest, KeepsWhatTheHostSets) {
    CountedList list(3);
    list.setFocus(false);
    list.setWrap(false);
    list.setFirstFlag(false);
    list.setCursor(7);
    list.setFirstVisible(8);
    list.setLastVisible(9);
    list.setKeyword("word");
    EXPECT_FALSE(list.getFocus());
    EXPECT_FALSE(list.getWrap());
    EXPECT_FALSE(list.getFirstFlag());
    EXPECT_EQ(list.getCursor(), 7);
    EXPECT_EQ(list.getFirstVisible(), 8);
    EXPECT_EQ(list.getLastVisible(), 9);
    EXPECT_EQ(list.getKeyword(), "word");
    list.setKeyword(nullptr);
    EXPECT_EQ(list.getKeyword(), "");
}

TEST_F(ListMenuTest, TheVirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(virtualSlot(&ListMenu::restorePos), 2);
    EXPECT_EQ(virtualSlot(&ListMenu::eventHandling), 3);
    EXPECT_EQ(virtualSlot(&ListMenu::select), 4);
    EXPECT_EQ(virtualSlot(&ListMenu::getItemByIndex), 5);
    EXPECT_EQ(virtualSlot(&ListMenu::getItemThemePath), 6);
    EXPECT_EQ(virtualSlot(&ListMenu::draw), 7);
    EXPECT_EQ(virtualSlot(&ListMenu::getListNum), 8);
    EXPECT_EQ(virtualSlot(&ListMenu::moveForward), 9);
    EXPECT_EQ(virtualSlot(&ListMenu::moveBackward), 10);
    EXPECT_EQ(virtualSlot(&ListMenu::xselect), 11);
    EXPECT_EQ(virtualSlot(&ListMenu::refresh), 12);
    EXPECT_EQ(virtualSlot(&ListMenu::removeItem), 13);
    EXPECT_EQ(virtualSlot(&ListMenu::clearItemList), 14);
    EXPECT_EQ(virtualSlot(&ListMenu::reserved15), 15);
    EXPECT_EQ(virtualSlot(&ListMenu::reserved16), 16);
    EXPECT_EQ(virtualSlot(&ListMenu::pageUp), 17);
    EXPECT_EQ(virtualSlot(&ListMenu::pageDown), 18);
}

TEST_F(ListMenuTest, TheDefaultsDoNothing) {
    PlainList list(true);
    list.setCursor(2);
    EXPECT_EQ(list.ListMenu::getItemThemePath(0), nullptr);
    EXPECT_EQ(list.xselect(), 0);
    list.refresh();
    list.removeItem(0);
    list.clearItemList();
    list.reserved15();
    list.reserved16();
    list.checkRepeatKey();
    EXPECT_EQ(list.getCursor(), 2);
    EXPECT_EQ(takeLog(), "");
}

namespace {

/// Notes which of its own operations were reached.
class OverridingList : public CountedList {
public:
    OverridingList() : CountedList(10) {}

    void restorePos(int, int, int) override { calls.emplace_back("restorePos"); }
    int eventHandling() override { return note("eventHandling", 1); }
    const char* getItemThemePath(int) override { return "theme"; }
    int draw() override { return note("draw", 2); }
    int getListNum() override { return note("getListNum", 3); }
    int moveForward() override { return note("moveForward", 4); }
    int moveBackward() override { return note("moveBackward", backward); }
    void refresh() override { calls.emplace_back("refresh"); }
    void removeItem(int) override { calls.emplace_back("removeItem"); }
    void clearItemList() override { calls.emplace_back("clearItemList"); }
    void reserved15() override { calls.emplace_back("15"); }
    void reserved16() override { calls.emplace_back("16"); }
    int pageUp() override { return note("pageUp", 6); }
    int pageDown() override { return note("pageDown", 7); }

    int backward = 5;

private:
    int note(const char* call, int result) {
        calls.emplace_back(call);
        return result;
    }
};

} // namespace

TEST_F(ListMenuTest, CallsThroughTheBaseReachTheOverride) {
    OverridingList derived;
    ListMenu& list = derived;
    list.restorePos(0, 0, 0);
    EXPECT_EQ(list.eventHandling(), 1);
    EXPECT_EQ(list.select(), 77);
    EXPECT_STREQ(list.getItemThemePath(0), "theme");
    EXPECT_EQ(list.draw(), 2);
    EXPECT_EQ(list.getListNum(), 3);
    EXPECT_EQ(list.moveForward(), 4);
    EXPECT_EQ(list.moveBackward(), 5);
    EXPECT_EQ(list.xselect(), 88);
    list.refresh();
    list.removeItem(0);
    list.clearItemList();
    list.reserved15();
    list.reserved16();
    EXPECT_EQ(list.pageUp(), 6);
    EXPECT_EQ(list.pageDown(), 7);
    EXPECT_THAT(derived.calls,
                testing::ElementsAre("restorePos", "eventHandling", "select", "draw", "getListNum",
                                     "moveForward", "moveBackward", "xselect", "refresh", "removeItem",
                                     "clearItemList", "15", "16", "pageUp", "pageDown"));
}

TEST_F(ListMenuTest, KeysGoThroughTheVirtualOperations) {
    OverridingList list;
    EXPECT_EQ(list.handleEvent(1), 77);
    EXPECT_EQ(list.handleEvent(3), 88);
    EXPECT_EQ(list.handleEvent(5), 5);
    EXPECT_EQ(list.handleEvent(6), 6);
    list.mPressedKeys.assign(11, 6);
    EXPECT_EQ(list.handleEvent(5), 5);
    EXPECT_EQ(list.handleEvent(6), 6);
    EXPECT_THAT(list.calls, testing::ElementsAre("select", "xselect", "moveBackward", "moveForward", "pageUp",
                                                 "pageDown"));
    takeLog();
}

TEST_F(ListMenuTest, UpGivesAnOverriddenResultOnlyFromOneUp) {
    OverridingList list;
    for (const int result : {1, 2, 1008, 4000}) {
        list.backward = result;
        EXPECT_EQ(list.handleEvent(5), result);
    }
    for (const int result : {0, -1, -1008}) {
        list.backward = result;
        EXPECT_EQ(list.handleEvent(5), 5) << result;
    }
    takeLog();
}
