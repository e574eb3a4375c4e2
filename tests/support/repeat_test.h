#pragma once

#include "core/key_repeat.h"
#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/window_test.h"

#include <SDL.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// A test of the key-repeat thread while it runs.
class RepeatTest : public WindowTest {
protected:
    /// Runs `body` once, on this thread, while the key-repeat thread runs. The log must have been taken
    /// at its end.
    void whileRunning(const std::function<void()>& body) {
        addWindow("a")->onInput = [&] {
            SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
            EXPECT_EQ(takeLog(), runBegin);
            body();
            return 1003;
        };
        runWindows(windows);
        EXPECT_EQ(takeLog(), "a is 1003, quit navora\n" + freed({0}) + runEnd);
        takeCalls();
    }

    /// The codes pushed so far, after the thread has looked at the present time.
    static std::vector<int> pushed() {
        QuickRepeat::awaitLook();
        std::vector<int> codes;
        SDL_Event event;
        while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) > 0)
            if (event.type != SDL_POLLSENTINEL)
                codes.push_back(event.type == SDL_USEREVENT ? event.user.code : -1);
        return codes;
    }

    std::vector<int> pushedAfter(uint64_t ms) {
        clock.advance(ms);
        return pushed();
    }

    /// The log line of a repeat that was sent now.
    std::string sent(int code, int count, long elapsed) const {
        return std::to_string(clock.now()) + " send repeat key " + std::to_string(code) + ", count " +
               std::to_string(count) + ", diff " + std::to_string(elapsed) + "\n";
    }

    std::string set() const { return "set repeat time " + std::to_string(clock.now()) + "\n"; }

    using Codes = std::vector<int>;
};
