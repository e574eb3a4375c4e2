#include "support/kestro_test.h"
#include "support/open_text_menu.h"

/// Which rows a list shows. Without a screen nothing is drawn, but the list goes through its rows.
class DrawerRangeTest : public KestroTest {
protected:
    static void fill(OpenTextMenu& menu, int rows) { menu.addRows(rows); }

    static std::vector<int> shown(OpenTextMenu& menu) {
        menu.drawnNumbers.clear();
        EXPECT_EQ(menu.draw(), 0);
        return menu.drawnNumbers;
    }

    /// Numbers from one to another, both included.
    static std::vector<int> numbers(int from, int to) {
        std::vector<int> list;
        for (int i = from; i <= to; ++i)
            list.push_back(i);
        return list;
    }

    static void expectRange(OpenTextMenu& menu, int first, int last) {
        EXPECT_EQ(menu.getFirstVisible(), first);
        EXPECT_EQ(menu.getLastVisible(), last);
    }

    /// The range after a draw of a list of `rows` with the given state.
    void expectLaidOut(int rows, int cursor, int first, int last, int newFirst, int newLast) {
        OpenTextMenu menu(nullptr, nullptr, 6, 0);
        takeLog();
        fill(menu, rows);
        menu.setCursor(cursor);
        menu.setFirstVisible(first);
        menu.setLastVisible(last);
        EXPECT_EQ(shown(menu), numbers(newFirst + 1, newLast + 1)) << rows << " rows, cursor " << cursor;
        expectRange(menu, newFirst, newLast);
    }
};

TEST_F(DrawerRangeTest, TheFirstDrawShowsAPage) {
    expectLaidOut(20, 0, 0, 0, 0, 5);
    expectLaidOut(7, 0, 0, 0, 0, 5);
    expectLaidOut(6, 0, 0, 0, 0, 5);
    expectLaidOut(5, 0, 0, 0, 0, 4);
    expectLaidOut(1, 0, 0, 0, 0, 0);
}

TEST_F(DrawerRangeTest, TheFirstDrawWithACursorBelowShowsItLast) {
    expectLaidOut(20, 6, 0, 0, 1, 6);
    expectLaidOut(20, 19, 0, 0, 14, 19);
}

TEST_F(DrawerRangeTest, ScrollsByTheLeastAmountThatShowsTheCursor) {
    expectLaidOut(20, 6, 0, 5, 1, 6);
    expectLaidOut(20, 4, 5, 10, 4, 9);
    expectLaidOut(20, 12, 0, 5, 7, 12);
    expectLaidOut(20, 0, 14, 19, 0, 5);
    expectLaidOut(20, 19, 0, 5, 14, 19);
    expectLaidOut(20, 8, 5, 10, 5, 10);
    expectLaidOut(20, 5, 5, 10, 5, 10);
    expectLaidOut(20, 10, 5, 10, 5, 10);
}

TEST_F(DrawerRangeTest, ARangeBeyondTheRowsIsCut) {
    expectLaidOut(8, 7, 5, 10, 5, 7);
    expectLaidOut(8, 2, 5, 10, 2, 7);
    expectLaidOut(8, 0, -3, 2, 0, 2);
    expectLaidOut(3, 2, 0, 5, 0, 2);
    expectLaidOut(8, 1, 1, 100, 1, 7);
}

TEST_F(DrawerRangeTest, MovingDownFromTheLastVisibleRowScrollsByOne) {
    OpenTextMenu menu(nullptr, nullptr, 6, 0);
    fill(menu, 20);
    menu.draw();
    for (int i = 0; i < 6; ++i) {
        expectRange(menu, 0, 5);
        menu.moveForward();
        menu.draw();
    }
    expectRange(menu, 1, 6);
    EXPECT_EQ(shown(menu), numbers(2, 7));
    for (int i = 0; i < 5; ++i)
        menu.moveBackward();
    menu.draw();
    expectRange(menu, 1, 6);
    menu.moveBackward();
    menu.draw();
    expectRange(menu, 0, 5);
    takeLog();
}

TEST_F(DrawerRangeTest, AnEmptyListDrawsNothingAndKeepsItsRange) {
    OpenTextMenu menu(nullptr, nullptr, 6, 0);
    menu.setCursor(-1);
    EXPECT_TRUE(shown(menu).empty());
    expectRange(menu, 0, 0);
    menu.setFirstVisible(3);
    menu.setLastVisible(8);
    EXPECT_TRUE(shown(menu).empty());
    expectRange(menu, 3, 8);
    takeLog();
}

TEST_F(DrawerRangeTest, ACursorBeyondTheRowsShowsNoRow) {
    OpenTextMenu menu(nullptr, nullptr, 6, 0);
    fill(menu, 20);
    menu.setCursor(19);
    menu.draw();
    while (menu.getListNum() > 3)
        menu.removeItem(0);
    EXPECT_TRUE(shown(menu).empty());
    expectRange(menu, 14, 2);
    EXPECT_EQ(menu.getCursor(), 19);
    menu.restorePos(0, 0, 2);
    EXPECT_EQ(shown(menu), numbers(1, 3));
    takeLog();
}

TEST_F(DrawerRangeTest, PagesHaveTheRowsTheyWereMadeFor) {
    OpenTextMenu menu(nullptr, nullptr, 4, 0);
    fill(menu, 20);
    EXPECT_EQ(shown(menu), numbers(1, 4));
    menu.setCursor(10);
    EXPECT_EQ(shown(menu), numbers(8, 11));
    menu.setCursor(2);
    EXPECT_EQ(shown(menu), numbers(3, 6));
    SDL_Rect rect{0, 0, 100, 100};
    menu.updateRectAndNum(rect, 2);
    menu.setCursor(9);
    EXPECT_EQ(shown(menu), numbers(9, 10));
    takeLog();
}

TEST_F(DrawerRangeTest, APageOfNoRowsShowsNone) {
    OpenTextMenu menu(nullptr, nullptr, 0, 0);
    fill(menu, 20);
    EXPECT_TRUE(shown(menu).empty());
    menu.setCursor(7);
    EXPECT_TRUE(shown(menu).empty());
    takeLog();
}

TEST_F(DrawerRangeTest, RestoredPositionsComeBack) {
    OpenTextMenu menu(nullptr, nullptr, 6, 0);
    fill(menu, 20);
    menu.restorePos(9, 7, 12);
    EXPECT_EQ(shown(menu), numbers(8, 13));
    menu.restorePos(3, 7, 12);
    EXPECT_EQ(shown(menu), numbers(4, 9));
    takeLog();
}
