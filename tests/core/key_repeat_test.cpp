#include "core/input.h"
#include "core/key_repeat.h"
#include "support/repeat_test.h"
#include "support/tone_log.h"

class KeyRepeatTest : public RepeatTest {};

TEST_F(KeyRepeatTest, FirstRepeatComesAfterMoreThan500MillisecondsAndOthersAfterMoreThan30) {
    whileRunning([&] {
        setRepeatTime(5);
        EXPECT_EQ(takeLog(), set());
        EXPECT_EQ(pushedAfter(500), Codes());
        EXPECT_EQ(pushedAfter(1), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 1, 501));
        EXPECT_EQ(pushedAfter(30), Codes());
        EXPECT_EQ(pushedAfter(1), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 2, 31));
        EXPECT_EQ(pushedAfter(100), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 3, 100));
        EXPECT_EQ(pushedAfter(0), Codes());
    });
}

TEST_F(KeyRepeatTest, OnlyTheDirectionsRepeatAndInTheirOrder) {
    whileRunning([&] {
        for (int code = 18; code >= 0; --code)
            setRepeatTime(code);
        takeLog();
        EXPECT_EQ(pushedAfter(10'000), (Codes{5, 6, 7, 8}));
        EXPECT_EQ(takeLog(),
                  sent(5, 1, 10'000) + sent(6, 1, 10'000) + sent(7, 1, 10'000) + sent(8, 1, 10'000));
    });
}

TEST_F(KeyRepeatTest, CodesOutOfRangeAreOnlyLogged) {
    whileRunning([&] {
        for (const int code : {-1, 19, 1000, -2147483647 - 1, 2147483647}) {
            setRepeatTime(code);
            EXPECT_EQ(takeLog(), set()) << code;
        }
        EXPECT_EQ(pushedAfter(10'000), Codes());
    });
}

TEST_F(KeyRepeatTest, ClearEndsTheRepeatAndItsCount) {
    whileRunning([&] {
        setRepeatTime(6);
        pushedAfter(501);
        pushedAfter(31);
        takeLog();
        clearRepeatTime();
        EXPECT_EQ(takeLog(), "clear repeat time\n");
        EXPECT_EQ(pushedAfter(10'000), Codes());
        setRepeatTime(6);
        takeLog();
        EXPECT_EQ(pushedAfter(500), Codes());
        EXPECT_EQ(pushedAfter(1), Codes{6});
        EXPECT_EQ(takeLog(), sent(6, 1, 501));
    });
}

TEST_F(KeyRepeatTest, SettingTheTimeAgainKeepsTheCount) {
    whileRunning([&] {
        setRepeatTime(7);
        pushedAfter(501);
        setRepeatTime(7);
        takeLog();
        EXPECT_EQ(pushedAfter(30), Codes());
        EXPECT_EQ(pushedAfter(1), Codes{7});
        EXPECT_EQ(takeLog(), sent(7, 2, 31));
    });
}

TEST_F(KeyRepeatTest, SettingTheTimeAgainBeginsTheWaitAnew) {
    whileRunning([&] {
        setRepeatTime(7);
        clock.advance(400);
        setRepeatTime(7);
        EXPECT_EQ(pushedAfter(500), Codes());
        takeLog();
        EXPECT_EQ(pushedAfter(1), Codes{7});
        EXPECT_EQ(takeLog(), sent(7, 1, 501));
    });
}

TEST_F(KeyRepeatTest, HatFromUpStraightToDownKeepsBoth) {
    whileRunning([&] {
        push(hatMoved(1));
        EXPECT_EQ(wait_event(nullptr), 5);
        clock.advance(100);
        SDL_FlushEvent(SDL_POLLSENTINEL);
        push(hatMoved(4));
        EXPECT_EQ(wait_event(nullptr), 6);
        takeLog();
        EXPECT_EQ(pushedAfter(401), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 1, 501));
        EXPECT_EQ(pushedAfter(100), (Codes{5, 6}));
        EXPECT_EQ(takeLog(), sent(5, 2, 100) + sent(6, 1, 501));
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        push(hatMoved(0));
        EXPECT_EQ(wait_event(nullptr), 0);
        EXPECT_EQ(takeLog(), "clear repeat time\n");
        EXPECT_EQ(pushedAfter(10'000), Codes());
    });
}

TEST_F(KeyRepeatTest, AnyButtonReleaseEndsEveryRepeat) {
    whileRunning([&] {
        setRepeatTime(5);
        setRepeatTime(8);
        EXPECT_EQ(pushedAfter(501), (Codes{5, 8}));
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        push(buttonUp(14));
        wait_event(nullptr);
        takeLog();
        EXPECT_EQ(pushedAfter(10'000), Codes());
    });
}

TEST_F(KeyRepeatTest, KeyboardAndAxesDoNotRepeat) {
    whileRunning([&] {
        for (const SDL_Event& event : {keyDown(SDLK_UP), keyDown(SDLK_DOWN), axisMoved(0, 32767)}) {
            SDL_FlushEvent(SDL_POLLSENTINEL);
            push(event);
            EXPECT_NE(wait_event(nullptr), 0);
        }
        takeLog();
        EXPECT_EQ(pushedAfter(10'000), Codes());
    });
}

TEST_F(KeyRepeatTest, RepeatReachesTheWindowAsItsCode) {
    whileRunning([&] {
        setRepeatTime(8);
        clock.advance(501);
        QuickRepeat::awaitLook();
        takeLog();
        SDL_Event event{};
        EXPECT_EQ(wait_event(&event), 8);
        EXPECT_EQ(event.type, static_cast<Uint32>(SDL_USEREVENT));
        EXPECT_EQ(event.user.data1, nullptr);
    });
}

TEST_F(KeyRepeatTest, ClockSetBackRepeatsOnceAndGoesOn) {
    whileRunning([&] {
        setRepeatTime(5);
        takeLog();
        clock.set(clock.now() - 3'600'000);
        EXPECT_EQ(pushed(), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 1, -3'600'000));
        EXPECT_EQ(pushedAfter(30), Codes());
        EXPECT_EQ(pushedAfter(1), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 2, 31));
    });
}

TEST_F(KeyRepeatTest, ThreadLooksTenTimesASecond) {
    whileRunning([&] {
        QuickRepeat::awaitLook();
        EXPECT_THAT(QuickRepeat::takeWaits(), testing::Each(100u));
    });
}

TEST_F(KeyRepeatTest, OneToneForAllRepeatsOfALook) {
    Mix_Chunk sound{};
    gKeyChunk = &sound;
    ToneLog tones;
    whileRunning([&] {
        setRepeatTime(5);
        setRepeatTime(6);
        EXPECT_EQ(pushedAfter(500), Codes());
        EXPECT_THAT(tones.take(), testing::IsEmpty());
        pushedAfter(1);
        takeLog();
        EXPECT_THAT(tones.take(),
                    testing::ElementsAre("halt -1", "play the key tone on -1, loops 0, ticks -1"));
    });
    gKeyChunk = nullptr;
}

TEST_F(KeyRepeatTest, FailureOfTheToneIsLogged) {
    Mix_Chunk sound{};
    gKeyChunk = &sound;
    ToneLog tones;
    tones.failWith("no device");
    whileRunning([&] {
        setRepeatTime(5);
        takeLog();
        EXPECT_EQ(pushedAfter(501), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 1, 501) + "Mix_PlayChunk: no device\n");
    });
    gKeyChunk = nullptr;
}

TEST_F(KeyRepeatTest, NoSoundIsSilence) {
    ToneLog tones;
    whileRunning([&] {
        setRepeatTime(5);
        EXPECT_EQ(pushedAfter(501), Codes{5});
        takeLog();
        EXPECT_THAT(tones.take(), testing::IsEmpty());
    });
}

TEST_F(KeyRepeatTest, KeyHeldAtTheEndOfARunIsForgottenByTheNext) {
    whileRunning([&] {
        setRepeatTime(5);
        EXPECT_EQ(pushedAfter(501), Codes{5});
        takeLog();
    });
    whileRunning([&] {
        EXPECT_EQ(pushedAfter(10'000), Codes());
        setRepeatTime(5);
        takeLog();
        EXPECT_EQ(pushedAfter(500), Codes());
        EXPECT_EQ(pushedAfter(1), Codes{5});
        EXPECT_EQ(takeLog(), sent(5, 1, 501));
    });
}

TEST_F(KeyRepeatTest, KeyHeldBeforeTheFirstRunIsForgottenToo) {
    setRepeatTime(5);
    EXPECT_EQ(takeLog(), set());
    whileRunning([&] { EXPECT_EQ(pushedAfter(10'000), Codes()); });
}

TEST_F(KeyRepeatTest, ThreadBodyEndsAtOnceWithoutARun) {
    EXPECT_EQ(checkRepeatThread(nullptr), 0);
    whileRunning([] {});
    EXPECT_EQ(checkRepeatThread(nullptr), 0);
}

TEST_F(KeyRepeatTest, ClearAndSetAreHarmlessWithoutARun) {
    clearRepeatTime();
    setRepeatTime(5);
    clearRepeatTime();
    EXPECT_EQ(takeLog(), "clear repeat time\n" + set() + "clear repeat time\n");
}
