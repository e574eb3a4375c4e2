#include "core/input.h"
#include "core/key_repeat.h"
#include "support/repeat_test.h"
#include "support/scarce_sdl.h"
#include "support/tone_log.h"

#include <condition_variable>
#include <mutex>

class RepeatSafetyTest : public RepeatTest {};

/// Holds up the key-repeat thread while it pushes its event, until `meanwhile` has run on this thread.
class HeldUpPush {
public:
    HeldUpPush() { SDL_AddEventWatch(watch, this); }
    ~HeldUpPush() { SDL_DelEventWatch(watch, this); }
    HeldUpPush(const HeldUpPush&) = delete;
    HeldUpPush& operator=(const HeldUpPush&) = delete;

    void run(const std::function<void()>& meanwhile) {
        std::unique_lock<std::mutex> lock(mLock);
        mChanged.wait(lock, [this] { return mPushing; });
        meanwhile();
        mDone = true;
        mChanged.notify_all();
    }

private:
    std::mutex mLock;
    std::condition_variable mChanged;
    bool mPushing = false;
    bool mDone = false;

    static int watch(void* self, SDL_Event* event) {
        if (event->type == SDL_USEREVENT)
            static_cast<HeldUpPush*>(self)->hold();
        return 0;
    }

    void hold() {
        std::unique_lock<std::mutex> lock(mLock);
        mPushing = true;
        mChanged.notify_all();
        mChanged.wait(lock, [this] { return mDone; });
    }
};

/// A key that is let go at the worst moment.
class InterruptedRepeatTest : public RepeatTest {
protected:
    void clearDuringPush() {
        HeldUpPush push;
        setRepeatTime(5);
        clock.advance(501);
        push.run(clearRepeatTime);
        EXPECT_EQ(pushed(), Codes{5});
        EXPECT_THAT(takeLog(), testing::HasSubstr("clear repeat time\n"));
    }
};

TEST_F(InterruptedRepeatTest, IsNotRepeatedForEver) {
    whileRunning([&] {
        clearDuringPush();
        EXPECT_EQ(pushedAfter(10'000), Codes());
    });
}

TEST_F(InterruptedRepeatTest, CountsFromTheBeginningWhenHeldAgain) {
    whileRunning([&] {
        clearDuringPush();
        setRepeatTime(5);
        takeLog();
        EXPECT_EQ(pushedAfter(500), Codes());
        EXPECT_EQ(pushedAfter(1), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 1, 501));
    });
}

TEST_F(RepeatSafetyTest, ManyClearsAndPressesEndInSilence) {
    whileRunning([&] {
        for (int i = 0; i < 2000; ++i) {
            setRepeatTime(5 + i % 4);
            clock.advance(501);
            if (i % 64 == 0)
                QuickRepeat::awaitLook();
            clearRepeatTime();
        }
        pushed();
        takeLog();
        EXPECT_EQ(pushedAfter(10'000), Codes());
    });
}

TEST_F(RepeatSafetyTest, QuitRequestWhileAKeyRepeatsSilencesIt) {
    Mix_Chunk sound{};
    gKeyChunk = &sound;
    ToneLog tones;
    whileRunning([&] {
        setRepeatTime(5);
        pushedAfter(501);
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        push(plainEvent(SDL_QUIT));
        EXPECT_EQ(wait_event(nullptr), 0);
        EXPECT_EQ(SDL_WasInit(0), 0u);
        takeLog();
        tones.take();
        clock.advance(10'000);
        QuickRepeat::awaitLook();
        EXPECT_EQ(takeLog(), "");
        EXPECT_THAT(tones.take(), testing::IsEmpty());
        clock.set(clock.now() - 10'000); // no repeat is due while SDL starts
        ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0);
        EXPECT_EQ(pushedAfter(10'000), Codes{5}) << "and goes on when SDL is back";
        EXPECT_EQ(takeLog(), sent(5, 2, 10'000));
        clearRepeatTime();
        takeLog();
    });
    gKeyChunk = nullptr;
}

TEST_F(RepeatSafetyTest, QuitRequestsInTheMiddleOfRepeatsDoNoHarm) {
    whileRunning([&] {
        for (int i = 0; i < 200; ++i) {
            clearRepeatTime(); // no repeat while SDL starts
            SDL_Init(SDL_INIT_EVENTS);
            setRepeatTime(5);
            setRepeatTime(6);
            clock.advance(501);
            push(plainEvent(SDL_QUIT));
            for (int reads = 0; SDL_WasInit(0) && reads < 1000; ++reads)
                wait_event(nullptr);
            ASSERT_EQ(SDL_WasInit(0), 0u) << "after request " << i;
        }
        clearRepeatTime();
        QuickRepeat::awaitLook();
        takeLog();
    });
}

class ScarceRepeatTest : public WindowTest {
protected:
    void TearDown() override {
        gScarceSdl = {};
        WindowTest::TearDown();
    }

    std::string runScarce() {
        addWindow("a");
        runWindows(windows);
        takeCalls();
        gScarceSdl = {};
        return takeLog();
    }

    const std::string withoutThread = runBegin + ("a is 1003, quit navora\n" + freed({0}));
};

TEST_F(ScarceRepeatTest, WithoutAMutexNoThreadIsStarted) {
    gScarceSdl.noMutex = true;
    EXPECT_EQ(runScarce(), withoutThread);
}

TEST_F(ScarceRepeatTest, WithoutAConditionNoThreadIsStarted) {
    gScarceSdl.noCondition = true;
    EXPECT_EQ(runScarce(), withoutThread);
}

TEST_F(ScarceRepeatTest, WithoutAThreadThereIsNoneToWaitFor) {
    gScarceSdl.noThread = true;
    EXPECT_EQ(runScarce(), withoutThread);
}

TEST_F(ScarceRepeatTest, NextRunStartsTheThreadAgain) {
    gScarceSdl.noMutex = true;
    runScarce();
    addWindow("a");
    EXPECT_EQ(run(), "a is 1003, quit navora\n" + freed({0}));
}
