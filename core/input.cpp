#include "core/input.h"

#include "core/clock.h"
#include "core/host.h"
#include "core/key_repeat.h"
#include "core/key_repeat_internal.h"
#include "core/log.h"
#include "platform/device_path.h"

#include <cstdlib>
#include <unistd.h>

using kestro::devicePath;

static constexpr int noKey = 0;

enum KeyCode {
    keyA = 1,
    keyB,
    keyThird,
    keyFourth,
    keyUp,
    keyDown,
    keyLeft,
    keyRight,
    keyStart,
    keySelect,
    keyMenu,
    keyHotkey1,
    keyHotkey2,
    keyLeftTrigger,
    keyRightTrigger,
};

/// A button stands for the same thing on every source: keyboard key or pad button.
enum class Button { none, a, b, third, fourth, start, select, menu, hotkey1, hotkey2 };

static struct {
    bool startHeld = false;
    bool selectHeld = false;
    bool hotkey1Used = false;
    bool hotkey2Used = false;
    bool grabbed = false;
    uint64_t lastAxis = 0; // systemms of the last accepted axis event
} sInput;

/// While a daemon grabs the input, the releases of what is held go to it: start afresh on every change.
static void checkGrab() {
    const bool grabbed = access(devicePath("/tmp/kestro_inputd/grab"), F_OK) == 0;
    if (grabbed == sInput.grabbed)
        return;
    sInput.grabbed = grabbed;
    sInput.startHeld = sInput.selectHeld = false;
    sInput.hotkey1Used = sInput.hotkey2Used = false;
}

static bool makesTone(const SDL_Event& event) {
    switch (event.type) {
    case SDL_JOYHATMOTION:
        return event.jhat.value != SDL_HAT_CENTERED;
    case SDL_JOYBUTTONDOWN:
        return true;
    case SDL_KEYDOWN:
        return event.key.keysym.sym == SDLK_POWER && event.key.repeat == 0;
    default:
        return false;
    }
}

static Button keyboardButton(SDL_Keycode key) {
    switch (key) {
    case SDLK_SPACE:
        return Button::a;
    case SDLK_LCTRL:
        return Button::b;
    case SDLK_LSHIFT:
        return Button::third;
    case SDLK_LALT:
        return Button::fourth;
    case SDLK_RETURN:
        return Button::start;
    case SDLK_RCTRL:
        return Button::select;
    case SDLK_ESCAPE:
        return Button::menu;
    case SDLK_TAB:
        return Button::hotkey1;
    case SDLK_BACKSPACE:
        return Button::hotkey2;
    default:
        return Button::none;
    }
}

static Button padButton(Uint8 number) {
    static constexpr Button buttons[] = {Button::b,      Button::a,       Button::fourth,
                                         Button::third,  Button::hotkey1, Button::hotkey2,
                                         Button::select, Button::start,   Button::menu};
    return number < sizeof buttons / sizeof *buttons ? buttons[number] : Button::none;
}

static void buttonDown(Button button) {
    switch (button) {
    case Button::start:
        sInput.startHeld = true;
        break;
    case Button::select:
        sInput.selectHeld = true;
        break;
    case Button::hotkey1:
        sInput.hotkey1Used |= sInput.startHeld;
        break;
    case Button::hotkey2:
        sInput.hotkey2Used |= sInput.startHeld;
        break;
    default:
        break;
    }
}

static int startUp() {
    const bool used = sInput.hotkey1Used || sInput.hotkey2Used;
    sInput.startHeld = sInput.hotkey1Used = sInput.hotkey2Used = false;
    return used ? noKey : keyStart;
}

static int selectUp() {
    sInput.selectHeld = false;
    return sInput.hotkey1Used || sInput.hotkey2Used ? noKey : keySelect;
}

static int hotkeyUp(int number, int code) {
    tprintf("hotkey%d select=%d, start=%d\n", number, sInput.selectHeld, sInput.startHeld);
    return sInput.selectHeld || sInput.startHeld ? noKey : code;
}

