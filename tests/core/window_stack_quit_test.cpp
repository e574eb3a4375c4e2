#include "core/input.h"
#include "core/window_stack.h"
#include "gfx/fill.h"
#include "gfx/screen.h"
#include "support/input_events.h"
#include "support/screen_test.h"
#include "support/window_test.h"

#include <csignal>

/// A quit request of the desktop takes SDL away, and the loop goes on.
class QuitRequestTest : public WindowTest {};

static bool sdlRuns() {
    return SDL_WasInit(0) != 0;
}

TEST_F(QuitRequestTest, SeenWaitingItShutsSdlDownAndTheLoopGoesOn) {
    push(plainEvent(SDL_QUIT));
    RecordedWindow* const window = addWindow("a");
    std::vector<bool> running;
    window->onInput = [&] {
        running.push_back(sdlRuns());
        constexpr int codes[] = {0, 25, 0, 1003};
        return codes[running.size() - 1];
    };
    EXPECT_EQ(run(), "a is 1003, quit navora\n" + freed({0}));
    EXPECT_THAT(running, testing::ElementsAre(true, true, false, false));
    EXPECT_EQ(clock.takeSleeps().size(), 2u);
}

TEST_F(QuitRequestTest, SentByTheSystemItIsSeenInTheSameFrame) {
    RecordedWindow* const window = addWindow("a");
    std::vector<bool> running;
    int frames = 0;
    window->onDraw = [&] { ++frames; };
    window->onInput = [&] {
        running.push_back(sdlRuns());
        if (running.size() == 1)
            raise(SIGTERM); // which SDL makes an event when it is asked for events
        else
            EXPECT_EQ(static_cast<size_t>(frames), running.size() - 1);
        constexpr int codes[] = {0, 25, 1003};
        return codes[running.size() - 1];
    };
    run();
    EXPECT_THAT(running, testing::ElementsAre(true, true, false));
}

TEST_F(QuitRequestTest, TakenByTheWindowItShutsSdlDownAndTheLoopGoesOn) {
    push(plainEvent(SDL_QUIT));
    RecordedWindow* const window = addWindow("a");
    std::vector<int> codes;
    window->onInput = [&] {
        codes.push_back(wait_event(nullptr));
        return codes.size() < 3 ? codes.back() : 1003;
    };
    run();
    EXPECT_THAT(codes, testing::ElementsAre(0, 0, 0));
    EXPECT_FALSE(sdlRuns());
    EXPECT_EQ(clock.takeSleeps().size(), 2u);
}

TEST_F(QuitRequestTest, BehindOtherEventsItIsReached) {
    for (int i = 1; i <= 3; ++i)
        push(userEvent(i));
    push(plainEvent(SDL_QUIT));
    RecordedWindow* const window = addWindow("a");
    std::vector<int> codes;
    window->onInput = [&] {
        codes.push_back(wait_event(nullptr));
        return codes.size() < 5 ? codes.back() : 1003;
    };
    run();
    EXPECT_THAT(codes, testing::ElementsAre(1, 2, 3, 0, 0));
    EXPECT_FALSE(sdlRuns());
}

TEST_F(QuitRequestTest, SdlIsDownBeforeTheWindowsAreFreed) {
    push(plainEvent(SDL_QUIT));
    RecordedWindow* const window = addWindow("a");
    bool atQuit = true;
    window->onInput = answers({0, 1003});
    window->onQuit = [&] { atQuit = sdlRuns(); };
    run();
    EXPECT_FALSE(atQuit);
}

TEST_F(QuitRequestTest, WindowThatClosesWithItStillRunsItsEndWithSdl) {
    push(plainEvent(SDL_QUIT));
    addWindow("below");
    RecordedWindow* const above = addWindow("above");
    bool atQuit = false;
    above->onInput = answers({0, 1002});
    above->onQuit = [&] { atQuit = sdlRuns(); };
    run();
    EXPECT_TRUE(atQuit);
    EXPECT_FALSE(sdlRuns());
}

