#pragma once

#include "core/export.h"

#include <SDL.h>

/// Takes at most one event from SDL's queue and returns the key code that it means, or 0 for none:
///
/// | code | keyboard             | pad                              | role                          |
/// |------|----------------------|----------------------------------|-------------------------------|
/// | 1    | SPACE up             | button 1 up                      | A                             |
/// | 2    | LCTRL up             | button 0 up                      | B                             |
/// | 3    | LSHIFT up            | button 3 up                      | third face button             |
/// | 4    | LALT up              | button 2 up                      | fourth face button            |
/// | 5..8 | UP DOWN LEFT RIGHT   | hat; axes 0, 1, 3, 4             | up, down, left, right         |
/// | 9    | RETURN up            | button 7 up                      | start, unless used for hotkey |
/// | 10   | RCTRL up             | button 6 up                      | select, the same              |
/// | 11   | ESCAPE up            | button 8 up                      | menu                          |
/// | 12   | TAB up               | button 4 up                      | left shoulder                 |
/// | 13   | BACKSPACE up         | button 5 up                      | right shoulder                |
/// | 14   |                      | axis 2 above 10                  | left trigger                  |
/// | 15   |                      | axis 5 above 10                  | right trigger                 |
///
/// A user event (SDL_USEREVENT exactly) gives its own `code`, whatever it is. An axis counts from half of
/// its travel on, and at most once in 150 ms over all axes. While the on-screen display of the device is
/// up (its marker file exists), the event is taken and dropped.
///
/// `event` may be null; otherwise the whole event is copied there, also one that means no key. With no
/// event waiting, and with a dropped one, `*event` stays as it was. A quit event closes the screen and
/// calls SDL_Quit. Main thread.
KESTRO_API int wait_event(SDL_Event* event);
