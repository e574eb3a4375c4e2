#include "core/input.h"
#include "support/input_test.h"

class AxisTest : public InputTest {
protected:
    /// Moves the axis at a time when every axis event is accepted.
    int move(int axis, int value) {
        clock.advance(1000);
        return give(axisMoved(axis, value));
    }

    /// Moves the axis `ms` milliseconds after the last event, and takes the log line.
    int moveAfter(uint64_t ms, int axis, int value) {
        clock.advance(ms);
        const int code = give(axisMoved(axis, value));
        takeLog();
        return code;
    }
};

TEST_F(AxisTest, SticksAndTriggersGiveTheirCodes) {
    const struct {
        int axis;
        int low;
        int high;
    } rows[] = {{0, 7, 8}, {1, 5, 6}, {2, 0, 14}, {3, 7, 8}, {4, 5, 6}, {5, 0, 15}, {6, 0, 0}, {255, 0, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(move(row.axis, -32768), row.low) << row.axis;
        EXPECT_EQ(move(row.axis, 32767), row.high) << row.axis;
        const std::string line = "joyaxis " + std::to_string(row.axis) + ", value ";
        EXPECT_EQ(takeLog(), line + "-32768\n" + line + "32767\n");
    }
}

TEST_F(AxisTest, HalfOfTheTravelIsIgnoredWithoutAWord) {
    for (const int value : {0, 10, 11, -11, 16383, -16383, 16384, -16384})
        EXPECT_EQ(move(0, value), 0) << value;
    EXPECT_EQ(takeLog(), "");
}

TEST_F(AxisTest, AnythingMoreIsAccepted) {
    EXPECT_EQ(move(0, 16385), 8);
    EXPECT_EQ(move(0, -16385), 7);
    EXPECT_EQ(takeLog(), "joyaxis 0, value 16385\njoyaxis 0, value -16385\n");
}

TEST_F(AxisTest, LowestValueHasASignToo) {
    EXPECT_EQ(move(1, -32768), 5);
    EXPECT_EQ(takeLog(), "joyaxis 1, value -32768\n");
}

TEST_F(AxisTest, SecondEventCountsOnlyAfterMoreThan150Milliseconds) {
    EXPECT_EQ(moveAfter(1000, 0, 32767), 8);
    EXPECT_EQ(moveAfter(0, 0, 32767), 0);
    EXPECT_EQ(moveAfter(150, 0, 32767), 0);
    EXPECT_EQ(moveAfter(1, 0, 32767), 8) << "the ignored events do not count";
    EXPECT_EQ(moveAfter(151, 0, 32767), 8);
    EXPECT_EQ(moveAfter(150, 0, -32767), 0);
}

TEST_F(AxisTest, PauseIsSharedByAllAxes) {
    EXPECT_EQ(moveAfter(1000, 0, 32767), 8);
    EXPECT_EQ(moveAfter(150, 1, -32767), 0);
    EXPECT_EQ(moveAfter(1, 4, -32767), 5);
    EXPECT_EQ(moveAfter(100, 5, 32767), 0);
    EXPECT_EQ(moveAfter(51, 5, 32767), 15);
}

TEST_F(AxisTest, IgnoredEventIsLoggedAllTheSame) {
    moveAfter(1000, 0, 32767);
    EXPECT_EQ(give(axisMoved(3, 20000)), 0);
    EXPECT_EQ(takeLog(), "joyaxis 3, value 20000\n");
}

TEST_F(AxisTest, EventWithoutACodeKeepsTheTime) {
    EXPECT_EQ(moveAfter(1000, 0, 32767), 8);
    EXPECT_EQ(moveAfter(149, 2, -32767), 0);
    EXPECT_EQ(moveAfter(1, 7, 32767), 0);
    EXPECT_EQ(moveAfter(1, 0, 32767), 8);
    EXPECT_EQ(moveAfter(200, 5, -32767), 0);
    EXPECT_EQ(moveAfter(0, 0, 32767), 8);
    EXPECT_EQ(moveAfter(151, 0, 100), 0);
    EXPECT_EQ(moveAfter(0, 0, 32767), 8);
}

TEST_F(AxisTest, ClockSetBackAccepts) {
    EXPECT_EQ(moveAfter(1000, 0, 32767), 8);
    clock.set(clock.now() - 60'000);
    EXPECT_EQ(moveAfter(0, 0, 32767), 8);
    EXPECT_EQ(moveAfter(150, 0, 32767), 0) << "from then on the new time counts";
}

TEST_F(AxisTest, AxesStartNoRepeat) {
    move(1, 32767);
    EXPECT_EQ(takeLog(), "joyaxis 1, value 32767\n");
}
