#pragma once

namespace hostkit {

/// Opens every pad that is plugged in and not yet open, and closes those that are gone; starts SDL's game
/// controllers if the host has not. The kit's initJoyStick does nothing else. Main thread.
///
/// A pad that SDL's controller database knows is presented by position, whatever it reports itself: buttons
/// south 0, east 1, west 2, north 3, shoulders 4 and 5, back 6, start 7, guide 8, sticks 9 and 10, others
/// from 11 on; the left stick on axes 0 and 1, the right one on 3 and 4, the triggers on 2 and 5; the D-pad
/// as hat 0, be it buttons, axes or a hat, so that it repeats. The left stick stands in for a D-pad that is
/// not there. Other pads keep their numbers. Every pad that comes or goes is announced by the events
/// SDL_CONTROLLERDEVICEADDED and SDL_CONTROLLERDEVICEREMOVED.
void openPads();

/// Closes all pads; before SDL shuts down. Main thread.
void closePads();

} // namespace hostkit
