#include "support/pad_test.h"

#include "core/input.h"
#include "hostkit/pads.h"

#include <SDL.h>

#include <algorithm>

void PadTest::SetUp() {
    KestroTest::SetUp();
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    ASSERT_EQ(SDL_Init(SDL_INIT_GAMECONTROLLER), 0) << SDL_GetError();
    hostkit::openPads();
    takeEvents();
}

void PadTest::TearDown() {
    hostkit::closePads();
    SDL_Quit();
    KestroTest::TearDown();
}

static std::string nameOf(const SDL_Event& event) {
    const auto text = [](const char* what, int number) { return what + std::to_string(number); };
    switch (event.type) {
    case SDL_JOYBUTTONDOWN:
        return text("down ", event.jbutton.button);
    case SDL_JOYBUTTONUP:
        return text("up ", event.jbutton.button);
    case SDL_JOYHATMOTION:
        return text("hat ", event.jhat.value);
    case SDL_JOYAXISMOTION:
        return text("axis ", event.jaxis.axis) + text(" ", event.jaxis.value);
    case SDL_CONTROLLERDEVICEADDED:
        return text("added ", event.cdevice.which);
    case SDL_CONTROLLERDEVICEREMOVED:
        return text("removed ", event.cdevice.which);
    case SDL_USEREVENT:
        return text("code ", event.user.code);
    default:
        return "";
    }
}

std::vector<std::string> PadTest::takeEvents() {
    std::vector<std::string> names;
    SDL_Event event{};
    while (SDL_PollEvent(&event))
        if (const std::string name = nameOf(event); !name.empty())
            names.push_back(name);
    return names;
}

std::vector<int> PadTest::takeCodes() {
    std::vector<int> codes;
    while (SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) > 0)
        if (const int code = wait_event(nullptr))
            codes.push_back(code);
    return codes;
}

std::vector<std::string> PadTest::takeAnnouncements() {
    std::vector<std::string> names = takeEvents();
    const auto isOther = [](const std::string& name) { return name.find("ed ") == std::string::npos; };
    names.erase(std::remove_if(names.begin(), names.end(), isOther), names.end());
    return names;
}