TEST_F(QuitRequestTest, LaterFramesDoNotShutSdlDownAgain) {
    push(plainEvent(SDL_QUIT));
    RecordedWindow* const window = addWindow("a");
    std::vector<bool> running;
    window->onInput = [&] {
        running.push_back(sdlRuns());
        if (running.size() == 3)
            SDL_Init(SDL_INIT_EVENTS);
        constexpr int codes[] = {0, 25, 0, 0, 25, 1003};
        return codes[running.size() - 1];
    };
    run();
    EXPECT_THAT(running, testing::ElementsAre(true, true, false, true, true, true));
}

TEST_F(QuitRequestTest, PassedOverForAnotherEventItDoesNothing) {
    push(plainEvent(SDL_QUIT));
    push(userEvent(1));
    RecordedWindow* const window = addWindow("a");
    window->onInput = [calls = 0]() mutable {
        SDL_Event event;
        if (++calls == 2)
            SDL_PollEvent(&event); // takes the request for itself
        return calls == 3 ? 25 : calls == 4 ? 1003 : 0;
    };
    run();
    EXPECT_TRUE(sdlRuns());
}

TEST_F(QuitRequestTest, FirstCodeOfAFrameEndsItBeforeAnythingIsSeen) {
    push(plainEvent(SDL_QUIT));
    addWindow("a")->onInput = answers({25, 25});
    run();
    EXPECT_TRUE(sdlRuns());
    EXPECT_EQ(waitingEvents(), 1);
}

TEST_F(QuitRequestTest, SecondRunWorksAfterIt) {
    push(plainEvent(SDL_QUIT));
    addWindow("a")->onInput = answers({0});
    run();
    takeCalls();
    ASSERT_FALSE(sdlRuns());
    ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0);
    addWindow("b")->onInput = answers({0});
    EXPECT_EQ(run(), "a is 1003, quit navora\n" + freed({0}));
    EXPECT_TRUE(sdlRuns());
}

TEST_F(QuitRequestTest, RunWorksWithoutSdlAtAll) {
    SDL_Quit();
    addWindow("a")->onInput = answers({0});
    EXPECT_EQ(run(), "a is 1003, quit navora\n" + freed({0}));
    EXPECT_EQ(clock.takeSleeps().size(), 1u);
}

class QuitRequestOnScreenTest : public ScreenTest {
protected:
    FakeClock clock{laterStart()};
    QuickRepeat quick;
};

TEST_F(QuitRequestOnScreenTest, WindowsDrawOnWithoutHarm) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    push(plainEvent(SDL_QUIT));
    WindowLog calls;
    auto* const window = new RecordedWindow(calls, "a");
    std::vector<bool> screen;
    window->onDraw = [&] {
        screen.push_back(gRenderer != nullptr);
        FillRect(nullptr, nullptr, 255, 0, 0, 255);
    };
    window->onInput = [&] { return screen.size() < 4 ? wait_event(nullptr) : 1003; };
    std::vector<KestroWindow*> windows{window};
    runWindows(windows);
    takeLog();
    EXPECT_THAT(screen, testing::ElementsAre(true, false, false, false));
    EXPECT_FALSE(SDL_WasInit(SDL_INIT_VIDEO));
}

TEST_F(QuitRequestOnScreenTest, SeenWaitingItClosesTheScreenToo) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    push(plainEvent(SDL_QUIT));
    WindowLog calls;
    auto* const window = new RecordedWindow(calls, "a");
    std::vector<bool> screen;
    window->onDraw = [&] { screen.push_back(gRenderer != nullptr); };
    window->onInput = [&] { return calls.size() < 5 ? 0 : screen.size() < 2 ? 25 : 1003; };
    std::vector<KestroWindow*> windows{window};
    runWindows(windows);
    takeLog();
    EXPECT_THAT(screen, testing::ElementsAre(true, false));
}
