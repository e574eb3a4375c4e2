#include "core/clock.h"
#include "core/window_stack.h"
#include "gfx/screen.h"
#include "support/drawing_log.h"
#include "support/input_events.h"
#include "support/screen_test.h"
#include "support/threads.h"
#include "support/window_test.h"

class WindowFrameTest : public WindowTest {};

TEST_F(WindowFrameTest, UpdatesThenDrawsThenHandlesInput) {
    addWindow("a");
    EXPECT_EQ(run(), "a is 1003, quit navora\n" + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.quit a.deleted");
    EXPECT_TRUE(windows.empty());
}

TEST_F(WindowFrameTest, EveryFrameDoesItAllAgain) {
    addWindow("a")->onInput = answers({0, -1, 25});
    run();
    const std::string frame = drawn("a") + "a.eventHandling ";
    EXPECT_EQ(takeCalls(), frame + frame + frame + frame + "a.quit a.deleted");
}

TEST_F(WindowFrameTest, OnlyTheTopWindowIsDrawnAndGetsInput) {
    addWindow("below");
    addWindow("above")->onInput = answers({0});
    run();
    EXPECT_EQ(takeCalls(), drawn("above") + "above.eventHandling " + drawn("above") +
                               "above.eventHandling above.quit above.deleted below.quit below.deleted");
}

TEST_F(WindowFrameTest, WindowsOnTheStackFromTheStartAreNotInitialised) {
    addWindow("a");
    run();
    EXPECT_THAT(takeCalls(), testing::Not(testing::HasSubstr("init")));
}

TEST_F(WindowFrameTest, AnEmptyStackOnlyStartsAndStopsTheThread) {
    runWindows(windows);
    EXPECT_EQ(takeLog(), std::string(runBegin) + "0 window to free\n" + runEnd);
    EXPECT_TRUE(clock.takeSleeps().empty());
}

TEST_F(WindowFrameTest, AtLeastOneInputCallAFrameWithoutAnyEvent) {
    addWindow("a")->onInput = answers({0});
    run();
    EXPECT_EQ(waitingEvents(), 0);
    EXPECT_EQ(clock.takeSleeps().size(), 1u);
}

TEST_F(WindowFrameTest, RepeatThreadHasItsNameWhileTheWindowsRun) {
    RecordedWindow* const window = addWindow("a");
    bool seen = false;
    window->onInput = [&] {
        seen = threadAppears("repeatkey");
        return 1003;
    };
    run();
    EXPECT_TRUE(seen);
    EXPECT_TRUE(threadDisappears("repeatkey"));
}

TEST_F(WindowFrameTest, StackIsPublishedWhileItRunsAndAfter) {
    RecordedWindow* const window = addWindow("a");
    std::vector<KestroWindow*>* seen = nullptr;
    window->onInput = [&] {
        seen = gWinList;
        return 1003;
    };
    run();
    EXPECT_EQ(seen, &windows);
    EXPECT_EQ(gWinList, &windows);
}

TEST_F(WindowFrameTest, TwoRunsInOneProcess) {
    for (int round = 0; round < 2; ++round) {
        addWindow("a")->onInput = answers({0});
        EXPECT_EQ(run(), "a is 1003, quit navora\n" + freed({0}));
        EXPECT_TRUE(threadDisappears("repeatkey"));
    }
}

TEST_F(WindowFrameTest, TheSecondRunPublishesItsOwnStack) {
    addWindow("a");
    run();
    std::vector<KestroWindow*> others{makeWindow("b")};
    runWindows(others);
    EXPECT_EQ(takeLog(), runBegin + ("a is 1003, quit navora\n" + freed({0})) + runEnd);
    EXPECT_EQ(gWinList, &others);
    EXPECT_TRUE(others.empty());
}

class WindowFrameOnScreenTest : public ScreenTest {
protected:
    FakeClock clock{laterStart()};
    QuickRepeat quick;
};

TEST_F(WindowFrameOnScreenTest, ShowsTheFrameAfterDrawingAndBeforeInput) {
    DrawingLog drawing;
    WindowLog calls;
    auto* const window = new RecordedWindow(calls, "a");
    std::vector<std::string> beforeDraw;
    std::vector<std::string> beforeInput;
    window->onDraw = [&] {
        beforeDraw = drawing.take();
        SDL_RenderClear(gRenderer);
    };
    window->onInput = [&] {
        beforeInput = drawing.take();
        return 1003;
    };
    std::vector<KestroWindow*> windows{window};
    runWindows(windows);
    takeLog();
    EXPECT_TRUE(beforeDraw.empty());
    EXPECT_THAT(beforeInput, testing::ElementsAre("clear #000000FF on W", "present"));
    gWinList = nullptr;
}
