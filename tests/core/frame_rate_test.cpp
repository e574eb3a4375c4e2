#include "core/frame_rate.h"
#include "support/window_test.h"

class FrameRateTest : public WindowTest {
protected:
    /// The sleeps in milliseconds of this many frames, in each of which drawing takes `drawing` ms.
    std::vector<uint64_t> sleepsOf(int frames, uint64_t drawing = 0) {
        RecordedWindow* const window = addWindow("a");
        window->onDraw = [this, drawing] { clock.advance(drawing); };
        window->onInput = [frames, done = 0]() mutable { return done++ < frames ? 0 : 1003; };
        return sleepsOfRun();
    }

    std::vector<uint64_t> sleepsOfRun() {
        run();
        takeCalls();
        std::vector<uint64_t> sleeps = clock.takeSleeps();
        for (uint64_t& sleep : sleeps) {
            EXPECT_EQ(sleep % 1000, 0u);
            sleep /= 1000;
        }
        return sleeps;
    }

    using Sleeps = std::vector<uint64_t>;
};

TEST_F(FrameRateTest, IdleFramesTakeATenthOfASecond) {
    EXPECT_EQ(sleepsOf(3), Sleeps(3, 100));
}

TEST_F(FrameRateTest, SleepIsWhatTheWorkLeftOfTheFrame) {
    EXPECT_EQ(sleepsOf(2, 30), Sleeps(2, 70));
    EXPECT_EQ(sleepsOf(1, 99), Sleeps(1, 1));
}

TEST_F(FrameRateTest, WorkAsLongAsTheFrameLeavesNoSleep) {
    EXPECT_EQ(sleepsOf(3, 100), Sleeps());
}

TEST_F(FrameRateTest, WorkLongerThanTheFrameLeavesNoSleep) {
    EXPECT_EQ(sleepsOf(3, 101), Sleeps());
    EXPECT_EQ(sleepsOf(1, 5000), Sleeps());
}

TEST_F(FrameRateTest, FrameBeginsBeforeUpdate) {
    RecordedWindow* const window = addWindow("a");
    window->onUpdate = [this] { clock.advance(10); };
    window->onDraw = [this] { clock.advance(20); };
    window->onInput = [this, first = true]() mutable {
        clock.advance(30);
        const int code = first ? 0 : 1003;
        first = false;
        return code;
    };
    EXPECT_EQ(sleepsOfRun(), Sleeps(1, 40));
}

TEST_F(FrameRateTest, EachFrameIsMeasuredFromItsOwnStart) {
    RecordedWindow* const window = addWindow("a");
    window->onDraw = [this, frame = 0]() mutable { clock.advance(frame++ == 0 ? 250 : 10); };
    window->onInput = answers({0, 0, 0});
    EXPECT_EQ(sleepsOfRun(), (Sleeps{90, 90}));
}

TEST_F(FrameRateTest, ClockSetBackLeavesNoSleep) {
    RecordedWindow* const window = addWindow("a");
    window->onDraw = [this] { clock.set(clock.now() - 3'600'000); };
    window->onInput = answers({0, 0});
    EXPECT_EQ(sleepsOfRun(), Sleeps());
}

TEST_F(FrameRateTest, ClockSetForwardLeavesNoSleep) {
    RecordedWindow* const window = addWindow("a");
    window->onDraw = [this] { clock.advance(3'600'000); };
    window->onInput = answers({0, 0});
    EXPECT_EQ(sleepsOfRun(), Sleeps());
}

TEST_F(FrameRateTest, BoostedFramesTakeAThirtiethOfASecond) {
    touchBoostFps(1000);
    EXPECT_EQ(sleepsOf(5), Sleeps(5, 33));
}

TEST_F(FrameRateTest, BoostEndsWhenItsBudgetIsSpent) {
    touchBoostFps(100);
    EXPECT_EQ(sleepsOf(6), (Sleeps{33, 33, 33, 33, 100, 100}));
}

TEST_F(FrameRateTest, BoostOfOneMillisecondLastsOneFrame) {
    touchBoostFps(1);
    EXPECT_EQ(sleepsOf(2), (Sleeps{33, 100}));
}

TEST_F(FrameRateTest, BoostOfExactlyOneFrameLastsOneFrame) {
    touchBoostFps(33);
    EXPECT_EQ(sleepsOf(2), (Sleeps{33, 100}));
    touchBoostFps(34);
    EXPECT_EQ(sleepsOf(3), (Sleeps{33, 33, 100}));
}

