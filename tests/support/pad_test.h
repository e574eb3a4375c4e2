#pragma once

#include "support/kestro_test.h"

#include <string>
#include <vector>

/// A test of the kit's pads: SDL's game controllers are running, no pad is open, and no event waits.
class PadTest : public KestroTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// What waits for the windows, taken from the queue: "down 0", "up 0", "hat 1", "axis 2 32767", "added 0"
    /// (a device index), "removed 5" (an instance), "code 26". Other events are passed over.
    static std::vector<std::string> takeEvents();

    /// The key codes that wait_event makes of them.
    static std::vector<int> takeCodes();

    /// The announcements among them.
    static std::vector<std::string> takeAnnouncements();
};
