#pragma once

#include "support/virtual_pad.h"

#include <string>

/// Tells SDL's controller database how the pads of this type that are plugged in from now on report their
/// buttons and axes, such as "a:b1,dpup:h0.1,leftx:a0". SDL's game controllers must be running.
void describePads(const std::string& mapping, SDL_JoystickType type = SDL_JOYSTICK_TYPE_UNKNOWN);
