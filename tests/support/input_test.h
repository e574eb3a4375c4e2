#pragma once

#include "support/fake_clock.h"
#include "support/input_events.h"
#include "support/kestro_test.h"

#include <SDL.h>

#include <string>

/// A test of input events: SDL's event queue is running and empty, the clock stands, no key is held, and
/// neither marker file exists.
class InputTest : public KestroTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Pushes one event and returns the key code that wait_event makes of it.
    static int give(const SDL_Event& event);

    /// Creates the marker file or takes it away.
    void setGrabbed(bool grabbed);
    void setDisplayUp(bool up);

    FakeClock clock{laterStart()};

private:
    void setMarker(const std::string& path, bool exists);
};
