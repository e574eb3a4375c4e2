#include "support/counted_list.h"
#include "support/kestro_test.h"

#include <climits>

class ListMenuMovesTest : public KestroTest {
protected:
    static CountedList* at(CountedList& list, int cursor) {
        list.setCursor(cursor);
        return &list;
    }
};

TEST_F(ListMenuMovesTest, ForwardGoesDownOneRow) {
    CountedList list(3);
    EXPECT_EQ(list.moveForward(), 0);
    EXPECT_EQ(list.getCursor(), 1);
    EXPECT_EQ(list.moveForward(), 0);
    EXPECT_EQ(list.getCursor(), 2);
}

TEST_F(ListMenuMovesTest, ForwardFromTheLastRowGoesToTheFirstWhateverTheWrapFlag) {
    CountedList list(3);
    for (const bool wrap : {false, true}) {
        list.setWrap(wrap);
        EXPECT_EQ(at(list, 2)->moveForward(), 0);
        EXPECT_EQ(list.getCursor(), 0) << wrap;
    }
}

TEST_F(ListMenuMovesTest, ForwardFromBeyondTheRowsGoesToTheFirst) {
    CountedList list(3);
    EXPECT_EQ(at(list, 100)->moveForward(), 0);
    EXPECT_EQ(list.getCursor(), 0);
}

TEST_F(ListMenuMovesTest, BackwardGoesUpOneRow) {
    CountedList list(3);
    for (const bool wrap : {false, true}) {
        list.setWrap(wrap);
        EXPECT_EQ(at(list, 2)->moveBackward(), -1);
        EXPECT_EQ(list.getCursor(), 1) << wrap;
    }
}

TEST_F(ListMenuMovesTest, BackwardOnTheFirstRowWrapsOnlyWithTheFlag) {
    CountedList list(3);
    EXPECT_EQ(list.moveBackward(), -1);
    EXPECT_EQ(list.getCursor(), 2);
    list.setWrap(false);
    EXPECT_EQ(at(list, 0)->moveBackward(), 1008);
    EXPECT_EQ(list.getCursor(), 0);
}

TEST_F(ListMenuMovesTest, PagesAreSixRowsWhateverTheEndsAllow) {
    CountedList list(20);
    EXPECT_EQ(at(list, 10)->pageUp(), 0);
    EXPECT_EQ(list.getCursor(), 4);
    EXPECT_EQ(list.pageUp(), 0);
    EXPECT_EQ(list.getCursor(), 0);
    EXPECT_EQ(at(list, 6)->pageUp(), 0);
    EXPECT_EQ(list.getCursor(), 0);
    EXPECT_EQ(list.pageDown(), 0);
    EXPECT_EQ(list.getCursor(), 6);
    EXPECT_EQ(at(list, 13)->pageDown(), 0);
    EXPECT_EQ(list.getCursor(), 19);
    EXPECT_EQ(at(list, 17)->pageDown(), 0); // n - 3
    EXPECT_EQ(list.getCursor(), 19);
    EXPECT_EQ(at(list, 14)->pageDown(), 0);
    EXPECT_EQ(list.getCursor(), 19);
}

TEST_F(ListMenuMovesTest, PagesFromFarBeyondTheRowsEndOnThem) {
    CountedList list(20);
    for (const int cursor : {20, 1000, INT_MAX - 5, INT_MAX}) {
        EXPECT_EQ(at(list, cursor)->pageDown(), 0);
        EXPECT_EQ(list.getCursor(), 19) << cursor;
    }
    for (const int cursor : {-1, -1000, INT_MIN + 5, INT_MIN}) {
        EXPECT_EQ(at(list, cursor)->pageUp(), 0);
        EXPECT_EQ(list.getCursor(), 0) << cursor;
    }
}

TEST_F(ListMenuMovesTest, WithoutRowsTheCursorGoesToMinusOneOrZero) {
    CountedList list(0);
    EXPECT_EQ(at(list, 0)->moveForward(), 0);
    EXPECT_EQ(list.getCursor(), 0);
    EXPECT_EQ(at(list, 0)->pageDown(), 0);
    EXPECT_EQ(list.getCursor(), -1);
    EXPECT_EQ(at(list, 0)->pageUp(), 0);
    EXPECT_EQ(list.getCursor(), 0);
    EXPECT_EQ(at(list, 0)->moveBackward(), -1);
    EXPECT_EQ(list.getCursor(), -1);
    EXPECT_EQ(list.moveForward(), 0); // down is the way out of -1
    EXPECT_EQ(list.getCursor(), 0);
    list.setWrap(false);
    EXPECT_EQ(list.moveBackward(), 1008);
    EXPECT_EQ(list.getCursor(), 0);
}

TEST_F(ListMenuMovesTest, RestorePosTakesARowThatThereIs) {
    CountedList list(6);
    for (const int cursor : {0, 3, 5}) {
        list.restorePos(cursor, 0, 5);
        EXPECT_EQ(list.getCursor(), cursor);
    }
}

TEST_F(ListMenuMovesTest, RestorePosIgnoresACursorThatIsNoRow) {
    CountedList list(6);
    list.setCursor(2);
    for (const int cursor : {-1, 6, 100, INT_MIN, INT_MAX}) {
        list.restorePos(cursor, 1, 4);
        EXPECT_EQ(list.getCursor(), 2) << cursor;
        EXPECT_EQ(list.getFirstVisible(), 1);
        EXPECT_EQ(list.getLastVisible(), 4);
    }
}

TEST_F(ListMenuMovesTest, RestorePosTakesTheCursorButNotARangeThatIsOut) {
    CountedList list(6);
    list.setFirstVisible(1);
    list.setLastVisible(2);
    list.restorePos(5, 3, 8);
    EXPECT_EQ(list.getCursor(), 5);
    EXPECT_EQ(list.getFirstVisible(), 1);
    EXPECT_EQ(list.getLastVisible(), 2);
}

TEST_F(ListMenuMovesTest, RestorePosTakesFirstAndLastTogetherOrNotAtAll) {
    CountedList list(6);
    list.setFirstVisible(1);
    list.setLastVisible(2);
    const int bad[][2] = {{-1, 5}, {0, -1}, {6, 5}, {0, 6}, {-1, -1}, {INT_MAX, 0}};
    for (const auto& range : bad) {
        list.restorePos(0, range[0], range[1]);
        EXPECT_EQ(list.getFirstVisible(), 1) << range[0];
        EXPECT_EQ(list.getLastVisible(), 2) << range[1];
    }
    list.restorePos(0, 5, 0); // the order of the two is not looked at
    EXPECT_EQ(list.getFirstVisible(), 5);
    EXPECT_EQ(list.getLastVisible(), 0);
}

TEST_F(ListMenuMovesTest, RestorePosOnAnEmptyListChangesNothing) {
    CountedList list(0);
    list.setCursor(-1);
    list.setLastVisible(4);
    list.restorePos(0, 0, 0);
    EXPECT_EQ(list.getCursor(), -1);
    EXPECT_EQ(list.getLastVisible(), 4);
}
