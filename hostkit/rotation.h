#pragma once

namespace hostkit {

/// Opens the screen anew, turned or not, while a session lives, and loads the theme anew with it: pages take
/// that over by themeNumber. Pictures that others hold are blank from then on. Returns whether there is a
/// screen; if not as wanted, then as it was. Not while a frame is between its first drawing and its end,
/// unless the frame may be lost. Main thread.
bool rotateScreen(bool rotate);

/// Whether the screen that is open is turned.
bool screenIsRotated();

} // namespace hostkit
