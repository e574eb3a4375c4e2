#include "navora/host.h"

#include "core/host.h"

#include <SDL.h>

#include <algorithm>
#include <vector>

static constexpr int tableSize = 64;
static int sTable[tableSize];
static std::vector<SDL_Joystick*> sJoysticks;

void* gShmInfo = sTable;

static bool inTable(void* handle, int index) {
    return handle && index >= 0 && index < tableSize;
}

int GetKeyShm(void* handle, int index) {
    return inTable(handle, index) ? static_cast<int*>(handle)[index] : 0;
}

void SetKeyShm(void* handle, int index, int value) {
    if (inTable(handle, index))
        static_cast<int*>(handle)[index] = value;
}

static bool closeIfRemoved(SDL_Joystick* joystick) {
    if (SDL_JoystickGetAttached(joystick))
        return false;
    SDL_JoystickClose(joystick);
    return true;
}

/// Leaves alone what is open: opening anew would forget what is held on it.
void initJoyStick() {
    sJoysticks.erase(std::remove_if(sJoysticks.begin(), sJoysticks.end(), closeIfRemoved), sJoysticks.end());
    for (int i = 0; i < SDL_NumJoysticks(); ++i) {
        if (SDL_JoystickFromInstanceID(SDL_JoystickGetDeviceInstanceID(i)))
            continue;
        if (SDL_Joystick* const joystick = SDL_JoystickOpen(i))
            sJoysticks.push_back(joystick);
    }
}

namespace navora {

void closeJoysticks() {
    for (SDL_Joystick* joystick : sJoysticks)
        SDL_JoystickClose(joystick);
    sJoysticks.clear();
}

} // namespace navora
