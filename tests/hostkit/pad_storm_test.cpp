#include "core/host.h"
#include "core/input.h"
#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/long_run.h"
#include "support/pad_window_test.h"
#include "support/threads.h"

#include <SDL.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <vector>

/// Pads that are plugged in and out all day, one for each run of the window loop.
class PadStormTest : public PadWindowTest {
protected:
    static long openFiles() {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return std::distance(begin(files), end(files));
    }

    /// One run in which a pad comes, presses, and goes; how is up to the number. Returns the window's codes.
    std::vector<int> plugInAndOut(int number) {
        std::unique_ptr<VirtualPad> pad;
        const bool isHeld = number % 3 == 0; // when it goes
        const std::function<void()> steps[] = {
            [&] { pad = std::make_unique<VirtualPad>(); },
            [&] { pad->moveHat(1 << number % 4); },
            [&] { isHeld ? pad->detach() : pad->moveHat(SDL_HAT_CENTERED); },
            [&] { pad->detach(); },
        };
        std::vector<int> codes;
        size_t frame = 0;
        RecordedWindow* const window = addWindow("w");
        window->onUpdate = [&] {
            if (frame < std::size(steps))
                steps[frame]();
        };
        window->onInput = [&] {
            while (waitingEvents() > 0)
                if (const int code = wait_event(nullptr))
                    codes.push_back(code);
            return ++frame > std::size(steps) ? 1003 : 25;
        };
        runWindows(windows);
        takeLog();
        takeCalls();
        return codes;
    }
};

TEST_F(PadStormTest, LeavesNoThreadNoHandleAndNoHeldKey) {
    const int times = longRun(300, 10'000);
    plugInAndOut(0);
    ASSERT_TRUE(threadDisappears("repeatkey"));
    const long filesAtFirst = openFiles();
    const std::vector<int> directions{5, 8, 6, 7}; // of the hat's bits
    for (int number = 0; number < times; ++number) {
        ASSERT_EQ(plugInAndOut(number), std::vector<int>{directions[static_cast<size_t>(number % 4)]})
            << number;
        ASSERT_TRUE(threadDisappears("repeatkey")) << number;
        ASSERT_EQ(SDL_NumJoysticks(), 0) << number;
    }
    EXPECT_EQ(openFiles(), filesAtFirst);
    clock.advance(10'000);
    EXPECT_EQ(waitingEvents(), 0);
}