TEST_F(FrameRateTest, SlowFramesCostTheBoostNoMore) {
    touchBoostFps(99);
    EXPECT_EQ(sleepsOf(4, 50), (Sleeps{50})) << "three boosted frames without a sleep, then an idle one";
}

TEST_F(FrameRateTest, SleepOfABoostedFrameIsWhatTheWorkLeftOfIt) {
    touchBoostFps(60);
    EXPECT_EQ(sleepsOf(3, 13), (Sleeps{20, 20, 87}));
}

TEST_F(FrameRateTest, LongerBoostReplacesWhatIsLeft) {
    touchBoostFps(33);
    touchBoostFps(99);
    EXPECT_EQ(sleepsOf(4), (Sleeps{33, 33, 33, 100}));
}

TEST_F(FrameRateTest, ShorterBoostNeverShortensARunningOne) {
    touchBoostFps(500);
    touchBoostFps(300);
    Sleeps expected(16, 33);
    expected.push_back(100);
    EXPECT_EQ(sleepsOf(17), expected);
}

TEST_F(FrameRateTest, ZeroAndLessEndABoostAtOnce) {
    for (const int end : {0, -1, -2147483647}) {
        touchBoostFps(500);
        touchBoostFps(end);
        EXPECT_EQ(sleepsOf(1), Sleeps(1, 100)) << end;
    }
}

TEST_F(FrameRateTest, BoostFromAHandlerTellsInTheSameFrame) {
    RecordedWindow* const window = addWindow("a");
    window->onInput = [frame = 0]() mutable {
        if (frame == 1)
            touchBoostFps(40);
        return frame++ < 4 ? 0 : 1003;
    };
    EXPECT_EQ(sleepsOfRun(), (Sleeps{100, 33, 33, 100}));
}

TEST_F(FrameRateTest, BoostLeftOverByOneRunIsSpentInTheNext) {
    touchBoostFps(60);
    EXPECT_EQ(sleepsOf(1), Sleeps(1, 33));
    EXPECT_EQ(sleepsOf(2), (Sleeps{33, 100}));
}

TEST_F(FrameRateTest, RatesOfFiveAndLessStandForTheDefaults) {
    for (const int rate : {5, 0, -1, -2147483647 - 1}) {
        EXPECT_EQ(setKestroWindowFps(rate, rate), 10) << rate;
        touchBoostFps(1);
        EXPECT_EQ(sleepsOf(2), (Sleeps{33, 100})) << rate;
    }
}

TEST_F(FrameRateTest, RatesAboveFiveAreTaken) {
    struct {
        int fps;
        int boostFps;
        Sleeps sleeps;
    } const rows[] = {
        {6, 60, {16, 166}},  {60, 6, {166, 16}},  {7, 24, {41, 142}}, {25, 5, {33, 40}},
        {5, 1000, {1, 100}}, {1000, 30, {33, 1}}, {20, 20, {50, 50}}, {300, 700, {1, 3}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(setKestroWindowFps(row.fps, row.boostFps), row.fps > 5 ? row.fps : 10);
        touchBoostFps(1);
        EXPECT_EQ(sleepsOf(2), row.sleeps) << row.fps << ", " << row.boostFps;
    }
}

TEST_F(FrameRateTest, ReturnsTheNormalRateInForce) {
    EXPECT_EQ(setKestroWindowFps(5, 5), 10);
    EXPECT_EQ(setKestroWindowFps(6, 60), 6);
    EXPECT_EQ(setKestroWindowFps(60, 6), 60);
    EXPECT_EQ(setKestroWindowFps(0, 60), 10);
}

TEST_F(FrameRateTest, NormalRateAboveAThousandNeverSleeps) {
    EXPECT_EQ(setKestroWindowFps(1001, 30), 1001);
    EXPECT_EQ(sleepsOf(3), Sleeps());
}

TEST_F(FrameRateTest, BoostRateAboveAThousandLastsUntilItIsEnded) {
    setKestroWindowFps(10, 1001);
    touchBoostFps(1);
    EXPECT_EQ(sleepsOf(50), Sleeps());
    touchBoostFps(0);
    EXPECT_EQ(sleepsOf(2), Sleeps(2, 100));
}

TEST_F(FrameRateTest, RateChangedFromAHandlerTellsInTheSameFrame) {
    RecordedWindow* const window = addWindow("a");
    window->onInput = [frame = 0]() mutable {
        if (frame == 1)
            setKestroWindowFps(50, 30);
        return frame++ < 3 ? 0 : 1003;
    };
    EXPECT_EQ(sleepsOfRun(), (Sleeps{100, 20, 20}));
}
