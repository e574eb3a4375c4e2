#include "support/input_events.h"

#include <gtest/gtest.h>

SDL_Event plainEvent(Uint32 type) {
    SDL_Event event{};
    event.type = type;
    return event;
}

SDL_Event keyDown(SDL_Keycode key, bool repeated) {
    SDL_Event event = plainEvent(SDL_KEYDOWN);
    event.key.state = SDL_PRESSED;
    event.key.repeat = repeated;
    event.key.keysym.sym = key;
    event.key.keysym.scancode = SDL_GetScancodeFromKey(key);
    return event;
}

SDL_Event keyUp(SDL_Keycode key) {
    SDL_Event event = keyDown(key);
    event.type = SDL_KEYUP;
    event.key.state = SDL_RELEASED;
    return event;
}

SDL_Event buttonDown(int button) {
    SDL_Event event = plainEvent(SDL_JOYBUTTONDOWN);
    event.jbutton.button = static_cast<Uint8>(button);
    event.jbutton.state = SDL_PRESSED;
    return event;
}

SDL_Event buttonUp(int button) {
    SDL_Event event = buttonDown(button);
    event.type = SDL_JOYBUTTONUP;
    event.jbutton.state = SDL_RELEASED;
    return event;
}

SDL_Event hatMoved(int value) {
    SDL_Event event = plainEvent(SDL_JOYHATMOTION);
    event.jhat.value = static_cast<Uint8>(value);
    return event;
}

SDL_Event axisMoved(int axis, int value) {
    SDL_Event event = plainEvent(SDL_JOYAXISMOTION);
    event.jaxis.axis = static_cast<Uint8>(axis);
    event.jaxis.value = static_cast<Sint16>(value);
    return event;
}

SDL_Event userEvent(int code) {
    SDL_Event event = plainEvent(SDL_USEREVENT);
    event.user.code = code;
    return event;
}

void push(SDL_Event event) {
    EXPECT_EQ(SDL_PushEvent(&event), 1) << SDL_GetError();
}

int waitingEvents() {
    return SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
}
