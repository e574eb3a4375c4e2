#pragma once

#include <SDL.h>

/// Empties SDL's event queue and puts a user event there that wait_event takes as the key code `code`.
inline void pressCode(int code, const char* data1 = nullptr, Uint32 type = SDL_USEREVENT) {
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    SDL_Event event{};
    event.type = type;
    event.user.code = code;
    event.user.data1 = const_cast<char*>(data1);
    SDL_PushEvent(&event);
}

/// The same with a key of the keyboard going down or up.
inline void pressKey(SDL_Keycode key, bool down = true) {
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    SDL_Event event{};
    event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}
