#include "support/input_test.h"

#include "core/input.h"
#include "core/key_repeat.h"

#include <filesystem>

void InputTest::SetUp() {
    KestroTest::SetUp();
    ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0) << SDL_GetError();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    setGrabbed(true); // a change of the marker makes the library forget what is held
    wait_event(nullptr);
    setGrabbed(false);
    wait_event(nullptr);
    clearRepeatTime();
    takeLog();
}

void InputTest::TearDown() {
    SDL_Quit();
    KestroTest::TearDown();
}

int InputTest::give(const SDL_Event& event) {
    SDL_FlushEvent(SDL_POLLSENTINEL); // by which SDL ends a poll, even when there is something behind it
    push(event);
    return wait_event(nullptr);
}

void InputTest::setGrabbed(bool grabbed) {
    setMarker("/tmp/kestro_inputd/grab", grabbed);
}

void InputTest::setDisplayUp(bool up) {
    setMarker("/tmp/osdd_show_up", up);
}

void InputTest::setMarker(const std::string& path, bool exists) {
    if (exists)
        writeFile(onDevice(path), "");
    else
        std::filesystem::remove(onDevice(path));
}
