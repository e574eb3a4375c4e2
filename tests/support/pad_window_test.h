#pragma once

#include "hostkit/pads.h"
#include "support/known_pad.h"
#include "support/window_test.h"

#include <SDL.h>

/// A test of windows that read pads of the kit's, of which none is there at first.
class PadWindowTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER), 0) << SDL_GetError();
        hostkit::openPads();
    }

    void TearDown() override {
        hostkit::closePads();
        WindowTest::TearDown();
    }
};
