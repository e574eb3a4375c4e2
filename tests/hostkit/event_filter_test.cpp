#include "hostkit/event_filter.h"

#include "support/input_events.h"
#include "support/kestro_test.h"

#include <SDL.h>

#include <vector>

using hostkit::addEventFilter;
using testing::ElementsAre;
using testing::IsEmpty;

class EventFilterTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0) << SDL_GetError();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    }

    void TearDown() override {
        SDL_Quit();
        KestroTest::TearDown();
    }

    static std::vector<int> takeCodes() {
        std::vector<int> codes;
        SDL_Event event{};
        while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_USEREVENT, SDL_USEREVENT) == 1)
            codes.push_back(event.user.code);
        return codes;
    }

    static bool dropOdd(SDL_Event& event) { return event.user.code % 2 == 0; }
    static bool addTen(SDL_Event& event) {
        event.user.code += 10;
        return true;
    }
    static int dropAboveThree(void* limit, SDL_Event* event) {
        return event->user.code <= *static_cast<int*>(limit);
    }
    static void give(int code) {
        SDL_Event event = userEvent(code);
        SDL_PushEvent(&event);
    }
};

TEST_F(EventFilterTest, FiltersDropAndChangeInTheirOrder) {
    addEventFilter(dropOdd);
    addEventFilter(addTen);
    for (const int code : {1, 2, 3, 4})
        give(code);
    EXPECT_THAT(takeCodes(), ElementsAre(12, 14));
}

TEST_F(EventFilterTest, AddedTwiceAFilterIsAskedOnce) {
    addEventFilter(addTen);
    addEventFilter(addTen);
    give(1);
    EXPECT_THAT(takeCodes(), ElementsAre(11));
}

TEST_F(EventFilterTest, EventsThatWaitAreKeptInOrder) {
    std::vector<int> pushed;
    for (int code = 0; code < 300; ++code) {
        give(code);
        pushed.push_back(code);
    }
    addEventFilter(dropOdd);
    EXPECT_EQ(takeCodes(), pushed);
}

TEST_F(EventFilterTest, TheHostsOwnFilterIsAskedFirst) {
    int limit = 3;
    SDL_SetEventFilter(dropAboveThree, &limit);
    addEventFilter(addTen);
    give(3);
    give(4);
    EXPECT_THAT(takeCodes(), ElementsAre(13));
    SDL_SetEventFilter(nullptr, nullptr);
}

TEST_F(EventFilterTest, SdlsEndForgetsTheFilters) {
    addEventFilter(addTen);
    SDL_Quit();
    ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0);
    give(1);
    EXPECT_THAT(takeCodes(), ElementsAre(1));
    addEventFilter(dropOdd);
    give(2);
    give(3);
    EXPECT_THAT(takeCodes(), ElementsAre(2)) << "without the one from before";
}
