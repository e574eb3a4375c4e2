#include "support/virtual_pad.h"

#include <gtest/gtest.h>

VirtualPad::VirtualPad(SDL_JoystickType type)
    : mDevice(SDL_JoystickAttachVirtual(type, 6, 15, 1)), mPad(SDL_JoystickOpen(mDevice)),
      mInstance(SDL_JoystickInstanceID(mPad)) {
    EXPECT_GE(mDevice, 0) << SDL_GetError();
    EXPECT_NE(mPad, nullptr) << SDL_GetError();
    SDL_PumpEvents();
}

VirtualPad::~VirtualPad() {
    detach();
}

void VirtualPad::press(int button) {
    EXPECT_EQ(SDL_JoystickSetVirtualButton(mPad, button, SDL_PRESSED), 0) << SDL_GetError();
    SDL_PumpEvents();
}

void VirtualPad::release(int button) {
    EXPECT_EQ(SDL_JoystickSetVirtualButton(mPad, button, SDL_RELEASED), 0) << SDL_GetError();
    SDL_PumpEvents();
}

void VirtualPad::moveHat(int value) {
    EXPECT_EQ(SDL_JoystickSetVirtualHat(mPad, 0, static_cast<Uint8>(value)), 0) << SDL_GetError();
    SDL_PumpEvents();
}

void VirtualPad::moveAxis(int axis, int value) {
    EXPECT_EQ(SDL_JoystickSetVirtualAxis(mPad, axis, static_cast<Sint16>(value)), 0) << SDL_GetError();
    SDL_PumpEvents();
}

void VirtualPad::detach() {
    if (!mPad)
        return;
    SDL_JoystickDetachVirtual(mDevice);
    SDL_PumpEvents();
    SDL_JoystickClose(mPad);
    mPad = nullptr;
}
