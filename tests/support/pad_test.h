#pragma once

#include "support/kestro_test.h"

#include <string>
#include <vector>

/// A test of the kit's pads: SDL's game controllers are running, no pad is open, and no event waits.
class PadTest : public KestroTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// For describePads: every button somewhere else than where the reader looks for it.
    static constexpr const char* scrambled =
        "a:b14,b:b0,x:b13,y:b1,leftshoulder:b12,rightshoulder:b2,back:b11,start:b3,guide:b10,leftstick:b9,"
        "rightstick:b8,dpup:b4,dpdown:b5,dpleft:b6,dpright:b7";

    /// What waits for the windows, taken from the queue: "down 0", "up 0", "hat 1", "axis 2 32767", "added 0"
    /// (a device index), "removed 5" (an instance), "code 26". Other events are passed over.
    static std::vector<std::string> takeEvents();

    /// The key codes that wait_event makes of them.
    static std::vector<int> takeCodes();

    /// The announcements among them.
    static std::vector<std::string> takeAnnouncements();
};
