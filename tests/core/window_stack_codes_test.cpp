#include "core/input.h"
#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/window_test.h"

class LoopCodeTest : public WindowTest {
protected:
    /// Puts `count` windows on the stack: "w1" at the bottom, the last one on top and answering `code`.
    void stackOf(int count, int code) {
        for (int i = 1; i <= count; ++i)
            addWindow("w" + std::to_string(i));
        static_cast<RecordedWindow*>(windows.back())->onInput = answers({code});
    }
};

TEST_F(LoopCodeTest, Code1002FromTheOnlyWindowClosesNothing) {
    stackOf(1, 1002);
    EXPECT_EQ(run(), left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(),
              drawn("w1") + "w1.eventHandling " + drawn("w1") + "w1.eventHandling w1.quit w1.deleted");
}

TEST_F(LoopCodeTest, Code1002FromTheOnlyWindowGoesOnWithTheQueuedInput) {
    push(userEvent(1));
    RecordedWindow* const window = addWindow("a");
    int calls = 0;
    window->onInput = [&] {
        SDL_Event event;
        SDL_PollEvent(&event);
        return ++calls == 1 ? 1002 : 1003;
    };
    push(userEvent(2));
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.eventHandling a.quit a.deleted");
}

TEST_F(LoopCodeTest, Code1002ClosesTheUpperOfTwoWindows) {
    stackOf(2, 1002);
    EXPECT_EQ(run(), popped(1002) + left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("w2") + "w2.eventHandling w2.onClose w2.quit w2.deleted " + drawn("w1") +
                               "w1.eventHandling w1.quit w1.deleted");
}

TEST_F(LoopCodeTest, Code1002ClosesTheTopmostOfThreeWindows) {
    stackOf(3, 1002);
    EXPECT_EQ(run(), popped(1002) + left(1003) + freed({0, 0}));
    EXPECT_EQ(takeCalls(), drawn("w3") + "w3.eventHandling w3.onClose w3.quit w3.deleted " + drawn("w2") +
                               "w2.eventHandling w2.quit w2.deleted w1.quit w1.deleted");
}

TEST_F(LoopCodeTest, Code1005FromTheOnlyWindowClosesItAndEndsTheLoop) {
    stackOf(1, 1005);
    EXPECT_EQ(run(), popped(1005) + freed({}));
    EXPECT_EQ(takeCalls(), drawn("w1") + "w1.eventHandling w1.onClose w1.quit w1.deleted");
}

TEST_F(LoopCodeTest, Code1005ClosesTheUpperOfTwoWindows) {
    stackOf(2, 1005);
    EXPECT_EQ(run(), popped(1005) + left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("w2") + "w2.eventHandling w2.onClose w2.quit w2.deleted " + drawn("w1") +
                               "w1.eventHandling w1.quit w1.deleted");
}

TEST_F(LoopCodeTest, Code1005ClosesTheTopmostOfThreeWindows) {
    stackOf(3, 1005);
    EXPECT_EQ(run(), popped(1005) + left(1003) + freed({0, 0}));
}

TEST_F(LoopCodeTest, WindowsCloseOneAfterTheOther) {
    for (const char* name : {"w1", "w2", "w3"})
        addWindow(name)->onInput = answers({1005});
    EXPECT_EQ(run(), popped(1005) + popped(1005) + popped(1005) + freed({}));
    EXPECT_EQ(takeCalls(), drawn("w3") + "w3.eventHandling w3.onClose w3.quit w3.deleted " + drawn("w2") +
                               "w2.eventHandling w2.onClose w2.quit w2.deleted " + drawn("w1") +
                               "w1.eventHandling w1.onClose w1.quit w1.deleted");
}

class QuitCodeTest : public LoopCodeTest, public testing::WithParamInterface<int> {};

TEST_P(QuitCodeTest, LeavesTheLoopAndFreesFromTheTopDown) {
    stackOf(3, GetParam());
    EXPECT_EQ(run(), left(GetParam()) + freed({0, 0, 0}));
    EXPECT_EQ(takeCalls(),
              drawn("w3") + "w3.eventHandling w3.quit w3.deleted w2.quit w2.deleted " + "w1.quit w1.deleted");
    EXPECT_TRUE(windows.empty());
}

TEST_P(QuitCodeTest, WindowOfNegativeTypeIsClosedFirstAndNotDumped) {
    addWindow("below", -1);
    addWindow("above", -7)->onInput = answers({GetParam()});
    EXPECT_EQ(run(), left(GetParam()) + freed({-1}));
    EXPECT_EQ(takeCalls(),
              drawn("above") + "above.eventHandling above.quit above.deleted below.quit below.deleted");
}

TEST_P(QuitCodeTest, TheOnlyWindowOfNegativeTypeLeavesNoneToFree) {
    addWindow("a", -1)->onInput = answers({GetParam()});
    EXPECT_EQ(run(), left(GetParam()) + freed({}));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.quit a.deleted");
}

