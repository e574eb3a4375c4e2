#include "hostkit/pads.h"

#include "hostkit/event_filter.h"
#include "hostkit/presented_pad.h"

#include <algorithm>
#include <vector>

namespace hostkit {

/// A pad that the database does not know.
struct PlainPad {
    SDL_Joystick* joystick;
    SDL_JoystickID id;

    bool isOpen() const { return SDL_JoystickFromInstanceID(id) == joystick; }
    bool isAttached() const { return isOpen() && SDL_JoystickGetAttached(joystick); }
    void close() {
        if (isOpen())
            SDL_JoystickClose(joystick);
    }
};

static std::vector<PresentedPad> sPads;
static std::vector<PlainPad> sPlainPads;

static PresentedPad* findPad(SDL_JoystickID id) {
    const auto found =
        std::find_if(sPads.begin(), sPads.end(), [id](const PresentedPad& pad) { return pad.id() == id; });
    return found == sPads.end() || !found->isOpen() ? nullptr : &*found;
}

/// SDL announces game controllers itself, after what it asks the filters.
static bool announce(SDL_Event& event) {
    if (event.type == SDL_JOYDEVICEADDED && !SDL_IsGameController(event.jdevice.which))
        event.type = SDL_CONTROLLERDEVICEADDED;
    if (event.type == SDL_JOYDEVICEREMOVED && !findPad(event.jdevice.which))
        event.type = SDL_CONTROLLERDEVICEREMOVED;
    return true;
}

/// SDL has the pad's new state already when it tells the event.
static bool presentPad(SDL_Event& event) {
    switch (event.type) {
    case SDL_JOYDEVICEADDED:
    case SDL_JOYDEVICEREMOVED:
        return announce(event);
    case SDL_JOYAXISMOTION:
    case SDL_JOYHATMOTION:
    case SDL_JOYBUTTONDOWN:
    case SDL_JOYBUTTONUP:
        if (PresentedPad* const pad = findPad(event.jbutton.which)) {
            pad->present();
            return false;
        }
        return true;
    default:
        return true;
    }
}

template <typename Pad>
static void closeRemoved(std::vector<Pad>& pads) {
    const auto closeIfRemoved = [](Pad& pad) {
        if (pad.isAttached())
            return false;
        pad.close();
        return true;
    };
    pads.erase(std::remove_if(pads.begin(), pads.end(), closeIfRemoved), pads.end());
}

static void openPad(int device) {
    if (SDL_IsGameController(device)) {
        if (SDL_GameController* const controller = SDL_GameControllerOpen(device))
            sPads.emplace_back(controller);
    } else if (SDL_Joystick* const joystick = SDL_JoystickOpen(device)) {
        sPlainPads.push_back({joystick, SDL_JoystickInstanceID(joystick)});
    }
}

static bool isKnown(SDL_JoystickID id) {
    return findPad(id) || std::any_of(sPlainPads.begin(), sPlainPads.end(),
                                      [id](const PlainPad& pad) { return pad.id == id; });
}

void openPads() {
    // Positions, not what is printed on the buttons.
    SDL_SetHintWithPriority(SDL_HINT_GAMECONTROLLER_USE_BUTTON_LABELS, "0", SDL_HINT_OVERRIDE);
    if (!SDL_WasInit(SDL_INIT_GAMECONTROLLER) && SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER) != 0)
        return;
    addEventFilter(presentPad);
    closeRemoved(sPads);
    closeRemoved(sPlainPads);
    // Leaves alone what is open: opening anew would forget what is held on it.
    for (int device = 0; device < SDL_NumJoysticks(); ++device)
        if (!isKnown(SDL_JoystickGetDeviceInstanceID(device)))
            openPad(device);
}

void closePads() {
    for (PresentedPad& pad : sPads)
        pad.close();
    for (PlainPad& pad : sPlainPads)
        pad.close();
    sPads.clear();
    sPlainPads.clear();
}

} // namespace hostkit
