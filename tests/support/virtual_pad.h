#pragma once

#include <SDL.h>

/// A pad that does not exist: 6 axes, 15 buttons, 1 hat. SDL's joystick system must be running. Only one of
/// the type SDL_JOYSTICK_TYPE_GAMECONTROLLER counts as a game controller. Every change is pumped into the
/// event queue at once, since SDL only tells the difference from pump to pump.
class VirtualPad {
public:
    explicit VirtualPad(SDL_JoystickType type = SDL_JOYSTICK_TYPE_UNKNOWN);
    ~VirtualPad();
    VirtualPad(const VirtualPad&) = delete;
    VirtualPad& operator=(const VirtualPad&) = delete;

    void press(int button);
    void release(int button);
    void moveHat(int value);
    void moveAxis(int axis, int value);

    /// Pulls the plug; calling it again changes nothing.
    void detach();

    SDL_JoystickID instance() const { return mInstance; }
    int deviceIndex() const { return mDevice; }

private:
    int mDevice;
    SDL_Joystick* mPad;
    SDL_JoystickID mInstance;
};
