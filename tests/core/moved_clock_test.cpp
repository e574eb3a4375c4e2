#include "core/frame_rate.h"
#include "core/input.h"
#include "core/key_repeat.h"
#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/kestro_test.h"
#include "support/long_run.h"
#include "support/moved_clock.h"
#include "support/recorded_window.h"
#include "support/threads.h"

#include <SDL.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <initializer_list>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

using std::chrono::milliseconds;

static constexpr int64_t day = 24 * 60 * 60 * 1000; // milliseconds

/// The window loop with its threads by the real clocks, which somebody sets, or while which somebody stops
/// the whole process.
class RealTimeTest : public KestroTest {
protected:
    using Clock = std::chrono::steady_clock;

    void SetUp() override {
        KestroTest::SetUp();
        ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0);
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        setKestroWindowFps(50, 50);
        touchBoostFps(0);
    }

    void TearDown() override {
        setKestroWindowFps(0, 0);
        SDL_Quit();
        KestroTest::TearDown();
    }

    /// Runs the loop until `end` has passed since its start; `step` is called with every frame and the time.
    void runFor(milliseconds end, const std::function<void(milliseconds)>& step) {
        const Clock::time_point begin = Clock::now();
        WindowLog calls;
        auto* const window = new RecordedWindow(calls, "w");
        window->onInput = [&] {
            mCodes.clear();
            while (waitingEvents() > 0)
                if (const int code = wait_event(nullptr))
                    mCodes.push_back(code);
            mRepeats += static_cast<int>(mCodes.size());
            ++mFrames;
            const auto now = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
            step(now);
            return now < end ? 25 : 1003;
        };
        std::vector<KestroWindow*> windows{window};
        runWindows(windows);
        takeLog();
        EXPECT_TRUE(threadDisappears("repeatkey"));
    }

    /// The repeats since it was called before, of which there is at most one for every look of the thread.
    int takeRepeats() {
        const Clock::time_point last = std::exchange(mTaken, Clock::now());
        const auto looks = std::chrono::duration_cast<milliseconds>(mTaken - last) / milliseconds(100);
        EXPECT_LE(mRepeats, 3 + looks) << "one may have waited, one comes at each end";
        return std::exchange(mRepeats, 0);
    }
    int takeFrames() { return std::exchange(mFrames, 0); }

private:
    std::vector<int> mCodes;
    Clock::time_point mTaken = Clock::now();
    int mRepeats = 0;
    int mFrames = 0;
};

/// Calls each step once, when its time has come.
class Script {
public:
    Script(std::initializer_list<std::pair<int, std::function<void()>>> steps) : mSteps(steps) {}
    void operator()(milliseconds now) {
        while (mNext < mSteps.size() && now >= milliseconds(mSteps[mNext].first))
            mSteps[mNext++].second();
    }
    bool isDone() const { return mNext == mSteps.size(); }

private:
    std::vector<std::pair<int, std::function<void()>>> mSteps;
    size_t mNext = 0;
};

class SetClockTest : public RealTimeTest, public testing::WithParamInterface<int64_t> {
protected:
    MovedClock clock;
};

TEST_P(SetClockTest, HeldKeyNeitherRepeatsForEverNorTooOften) {
    int before = 0;
    Script script{{0, [] { setRepeatTime(5); }},
                  {1200,
                   [&] {
                       before = takeRepeats();
                       clock.move(GetParam());
                   }},
                  {2000,
                   [&] {
                       takeRepeats();
                       clearRepeatTime();
                   }},
                  {2300, [&] { takeRepeats(); }}};
    runFor(milliseconds(3200), [&](milliseconds now) { script(now); });
    EXPECT_GE(before, 3);
    EXPECT_EQ(takeRepeats(), 0) << "after it was let go";
}

TEST_P(SetClockTest, KeyHeldAfterwardsRepeats) {
    Script script{{100, [&] { clock.move(GetParam()); }}, {200, [] { setRepeatTime(6); }}};
    runFor(milliseconds(1500), [&](milliseconds now) { script(now); });
    clearRepeatTime();
    takeLog();
    EXPECT_GE(takeRepeats(), 3);
}

TEST_P(SetClockTest, BoostEnds) {
    setKestroWindowFps(10, 50);
    int boosted = 0;
    Script script{{0, [] { touchBoostFps(400); }},
                  {150, [&] { clock.move(GetParam()); }},
                  {1000, [&] { boosted = takeFrames(); }}};
    runFor(milliseconds(2000), [&](milliseconds now) { script(now); });
    EXPECT_GE(boosted, 15);
    EXPECT_LE(boosted, 40);
    EXPECT_LE(takeFrames(), 13) << "at ten frames a second";
}

TEST_P(SetClockTest, FramesGoOn) {
    Script script{{200, [&] {
                       takeFrames();
                       clock.move(GetParam());
                   }}};
    runFor(milliseconds(700), [&](milliseconds now) { script(now); });
    const int frames = takeFrames();
    EXPECT_GE(frames, 4) << "on a busy machine";
    EXPECT_LE(frames, 40);
}

INSTANTIATE_TEST_SUITE_P(ByADay, SetClockTest, testing::Values(day, -day));

class StoppedProcessTest : public RealTimeTest {
protected:
    const milliseconds length{longRun(700, 10'000)};

    /// Stops this process at once, and lets it go on after `length`.
    void stop() {
        const pid_t self = getpid();
        const pid_t child = fork();
        if (child == 0) {
            kill(self, SIGSTOP);
            usleep(static_cast<useconds_t>(length.count() * 1000));
            kill(self, SIGCONT);
            _exit(0);
        }
        EXPECT_EQ(waitpid(child, nullptr, 0), child); // which comes back only when this goes on
    }
};

TEST_F(StoppedProcessTest, GoesOnWithOneRepeatAndWithoutABurst) {
    const int before = 800;
    const int after = before + static_cast<int>(length.count());
    int atOnce = 0;
    Script script{{0,
                   [] {
                       setRepeatTime(5);
                       touchBoostFps(300);
                   }},
                  {before,
                   [&] {
                       stop();
                       takeRepeats(); // of before, as nothing ran meanwhile
                   }},
                  {after + 150,
                   [&] {
                       atOnce = takeRepeats();
                       clearRepeatTime();
                   }},
                  {after + 450, [&] {
                       takeRepeats();
                       takeFrames();
                   }}};
    runFor(milliseconds(after + 950), [&](milliseconds now) { script(now); });
    EXPECT_TRUE(script.isDone());
    EXPECT_GE(atOnce, 1);
    EXPECT_EQ(takeRepeats(), 0) << "after it was let go";
    EXPECT_LE(takeFrames(), 30) << "at fifty frames a second";
}
