#pragma once

#include <SDL.h>

/// Events as SDL would make them.
SDL_Event keyDown(SDL_Keycode key, bool repeated = false);
SDL_Event keyUp(SDL_Keycode key);
SDL_Event buttonDown(int button);
SDL_Event buttonUp(int button);
SDL_Event hatMoved(int value);
SDL_Event axisMoved(int axis, int value);
SDL_Event userEvent(int code);
SDL_Event plainEvent(Uint32 type);

/// Puts the event at the end of SDL's queue. Fails the test if SDL does not take it.
void push(SDL_Event event);

/// The number of events that wait in SDL's queue, without looking for new ones.
int waitingEvents();
