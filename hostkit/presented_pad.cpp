#include "hostkit/presented_pad.h"

#include <iterator>

namespace hostkit {

/// By number.
static constexpr SDL_GameControllerButton sButtons[] = {
    SDL_CONTROLLER_BUTTON_A, // names of positions here, south first
    SDL_CONTROLLER_BUTTON_B,
    SDL_CONTROLLER_BUTTON_X,
    SDL_CONTROLLER_BUTTON_Y,
    SDL_CONTROLLER_BUTTON_LEFTSHOULDER,
    SDL_CONTROLLER_BUTTON_RIGHTSHOULDER,
    SDL_CONTROLLER_BUTTON_BACK,
    SDL_CONTROLLER_BUTTON_START,
    SDL_CONTROLLER_BUTTON_GUIDE,
    SDL_CONTROLLER_BUTTON_LEFTSTICK,
    SDL_CONTROLLER_BUTTON_RIGHTSTICK,
    SDL_CONTROLLER_BUTTON_MISC1,
    SDL_CONTROLLER_BUTTON_PADDLE1,
    SDL_CONTROLLER_BUTTON_PADDLE2,
    SDL_CONTROLLER_BUTTON_PADDLE3,
    SDL_CONTROLLER_BUTTON_PADDLE4,
    SDL_CONTROLLER_BUTTON_TOUCHPAD,
};

/// By number.
static constexpr SDL_GameControllerAxis sAxes[] = {
    SDL_CONTROLLER_AXIS_LEFTX,  SDL_CONTROLLER_AXIS_LEFTY,  SDL_CONTROLLER_AXIS_TRIGGERLEFT,
    SDL_CONTROLLER_AXIS_RIGHTX, SDL_CONTROLLER_AXIS_RIGHTY, SDL_CONTROLLER_AXIS_TRIGGERRIGHT,
};

static constexpr struct {
    SDL_GameControllerButton button;
    Uint8 value;
} sDPad[] = {
    {SDL_CONTROLLER_BUTTON_DPAD_UP, SDL_HAT_UP},
    {SDL_CONTROLLER_BUTTON_DPAD_DOWN, SDL_HAT_DOWN},
    {SDL_CONTROLLER_BUTTON_DPAD_LEFT, SDL_HAT_LEFT},
    {SDL_CONTROLLER_BUTTON_DPAD_RIGHT, SDL_HAT_RIGHT},
};

static bool hasDPad(SDL_GameController* controller) {
    for (const auto& direction : sDPad)
        if (SDL_GameControllerHasButton(controller, direction.button))
            return true;
    return false;
}

PresentedPad::PresentedPad(SDL_GameController* controller)
    : mController(controller), mId(SDL_JoystickInstanceID(SDL_GameControllerGetJoystick(controller))),
      mHasDPad(hasDPad(controller)) {}

void PresentedPad::present() {
    moveHat(mHasDPad ? dPad() : stickAsDPad());
    presentAxes();
    presentButtons();
}

void PresentedPad::close() {
    moveHat(SDL_HAT_CENTERED);
    if (isOpen())
        SDL_GameControllerClose(mController);
}

bool PresentedPad::isPressed(SDL_GameControllerButton button) const {
    return SDL_GameControllerGetButton(mController, button) != 0;
}

Uint8 PresentedPad::dPad() const {
    int value = SDL_HAT_CENTERED;
    for (const auto& direction : sDPad)
        if (isPressed(direction.button))
            value |= direction.value;
    return static_cast<Uint8>(value);
}

Uint8 PresentedPad::stickAsDPad() const {
    constexpr int halfTravel = 16384;
    const int x = SDL_GameControllerGetAxis(mController, SDL_CONTROLLER_AXIS_LEFTX);
    const int y = SDL_GameControllerGetAxis(mController, SDL_CONTROLLER_AXIS_LEFTY);
    int value = SDL_HAT_CENTERED;
    if (x > halfTravel || x < -halfTravel)
        value |= x > 0 ? SDL_HAT_RIGHT : SDL_HAT_LEFT;
    if (y > halfTravel || y < -halfTravel)
        value |= y > 0 ? SDL_HAT_DOWN : SDL_HAT_UP;
    return static_cast<Uint8>(value);
}

/// Behind the filters and watches, which would take it for what the pad reports itself.
static void queue(SDL_Event event) {
    SDL_PeepEvents(&event, 1, SDL_ADDEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
}

SDL_Event PresentedPad::event(Uint32 type) const {
    SDL_Event made{};
    made.type = type;
    made.common.timestamp = SDL_GetTicks();
    made.jbutton.which = mId; // at the same place in all of a joystick's events
    return made;
}

void PresentedPad::moveHat(Uint8 value) {
    if (value == mHat)
        return;
    mHat = value;
    SDL_Event moved = event(SDL_JOYHATMOTION);
    moved.jhat.value = value;
    queue(moved);
}

void PresentedPad::presentAxes() {
    const int first = mHasDPad ? 0 : 2; // without a D-pad, the left stick is the hat
    for (int i = first; i < axisCount; ++i) {
        const Sint16 value = SDL_GameControllerGetAxis(mController, sAxes[i]);
        if (value == mAxes[i])
            continue;
        mAxes[i] = value;
        SDL_Event moved = event(SDL_JOYAXISMOTION);
        moved.jaxis.axis = static_cast<Uint8>(i);
        moved.jaxis.value = value;
        queue(moved);
    }
}

void PresentedPad::presentButtons() {
    for (size_t i = 0; i < std::size(sButtons); ++i) {
        const Uint32 bit = 1u << i;
        const bool pressed = isPressed(sButtons[i]);
        if (pressed == ((mButtons & bit) != 0))
            continue;
        mButtons ^= bit;
        SDL_Event changed = event(pressed ? SDL_JOYBUTTONDOWN : SDL_JOYBUTTONUP);
        changed.jbutton.button = static_cast<Uint8>(i);
        changed.jbutton.state = pressed ? SDL_PRESSED : SDL_RELEASED;
        queue(changed);
    }
}

} // namespace hostkit
