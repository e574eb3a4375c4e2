#include "core/input.h"
#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/window_test.h"

/// A window that does not take the event that waits must not hold up the frame for ever.
class StalledInputTest : public WindowTest {
protected:
    /// A window that answers `code` without looking at the queue for two frames; the calls in each frame
    /// are counted.
    RecordedWindow* addStalling(int code) {
        RecordedWindow* const window = addWindow("a");
        window->onDraw = [this] { calls.push_back(0); };
        window->onInput = [this, code] {
            ++calls.back();
            return calls.size() <= 2 ? code : 1003;
        };
        return window;
    }

    std::vector<int> calls;
};

TEST_F(StalledInputTest, GoesToPacingAfterAThousandCallsInVain) {
    push(userEvent(1));
    addStalling(0);
    run();
    takeCalls();
    EXPECT_THAT(calls, testing::ElementsAre(1000, 1000, 1));
    EXPECT_EQ(clock.takeSleeps().size(), 2u);
    EXPECT_EQ(waitingEvents(), 1);
}

TEST_F(StalledInputTest, SoDoesAPopUpThatWouldCloseAndIsAlone) {
    push(userEvent(1));
    addStalling(1002);
    run();
    takeCalls();
    EXPECT_THAT(calls, testing::ElementsAre(1000, 1000, 1));
}

TEST_F(StalledInputTest, CallsThatTakeEventsDoNotCount) {
    for (int i = 0; i < 5; ++i)
        push(userEvent(i));
    addStalling(0)->onInput = [this] {
        if (++calls.back() < 5 && calls.size() == 1)
            wait_event(nullptr);
        return calls.size() == 1 ? 0 : 1003;
    };
    run();
    takeCalls();
    EXPECT_THAT(calls, testing::ElementsAre(1004, 1));
}

TEST_F(StalledInputTest, TakingAnEventNowAndThenIsNoStall) {
    for (int i = 0; i < 20; ++i)
        push(userEvent(i));
    addStalling(0)->onInput = [this] {
        if (++calls.back() % 600 == 0)
            wait_event(nullptr);
        return waitingEvents() > 0 ? 0 : 1003;
    };
    run();
    takeCalls();
    EXPECT_EQ(calls.size(), 1u) << "frames";
}

TEST_F(StalledInputTest, AnEmptyQueueEndsTheFrameAtOnce) {
    addStalling(0);
    run();
    takeCalls();
    EXPECT_THAT(calls, testing::ElementsAre(1, 1, 1));
}

TEST_F(StalledInputTest, PuttingBackWhatItTookIsAStall) {
    push(userEvent(1));
    addStalling(0)->onInput = [this] {
        ++calls.back();
        SDL_FlushEvent(SDL_USEREVENT);
        push(userEvent(1));
        return calls.size() == 1 ? 0 : 1003;
    };
    run();
    takeCalls();
    EXPECT_THAT(calls, testing::ElementsAre(1000, 1));
}
