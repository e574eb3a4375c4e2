#pragma once

#include <SDL_scancode.h>

#include <string>

namespace hostkit {

/// Presses a key of the keyboard and lets it go, as an owner would: for a host that nobody sits before, such
/// as one under test. The window loop gets both in its next frame. SDL has to be running. Main thread, like
/// everything here.
void pressKey(SDL_Scancode key);

/// Writes what the screen shows into the file `path`: as BMP, which takes a third of the time, if the name
/// ends in ".bmp", else as PNG. The end of a window's `draw` is the place for it; where the display is
/// mounted on its side it shows the frame before that, upright. False if that fails or there is no screen;
/// SDL_GetError tells why.
bool saveScreenPicture(const std::string& path);

} // namespace hostkit
