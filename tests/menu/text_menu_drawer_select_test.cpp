#include "support/key_events.h"
#include "support/open_text_menu.h"
#include "support/recorded_action.h"
#include "support/screen_test.h"

#include <climits>
#include <cstdio>

class DrawerSelectTest : public ScreenTest {
protected:
    ActionLog log;

    /// A row that has an action of its own, at the end of `menu`.
    TextMenuItem* addActive(TextMenu& menu, const char* label, int result,
                            std::function<void()> onRun = nullptr) {
        auto* const action = new RecordedAction(log, result);
        action->onRun = std::move(onRun);
        auto* const row = new TextMenuItem(label, nullptr, action, true);
        menu.insertItem(static_cast<TextMenuItemProvider*>(row));
        return row;
    }

    static std::string doworkLine(const char* label, void* row) {
        char line[100];
        snprintf(line, sizeof line, "%s dowork %p\n", label, row);
        return line;
    }
};

TEST_F(DrawerSelectTest, RunsTheCurrentRowsActionWithTheRow) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    addActive(menu, "first", 1);
    TextMenuItem* const second = addActive(menu, "second", 17);
    menu.setCursor(1);
    takeLog();
    EXPECT_EQ(menu.select(), 17);
    EXPECT_EQ(takeLog(), doworkLine("second", second));
    EXPECT_THAT(log.ran, testing::ElementsAre(second));
    EXPECT_TRUE(log.ranSecondary.empty());
}

TEST_F(DrawerSelectTest, LogsTheLabelAsItIsShown) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    TextMenuItem* const row = addActive(menu, nullptr, 0);
    row->setLabelId(4);
    takeLog();
    EXPECT_EQ(menu.select(), 0);
    EXPECT_EQ(takeLog(), doworkLine("OPEN", row));
}

TEST_F(DrawerSelectTest, ANegativeResultBecomesMinusOne) {
    for (const int result : {-1, -2, -1002, INT_MIN}) {
        TextMenu menu(nullptr, nullptr, 6, 0);
        addActive(menu, "row", result);
        EXPECT_EQ(menu.select(), -1) << result;
        EXPECT_EQ(menu.xselect(), -1) << result;
    }
    for (const int result : {0, 1, 2, 26, 1002, INT_MAX}) {
        TextMenu menu(nullptr, nullptr, 6, 0);
        addActive(menu, "row", result);
        EXPECT_EQ(menu.select(), result);
        EXPECT_EQ(menu.xselect(), result);
    }
    takeLog();
}

TEST_F(DrawerSelectTest, WithoutRowOrActionItGivesMinusOneAndLogsNothing) {
    OpenTextMenu menu(nullptr, nullptr, 6, 0);
    takeLog();
    EXPECT_EQ(menu.select(), -1);
    menu.add("no action");
    menu.insertItem(nullptr);
    for (const int cursor : {0, 1, 2, -1, INT_MIN, INT_MAX}) {
        menu.setCursor(cursor);
        EXPECT_EQ(menu.select(), -1) << cursor;
    }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(DrawerSelectTest, TheSecondaryActionLogsOnceAndGetsTheRow) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    TextMenuItem* const row = addActive(menu, "row", 9);
    takeLog();
    EXPECT_EQ(menu.xselect(), 9);
    EXPECT_EQ(takeLog(), "TextMenuDrawer::xselect\n");
    EXPECT_THAT(log.ranSecondary, testing::ElementsAre(row));
    EXPECT_TRUE(log.ran.empty());
}

TEST_F(DrawerSelectTest, TheSecondaryActionWithoutRowOrActionStillLogs) {
    OpenTextMenu menu(nullptr, nullptr, 6, 0);
    takeLog();
    EXPECT_EQ(menu.xselect(), -1);
    menu.add("no action");
    EXPECT_EQ(menu.xselect(), -1);
    EXPECT_EQ(takeLog(), "TextMenuDrawer::xselect\nTextMenuDrawer::xselect\n");
}

static int never(void*) {
    ADD_FAILURE() << "the primary action ran";
    return 5;
}

TEST_F(DrawerSelectTest, AnActionWithoutASecondaryOneGivesZero) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    menu.insertItem(new TextMenuItem("row", nullptr, new GeneralAction(never, nullptr), true));
    takeLog();
    EXPECT_EQ(menu.xselect(), 0);
    EXPECT_EQ(takeLog(), "TextMenuDrawer::xselect\n");
}

TEST_F(DrawerSelectTest, AnActionMayRemoveItsRow) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    addActive(menu, "row", 3, [&] { menu.removeItem(0); });
    EXPECT_EQ(menu.select(), 3);
    EXPECT_EQ(menu.getListNum(), 0);
    EXPECT_EQ(log.deleted, 1);
    takeLog();
}

TEST_F(DrawerSelectTest, AnActionMayClearTheMenu) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    addActive(menu, "row", -3, [&] { menu.clearItemList(); });
    EXPECT_EQ(menu.xselect(), -1);
    EXPECT_EQ(menu.getListNum(), 0);
    takeLog();
}

TEST_F(DrawerSelectTest, AnActionMayDeleteTheMenu) {
    for (const bool secondary : {false, true}) {
        auto* const menu = new TextMenu(nullptr, nullptr, 6, 0);
        addActive(*menu, "row", 1002, [&] { delete menu; });
        EXPECT_EQ(secondary ? menu->xselect() : menu->select(), 1002);
        EXPECT_EQ(log.deleted, secondary + 1);
    }
    takeLog();
}

TEST_F(DrawerSelectTest, AnActionMayDeleteTheMenuDuringAKey) {
    for (const int code : {1, 3}) {
        auto* const menu = new TextMenu(nullptr, nullptr, 6, 0);
        addActive(*menu, "row", 1002, [&] { delete menu; });
        pressCode(code);
        EXPECT_EQ(menu->eventHandling(), 1002);
    }
    EXPECT_EQ(log.deleted, 2);
    takeLog();
}

namespace {

/// A drawer whose rows are not rows of text.
class ForeignRows : public TextMenuDrawer {
public:
    ForeignRows() : TextMenuDrawer(nullptr, nullptr, 6, 0) {}
    ListRow* getItemByIndex(int index) override { return index == 0 ? &mRow : nullptr; }
    int getListNum() override { return 1; }

private:
    ListRow mRow;
};

} // namespace

TEST_F(DrawerSelectTest, RowsThatAreNotTextHaveNoAction) {
    ForeignRows list;
    takeLog();
    EXPECT_EQ(list.select(), -1);
    EXPECT_EQ(list.xselect(), -1);
    EXPECT_EQ(takeLog(), "TextMenuDrawer::xselect\n");
    EXPECT_EQ(list.draw(), 0);
}

TEST_F(DrawerSelectTest, KeysRunTheActions) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    TextMenuItem* const row = addActive(menu, "row", 12);
    takeLog();
    pressCode(1);
    EXPECT_EQ(menu.eventHandling(), 12);
    EXPECT_EQ(takeLog(), doworkLine("row", row));
    pressCode(3);
    EXPECT_EQ(menu.eventHandling(), 12);
    EXPECT_EQ(takeLog(), "key_x\nTextMenuDrawer::xselect\n");
    pressCode(2);
    EXPECT_EQ(menu.eventHandling(), 2);
}