TEST_P(QuitCodeTest, IsNotFollowedByASleep) {
    stackOf(1, GetParam());
    run();
    EXPECT_TRUE(clock.takeSleeps().empty());
}

TEST_P(QuitCodeTest, LeavesQueuedInputAlone) {
    push(userEvent(1));
    push(userEvent(2));
    stackOf(1, GetParam());
    run();
    EXPECT_EQ(waitingEvents(), 2);
}

INSTANTIATE_TEST_SUITE_P(Codes, QuitCodeTest, testing::Values(1003, 1004));

class OrdinaryCodeTest : public LoopCodeTest, public testing::WithParamInterface<int> {};

TEST_P(OrdinaryCodeTest, GoesToPacingWithAnEmptyQueue) {
    stackOf(2, GetParam());
    EXPECT_EQ(run(), left(1003) + freed({0, 0}));
    EXPECT_EQ(clock.takeSleeps().size(), 1u);
}

TEST_P(OrdinaryCodeTest, GoesOnWithQueuedInputBeforeTheNextFrame) {
    RecordedWindow* const window = addWindow("a");
    for (int i = 0; i < 3; ++i)
        push(userEvent(i));
    window->onInput = [] {
        SDL_Event event;
        return SDL_PollEvent(&event) ? GetParam() : 1003;
    };
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.eventHandling a.eventHandling " + drawn("a") +
                               "a.eventHandling a.quit a.deleted");
}

INSTANTIATE_TEST_SUITE_P(Codes, OrdinaryCodeTest,
                         testing::Values(0, -1, 1, 2, 11, 15, 24, 26, 42, 43, 44, 1000, 1001, 1006, 1008,
                                         -1002, -1003, 2147483647, -2147483647 - 1));

TEST_F(LoopCodeTest, Code25LeavesQueuedInputForTheNextFrame) {
    for (int i = 0; i < 3; ++i)
        push(userEvent(i));
    RecordedWindow* const window = addWindow("a");
    window->onInput = [] {
        SDL_Event event;
        return SDL_PollEvent(&event) ? 25 : 1003;
    };
    run();
    const std::string frame = drawn("a") + "a.eventHandling ";
    EXPECT_EQ(takeCalls(), frame + frame + frame + frame + "a.quit a.deleted");
    EXPECT_EQ(clock.takeSleeps().size(), 3u);
}

TEST_F(LoopCodeTest, Code25PushedByTheHostReachesTheLoopThroughTheWindow) {
    push(userEvent(25));
    push(userEvent(7));
    addWindow("a")->onInput = [] {
        const int code = wait_event(nullptr);
        return code == 0 ? 1003 : code;
    };
    run();
    const std::string frame = drawn("a") + "a.eventHandling ";
    EXPECT_EQ(takeCalls(), frame + frame + frame + "a.quit a.deleted");
}

TEST_F(LoopCodeTest, ClosingAWindowEndsTheInputOfItsFrame) {
    push(userEvent(1));
    addWindow("below");
    addWindow("above")->onInput = answers({1002});
    run();
    EXPECT_EQ(takeCalls(), drawn("above") + "above.eventHandling above.onClose above.quit above.deleted " +
                               drawn("below") + "below.eventHandling below.quit below.deleted");
    EXPECT_EQ(clock.takeSleeps().size(), 1u);
}

TEST_F(LoopCodeTest, ClosingTheLastWindowIsPacedToo) {
    stackOf(1, 1005);
    run();
    EXPECT_THAT(clock.takeSleeps(), testing::ElementsAre(100'000u));
}

TEST_F(LoopCodeTest, AllQueuedEventsAreHandledInOrderBeforeTheNextFrame) {
    constexpr int count = 10'000;
    for (int i = 0; i < count; ++i)
        push(userEvent(i));
    RecordedWindow* const window = addWindow("a");
    int next = 0;
    int frames = 0;
    window->onDraw = [&] { ++frames; };
    window->onInput = [&] {
        SDL_Event event;
        if (!SDL_PollEvent(&event))
            return 1003;
        EXPECT_EQ(event.user.code, next++);
        EXPECT_EQ(frames, 1);
        return 0;
    };
    run();
    takeCalls();
    EXPECT_EQ(next, count);
    EXPECT_EQ(frames, 2);
}

TEST_F(LoopCodeTest, EventsThatAHandlerPushesBelongToTheSameFrame) {
    constexpr int total = 4000;
    for (int i = 0; i < 1000; ++i)
        push(userEvent(i));
    RecordedWindow* const window = addWindow("a");
    int handled = 0;
    int frames = 0;
    window->onDraw = [&] { ++frames; };
    window->onInput = [&] {
        SDL_Event event;
        if (!SDL_PollEvent(&event)) // also once after each batch, since SDL polls batch by batch
            return handled < total && frames == 1 ? 0 : 1003;
        if (++handled == 500)
            for (int i = 1000; i < total; ++i)
                push(userEvent(i));
        return frames == 1 ? 0 : 1003;
    };
    run();
    takeCalls();
    EXPECT_EQ(handled, total) << "handled before the second drawing";
}
