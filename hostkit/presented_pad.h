#pragma once

#include <SDL.h>

namespace hostkit {

/// A game controller, seen as the pad that the input reader knows. Main thread.
class PresentedPad {
public:
    /// Takes over an open controller.
    explicit PresentedPad(SDL_GameController* controller);

    SDL_JoystickID id() const { return mId; }

    /// Whether SDL still has it open; false after SDL was shut down.
    bool isOpen() const { return SDL_GameControllerFromInstanceID(mId) == mController; }
    bool isAttached() const { return isOpen() && SDL_GameControllerGetAttached(mController); }

    /// Queues an event for everything that has changed since the last call.
    void present();

    /// Lets go of the hat, so that it does not repeat for ever, and closes the controller.
    void close();

private:
    static constexpr int axisCount = 6;

    SDL_GameController* mController;
    SDL_JoystickID mId;
    bool mHasDPad;
    Uint32 mButtons = 0; // bit by number
    Uint8 mHat = SDL_HAT_CENTERED;
    Sint16 mAxes[axisCount]{};

    bool isPressed(SDL_GameControllerButton button) const;
    Uint8 dPad() const;
    Uint8 stickAsDPad() const;
    void moveHat(Uint8 value);
    void presentButtons();
    void presentAxes();
    SDL_Event event(Uint32 type) const;
};

} // namespace hostkit
