#include "core/host.h"
#include "core/input.h"
#include "core/window_stack.h"
#include "support/pad_window_test.h"

#include <SDL.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A window reads a pad while the key-repeat thread runs.
class PadRepeatTest : public PadWindowTest {
protected:
    void TearDown() override {
        mPad.reset();
        PadWindowTest::TearDown();
    }

    /// A pad that is plugged in, and reports itself like this; "" is one that is not known.
    void plugIn(const std::string& mapping) {
        if (!mapping.empty())
            describePads(mapping);
        mPad = std::make_unique<VirtualPad>();
        initJoyStick();
        SDL_PumpEvents();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    }

    /// The codes that the window has got when `steps` have been done, one a frame, each followed by the time
    /// of a repeat.
    std::vector<int> codesAfter(std::vector<std::function<void()>> steps) {
        std::vector<int> codes;
        size_t frame = 0;
        RecordedWindow* const window = addWindow("w");
        window->onUpdate = [&] {
            if (frame < steps.size())
                steps[frame]();
        };
        window->onInput = [&] {
            for (int event = 0; event < 20; ++event)
                if (const int code = wait_event(nullptr))
                    codes.push_back(code);
            clock.advance(600);
            QuickRepeat::awaitLook();
            return ++frame > steps.size() ? 1003 : 25;
        };
        runWindows(windows);
        takeLog();
        return codes;
    }

    std::unique_ptr<VirtualPad> mPad;
};

static void nothing() {}

static const char* const sButtonPad = "a:b0,dpup:b1,dpdown:b2,dpleft:b3,dpright:b4";

TEST_F(PadRepeatTest, AHeldDPadButtonRepeats) {
    plugIn(sButtonPad);
    EXPECT_THAT(codesAfter({[&] { mPad->press(2); }, nothing, nothing, [&] { mPad->release(2); }, nothing}),
                testing::ElementsAre(6, 6, 6, 6));
}

TEST_F(PadRepeatTest, UnpluggingEndsTheRepeat) {
    const auto unplug = [&] { mPad->detach(); };
    const struct {
        const char* mapping;
        std::function<void()> hold;
    } pads[] = {{"", [&] { mPad->moveHat(SDL_HAT_DOWN); }},
                {sButtonPad, [&] { mPad->press(2); }},
                {"a:b0,dpup:h0.1,dpright:h0.2,dpdown:h0.4,dpleft:h0.8", [&] { mPad->moveHat(SDL_HAT_DOWN); }},
                {"a:b0,dpup:-a1,dpdown:+a1,dpleft:-a0,dpright:+a0", [&] { mPad->moveAxis(1, 32767); }},
                {"a:b0,leftx:a0,lefty:a1", [&] { mPad->moveAxis(1, 32767); }}};
    for (const auto& pad : pads) {
        plugIn(pad.mapping);
        EXPECT_THAT(codesAfter({pad.hold, nothing, unplug, nothing, nothing}), testing::ElementsAre(6, 6, 6))
            << pad.mapping;
    }
}
