#include "core/input.h"
#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/long_run.h"
#include "support/window_test.h"

#include <SDL.h>

#include <algorithm>
#include <array>

static constexpr int sdlQueueLimit = 65535;

/// More events in one frame than anybody can press.
class KeyStormTest : public WindowTest {
protected:
    struct Storm {
        std::vector<int> accepted; // the codes of what SDL has taken
        int refused = 0;
    };

    /// Keys, a pad's buttons and codes that count up, which tell when two have changed places.
    static SDL_Event eventOf(int number, int& code) {
        switch (number % 4) {
        case 0:
            code = 5 + number / 4 % 4;
            return keyDown(
                std::array{SDLK_UP, SDLK_DOWN, SDLK_LEFT, SDLK_RIGHT}[static_cast<size_t>(code - 5)]);
        case 1:
            code = 1;
            return keyUp(SDLK_SPACE);
        case 2:
            code = 2;
            return buttonUp(0);
        default:
            code = 10'000 + number;
            return userEvent(code);
        }
    }

    static Storm raise(int events) {
        Storm storm;
        for (int number = 0; number < events; ++number) {
            int code = 0;
            SDL_Event event = eventOf(number, code);
            if (SDL_PushEvent(&event) == 1)
                storm.accepted.push_back(code);
            else
                ++storm.refused;
        }
        return storm;
    }

    /// The codes that a window gets in the one frame that the storm lasts.
    std::vector<int> codesOfOneFrame(Storm& storm, int events) {
        std::vector<int> codes;
        int frames = 0;
        RecordedWindow* const window = addWindow("w");
        window->onUpdate = [&] {
            if (++frames == 1)
                storm = raise(events);
        };
        window->onInput = [&] {
            if (frames > 1)
                return 1003;
            if (const int code = wait_event(nullptr))
                codes.push_back(code);
            return 0;
        };
        runWindows(windows);
        takeLog();
        EXPECT_EQ(frames, 2) << "the next frame only when all are handled";
        return codes;
    }
};

TEST_F(KeyStormTest, NoneOfOneFrameIsLostOrOutOfOrderBelowSdlsLimit) {
    const int events = longRun(10'000, 100'000);
    for (int round = 0; round < 2; ++round) {
        Storm storm;
        const std::vector<int> codes = codesOfOneFrame(storm, events);
        const auto accepted = static_cast<int>(storm.accepted.size());
        EXPECT_EQ(accepted + storm.refused, events);
        EXPECT_GE(accepted, std::min(events, sdlQueueLimit - 1))
            << "one place may be taken by a mark of SDL's own";
        EXPECT_TRUE(codes == storm.accepted) << codes.size() << " of " << storm.accepted.size();
    }
}
