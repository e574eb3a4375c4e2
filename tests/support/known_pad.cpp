#include "support/known_pad.h"

#include <gtest/gtest.h>

void describePads(const std::string& mapping, SDL_JoystickType kind) {
    char number[33] = "";
    {
        const VirtualPad example(kind);
        SDL_JoystickGetGUIDString(SDL_JoystickGetDeviceGUID(example.deviceIndex()), number, sizeof number);
    }
    std::string type = number;
    type.replace(4, 4, "0000"); // the checksum of the pad's name, which is no part of the type
    const std::string line = type + ",Example," + mapping + ",";
    EXPECT_NE(SDL_GameControllerAddMapping(line.c_str()), -1) << SDL_GetError();
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}
