#include "support/counted_list.h"
#include "support/fake_clock.h"
#include "support/key_events.h"
#include "support/screen_test.h"

class ListMenuEventsTest : public ScreenTest {
protected:
    void TearDown() override {
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        ScreenTest::TearDown();
    }
};

TEST_F(ListMenuEventsTest, ReadsOneKeyAndHandlesIt) {
    FakeClock clock;
    CountedList list(5);
    pressKey(SDLK_DOWN);
    EXPECT_EQ(list.eventHandling(), 6);
    EXPECT_EQ(list.getCursor(), 1);
    clock.advance(1000);
    pressKey(SDLK_UP);
    EXPECT_EQ(list.eventHandling(), 5);
    EXPECT_EQ(list.getCursor(), 0);
    pressKey(SDLK_SPACE, false);
    EXPECT_EQ(list.eventHandling(), 77);
    pressKey(SDLK_LSHIFT, false);
    EXPECT_EQ(list.eventHandling(), 88);
    EXPECT_EQ(takeLog(), "pressedForAWhile 0\npressedForAWhile 0\nkey_x\n");
}

TEST_F(ListMenuEventsTest, TakesOneEventACall) {
    CountedList list(5);
    pressCode(6);
    SDL_Event second{};
    second.type = SDL_USEREVENT;
    second.user.code = 9;
    SDL_PushEvent(&second);
    EXPECT_EQ(list.eventHandling(), 6);
    EXPECT_EQ(list.getCursor(), 1);
    EXPECT_EQ(list.eventHandling(), 9);
    takeLog();
}

TEST_F(ListMenuEventsTest, PassesUserCodesOn) {
    CountedList list(5);
    for (const int code : {25, 26, 43, 1002, 1003, 1004, 1005, -3}) {
        pressCode(code);
        EXPECT_EQ(list.eventHandling(), code);
    }
}

TEST_F(ListMenuEventsTest, GivesZeroWithoutAKey) {
    CountedList list(5);
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    EXPECT_EQ(list.eventHandling(), 0);
    pressKey(SDLK_F5);
    EXPECT_EQ(list.eventHandling(), 0);
    EXPECT_EQ(list.getCursor(), 0);
}
