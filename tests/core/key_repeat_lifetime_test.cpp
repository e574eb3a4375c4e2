#include "support/repeat_test.h"
#include "support/threads.h"

class RepeatLifetimeTest : public RepeatTest {};

TEST_F(RepeatLifetimeTest, StartsAndStopsAThousandTimesWithAKeyHeld) {
    for (int i = 0; i < 1000; ++i) {
        addWindow("a")->onInput = [&] {
            setRepeatTime(5 + i % 4);
            clock.advance(501);
            return 1003;
        };
        const std::string held = "set repeat time " + std::to_string(clock.now()) + "\n";
        runWindows(windows);
        EXPECT_THAT(takeLog(), AllOf(testing::StartsWith(runBegin + held), testing::EndsWith(runEnd)));
        ASSERT_TRUE(windows.empty());
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    }
    takeCalls();
    EXPECT_TRUE(threadDisappears("repeatkey"));
}
