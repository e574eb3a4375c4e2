#pragma once

#include <SDL.h>

#include <cstdint>
#include <string>

/// What wait_event must make of a stream of events, told a second time and in tables, for comparison.
class InputModel {
public:
    /// The time of an earlier axis event is unknown: give the model and the library an `axisPause` of quiet
    /// before the first one.
    static constexpr uint64_t axisPause = 150;

    /// The code that the event gives. `grabbed` and `displayUp` tell which marker files exist, `now` is the
    /// time in milliseconds.
    int give(const SDL_Event& event, bool grabbed, bool displayUp, uint64_t now);

    /// What was logged since the last call of this.
    std::string takeLog();

    int joystickOpenings = 0;
    int tones = 0;

private:
    bool mGrabbed = false;
    bool mStart = false;
    bool mSelect = false;
    bool mUsed1 = false;
    bool mUsed2 = false;
    uint64_t mLastAxis = 0;
    std::string mLog;

    void log(const char* format, ...) __attribute__((format(printf, 2, 3)));
    void press(int role);
    int release(int role);
    int hat(int value, uint64_t now);
    int axis(int number, int value, uint64_t now);
    int joystick(const char* what, int which);
};
