#pragma once

#include <SDL.h>

namespace hostkit {

/// Looks at an event before it is queued, and may change it. False drops it.
using EventFilter = bool (*)(SDL_Event& event);

/// Lets `filter` see all events from now on, after those that were added before it and after a filter that
/// the host has set by itself. Adding one again changes nothing; it has to be added again after SDL_Quit. No
/// waiting event is lost. Main thread.
void addEventFilter(EventFilter filter);

} // namespace hostkit
