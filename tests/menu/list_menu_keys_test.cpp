#include "core/frame_rate.h"
#include "core/window_stack.h"
#include "support/counted_list.h"
#include "support/fake_clock.h"
#include "support/kestro_test.h"
#include "support/recorded_window.h"

#include <climits>

class ListMenuKeysTest : public KestroTest {
protected:
    void TearDown() override {
        touchBoostFps(0);
        KestroTest::TearDown();
    }

    /// Runs the loop, gives each code to a list, and returns how many frames of the boost rate it brought.
    static std::vector<int> boostedFrames(const std::vector<int>& codes) {
        FakeClock clock;
        CountedList list(20);
        WindowLog log;
        std::vector<int> boosted;
        auto* const window = new RecordedWindow(log, "page");
        window->onInput = [&] {
            for (const uint64_t sleep : clock.takeSleeps()) {
                if (sleep == 33000) {
                    ++boosted.back();
                    return 0;
                }
            }
            if (boosted.size() == codes.size())
                return 1003;
            touchBoostFps(0);
            list.handleEvent(codes[boosted.size()]);
            boosted.push_back(0);
            return 0;
        };
        std::vector<KestroWindow*> windows{window};
        runWindows(windows);
        return boosted;
    }
};

static constexpr int framesOf3Seconds = 91; // of 33 ms, the last one begun with 30 ms left

TEST_F(ListMenuKeysTest, KeysOfAPersonBoostTheFrameRateForThreeSeconds) {
    const std::vector<int> codes{1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 42};
    EXPECT_EQ(boostedFrames(codes), std::vector<int>(codes.size(), framesOf3Seconds));
    takeLog();
}

TEST_F(ListMenuKeysTest, OtherCodesDoNotBoost) {
    const std::vector<int> codes{0,  4,  12, 13,  14,   15,   16,      25, 26,
                                 41, 43, 44, 100, 1002, 1008, INT_MAX, -1, INT_MIN};
    EXPECT_EQ(boostedFrames(codes), std::vector<int>(codes.size(), 0));
    takeLog();
}

TEST_F(ListMenuKeysTest, AKeyBoostsBeforeItActs) {
    // The action asks for the end of the boost; a boost that came after it would win.
    class EndingList : public CountedList {
    public:
        using CountedList::CountedList;
        int select() override { return touchBoostFps(0), 0; }
    };
    FakeClock clock;
    EndingList list(5);
    WindowLog log;
    auto* const window = new RecordedWindow(log, "page");
    int frame = 0;
    window->onInput = [&] { return frame++ == 0 ? list.handleEvent(1) : 1003; };
    std::vector<KestroWindow*> windows{window};
    runWindows(windows);
    takeLog();
    EXPECT_THAT(clock.takeSleeps(), testing::ElementsAre(100000));
}

TEST_F(ListMenuKeysTest, ASelectsWithoutSwap) {
    CountedList list(3);
    EXPECT_EQ(list.handleEvent(1), 77);
    EXPECT_THAT(list.calls, testing::ElementsAre("select"));
    EXPECT_EQ(list.handleEvent(2), 2);
    EXPECT_THAT(list.calls, testing::ElementsAre("select"));
}

TEST_F(ListMenuKeysTest, BSelectsWithSwap) {
    CountedList list(3);
    for (const int swap : {1, 2, -1}) {
        list.calls.clear();
        gTestHost.table[19] = swap;
        EXPECT_EQ(list.handleEvent(1), 1) << swap;
        EXPECT_TRUE(list.calls.empty()) << swap;
        EXPECT_EQ(list.handleEvent(2), 77) << swap;
        EXPECT_THAT(list.calls, testing::ElementsAre("select")) << swap;
    }
}

TEST_F(ListMenuKeysTest, OnlyIndex19OfTheTableSwaps) {
    for (int& value : gTestHost.table)
        value = 1;
    gTestHost.table[19] = 0;
    CountedList list(3);
    EXPECT_EQ(list.handleEvent(1), 77);
    EXPECT_EQ(list.handleEvent(2), 2);
}

TEST_F(ListMenuKeysTest, TheThirdFaceButtonLogsAndRunsTheSecondaryAction) {
    CountedList list(3);
    for (const int result : {88, 0, -5, 1002}) {
        list.xselectResult = result;
        EXPECT_EQ(list.handleEvent(3), result);
        EXPECT_EQ(takeLog(), "key_x\n");
    }
    EXPECT_EQ(list.calls.size(), 4u);
}

TEST_F(ListMenuKeysTest, TheResultOfASelectionIsPassedOnWhateverItIs) {
    CountedList list(3);
    for (const int result : {0, -1, -7, 1, 2, 26, 1002, INT_MAX, INT_MIN}) {
        list.selectResult = result;
        EXPECT_EQ(list.handleEvent(1), result);
    }
}

TEST_F(ListMenuKeysTest, DownMovesForwardAndLogsTheCount) {
    CountedList list(3);
    EXPECT_EQ(list.handleEvent(6), 6);
    EXPECT_EQ(list.getCursor(), 1);
    EXPECT_EQ(takeLog(), "pressedForAWhile 0\n");
}

TEST_F(ListMenuKeysTest, DownOnTheLastRowWrapsEvenWithWrapOff) {
    CountedList list(3);
    list.setWrap(false);
    list.setCursor(2);
    EXPECT_EQ(list.handleEvent(6), 6);
    EXPECT_EQ(list.getCursor(), 0);
    takeLog();
}

TEST_F(ListMenuKeysTest, UpMovesBackwardAndLogsTheCount) {
    CountedList list(3);
    list.setCursor(2);
    EXPECT_EQ(list.handleEvent(5), 5);
    EXPECT_EQ(list.getCursor(), 1);
    EXPECT_EQ(takeLog(), "pressedForAWhile 0\n");
}

TEST_F(ListMenuKeysTest, UpOnTheFirstRowGives1008OnlyWithWrapOff) {
    CountedList list(3);
    list.setWrap(false);
    EXPECT_EQ(list.handleEvent(5), 1008);
    EXPECT_EQ(list.getCursor(), 0);
    list.setWrap(true);
    EXPECT_EQ(list.handleEvent(5), 5);
    EXPECT_EQ(list.getCursor(), 2);
    takeLog();
}

TEST_F(ListMenuKeysTest, EveryOtherCodeComesBackAndDoesNothing) {
    CountedList list(3);
    list.setCursor(1);
    std::vector<int> codes{INT_MIN, -1002, -1, 0, 4, 1002, 1003, 1008, INT_MAX};
    for (int code = 7; code <= 60; ++code)
        codes.push_back(code);
    for (const int code : codes)
        EXPECT_EQ(list.handleEvent(code), code);
    EXPECT_EQ(list.getCursor(), 1);
    EXPECT_TRUE(list.calls.empty());
}
