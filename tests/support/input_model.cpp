#include "support/input_model.h"

#include <cstdarg>
#include <cstdio>
#include <map>
#include <utility>

// The roles of keys and buttons are named by the code that their release gives.
static int keyRole(SDL_Keycode key) {
    static const std::map<int, int> roles{
        {0x20, 1},        {0x400000E0, 2}, {0x400000E1, 3}, {0x400000E2, 4}, {0x0D, 9},
        {0x400000E4, 10}, {0x1B, 11},      {0x09, 12},      {0x08, 13},
    };
    const auto found = roles.find(key);
    return found == roles.end() ? 0 : found->second;
}

static int arrow(SDL_Keycode key) {
    static const std::map<int, int> codes{{0x40000052, 5}, {0x40000051, 6}, {0x40000050, 7}, {0x4000004F, 8}};
    const auto found = codes.find(key);
    return found == codes.end() ? 0 : found->second;
}

static int buttonRole(int button) {
    static const std::map<int, int> roles{{0, 2},  {1, 1},  {2, 4}, {3, 3}, {4, 12},
                                          {5, 13}, {6, 10}, {7, 9}, {8, 11}};
    const auto found = roles.find(button);
    return found == roles.end() ? 0 : found->second;
}

void InputModel::log(const char* format, ...) {
    char line[128];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    mLog += line;
}

std::string InputModel::takeLog() {
    return std::exchange(mLog, {});
}

void InputModel::press(int role) {
    if (role == 9)
        mStart = true;
    if (role == 10)
        mSelect = true;
    if (role == 12 && mStart)
        mUsed1 = true;
    if (role == 13 && mStart)
        mUsed2 = true;
}

int InputModel::release(int role) {
    const bool used = mUsed1 || mUsed2;
    switch (role) {
    case 9:
        mStart = false;
        if (used)
            mUsed1 = mUsed2 = false;
        return used ? 0 : 9;
    case 10:
        mSelect = false;
        return used ? 0 : 10;
    case 12:
    case 13:
        log("hotkey%d select=%d, start=%d\n", role - 11, mSelect, mStart);
        return mSelect || mStart ? 0 : role;
    default:
        return role;
    }
}

int InputModel::hat(int value, uint64_t now) {
    static const std::map<int, int> codes{{1, 5}, {4, 6}, {8, 7}, {2, 8}};
    const auto found = codes.find(value);
    if (found == codes.end()) {
        log("clear repeat time\n");
        return 0;
    }
    log("set repeat time %ld\n", static_cast<long>(now));
    return found->second;
}

int InputModel::axis(int number, int value, uint64_t now) {
    static const std::map<std::pair<int, bool>, int> codes{
        {{0, true}, 8},  {{0, false}, 7}, {{3, true}, 8},  {{3, false}, 7}, {{1, true}, 6},
        {{1, false}, 5}, {{4, true}, 6},  {{4, false}, 5}, {{2, true}, 14}, {{5, true}, 15}};
    if (value >= -16384 && value <= 16384)
        return 0;
    log("joyaxis %d, value %d\n", number, value);
    const auto found = codes.find({number, value > 0});
    if (found == codes.end() || now - mLastAxis <= axisPause)
        return 0;
    mLastAxis = now;
    return found->second;
}

int InputModel::joystick(const char* what, int which) {
    log("joystick %s %d\n", what, which);
    ++joystickOpenings;
    return 0;
}

int InputModel::give(const SDL_Event& event, bool grabbed, bool displayUp, uint64_t now) {
    if (grabbed != mGrabbed) {
        mGrabbed = grabbed;
        mStart = mSelect = mUsed1 = mUsed2 = false;
    }
    if (displayUp)
        return 0;
    tones += event.type == 0x602 && event.jhat.value != 0;
    tones += event.type == 0x603;
    tones += event.type == 0x300 && event.key.keysym.sym == 0x40000066 && event.key.repeat == 0;
    switch (event.type) {
    case 0x300:
        press(keyRole(event.key.keysym.sym));
        return arrow(event.key.keysym.sym);
    case 0x301:
        return release(keyRole(event.key.keysym.sym));
    case 0x600:
        return axis(event.jaxis.axis, event.jaxis.value, now);
    case 0x602:
        return hat(event.jhat.value, now);
    case 0x603:
        press(buttonRole(event.jbutton.button));
        return 0;
    case 0x604:
        log("joybuttonup %d\n", event.jbutton.button);
        log("clear repeat time\n");
        return release(buttonRole(event.jbutton.button));
    case 0x653:
        return joystick("add", event.jdevice.which);
    case 0x654:
        return joystick("remove", event.jdevice.which);
    case 0x8000:
        return event.user.code;
    default:
        return 0;
    }
}