static int buttonUp(Button button) {
    switch (button) {
    case Button::a:
        return keyA;
    case Button::b:
        return keyB;
    case Button::third:
        return keyThird;
    case Button::fourth:
        return keyFourth;
    case Button::menu:
        return keyMenu;
    case Button::start:
        return startUp();
    case Button::select:
        return selectUp();
    case Button::hotkey1:
        return hotkeyUp(1, keyHotkey1);
    case Button::hotkey2:
        return hotkeyUp(2, keyHotkey2);
    case Button::none:
        break;
    }
    return noKey;
}

static int keyboardDown(SDL_Keycode key) {
    switch (key) {
    case SDLK_UP:
        return keyUp;
    case SDLK_DOWN:
        return keyDown;
    case SDLK_LEFT:
        return keyLeft;
    case SDLK_RIGHT:
        return keyRight;
    default:
        buttonDown(keyboardButton(key));
        return noKey;
    }
}

static int hatMoved(Uint8 value) {
    int code = noKey;
    switch (value) {
    case SDL_HAT_UP:
        code = keyUp;
        break;
    case SDL_HAT_DOWN:
        code = keyDown;
        break;
    case SDL_HAT_LEFT:
        code = keyLeft;
        break;
    case SDL_HAT_RIGHT:
        code = keyRight;
        break;
    default: // the centre, and diagonals
        clearRepeatTime();
        return noKey;
    }
    setRepeatTime(code);
    return code;
}

static int axisCode(Uint8 axis, int value) {
    switch (axis) {
    case 0:
    case 3:
        return value < 0 ? keyLeft : keyRight;
    case 1:
    case 4:
        return value < 0 ? keyUp : keyDown;
    case 2:
        return value < 0 ? noKey : keyLeftTrigger;
    case 5:
        return value < 0 ? noKey : keyRightTrigger;
    default:
        return noKey;
    }
}

static int axisMoved(Uint8 axis, int value) {
    static constexpr int halfTravel = 16384;
    static constexpr uint64_t axisPause = 150; // milliseconds
    if (abs(value) <= halfTravel)
        return noKey;
    tprintf("joyaxis %d, value %d\n", axis, value);
    const uint64_t now = systemms();
    const int code = axisCode(axis, value);
    if (code == noKey || now - sInput.lastAxis <= axisPause)
        return noKey;
    sInput.lastAxis = now;
    return code;
}

static int padButtonUp(Uint8 number) {
    tprintf("joybuttonup %d\n", number);
    clearRepeatTime();
    return buttonUp(padButton(number));
}

static int joysticksChanged(const char* change, Sint32 which) {
    tprintf("joystick %s %d\n", change, which);
    initJoyStick();
    return noKey;
}

static int translate(const SDL_Event& event) {
    switch (event.type) {
    case SDL_QUIT:
        kestro::quitSdl();
        return noKey;
    case SDL_KEYDOWN:
        return keyboardDown(event.key.keysym.sym);
    case SDL_KEYUP:
        return buttonUp(keyboardButton(event.key.keysym.sym));
    case SDL_JOYAXISMOTION:
        return axisMoved(event.jaxis.axis, event.jaxis.value);
    case SDL_JOYHATMOTION:
        return hatMoved(event.jhat.value);
    case SDL_JOYBUTTONDOWN:
        buttonDown(padButton(event.jbutton.button));
        return noKey;
    case SDL_JOYBUTTONUP:
        return padButtonUp(event.jbutton.button);
    case SDL_CONTROLLERDEVICEADDED:
        return joysticksChanged("add", event.cdevice.which);
    case SDL_CONTROLLERDEVICEREMOVED:
        return joysticksChanged("remove", event.cdevice.which);
    case SDL_USEREVENT:
        return event.user.code;
    default:
        return noKey;
    }
}

int wait_event(SDL_Event* event) {
    checkGrab();
    SDL_Event taken{};
    if (!SDL_PollEvent(&taken))
        return noKey;
    if (access(devicePath("/tmp/osdd_show_up"), F_OK) == 0)
        return noKey;
    if (makesTone(taken))
        kestro::playKeyTone();
    if (event)
        *event = taken;
    return translate(taken);
}
