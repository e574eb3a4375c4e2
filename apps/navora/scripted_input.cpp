#include "navora/scripted_input.h"

#include "core/window_stack.h"
#include "gfx/screen.h"
#include "gfx/transform.h"
#include "hostkit/close_request.h"
#include "navora/thumbnails.h"
#include "navora/unsettled.h"

#include <SDL_image.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <utility>

namespace navora {

namespace {

struct Key {
    const char* name;
    SDL_Scancode code;
};

} // namespace

static constexpr Key sKeys[] = {
    {"up", SDL_SCANCODE_UP},       {"down", SDL_SCANCODE_DOWN},    {"left", SDL_SCANCODE_LEFT},
    {"right", SDL_SCANCODE_RIGHT}, {"a", SDL_SCANCODE_SPACE},      {"b", SDL_SCANCODE_LCTRL},
    {"x", SDL_SCANCODE_LSHIFT},    {"y", SDL_SCANCODE_LALT},       {"start", SDL_SCANCODE_RETURN},
    {"l", SDL_SCANCODE_TAB},       {"select", SDL_SCANCODE_RCTRL}, {"menu", SDL_SCANCODE_ESCAPE},
    {"r", SDL_SCANCODE_BACKSPACE}, {"f1", SDL_SCANCODE_F1},        {"f2", SDL_SCANCODE_F2},
    {"f3", SDL_SCANCODE_F3},       {"f4", SDL_SCANCODE_F4},        {"f5", SDL_SCANCODE_F5},
    {"f6", SDL_SCANCODE_F6},       {"f7", SDL_SCANCODE_F7},        {"f8", SDL_SCANCODE_F8},
    {"f9", SDL_SCANCODE_F9},       {"f10", SDL_SCANCODE_F10},      {"f11", SDL_SCANCODE_F11},
    {"f12", SDL_SCANCODE_F12},
};

static const Key* findKey(const std::string& name) {
    for (const Key& key : sKeys)
        if (name == key.name)
            return &key;
    return nullptr;
}

bool isKeyName(const std::string& name) {
    return name == pictureKey || findKey(name);
}

static void pushKey(SDL_Scancode code, Uint32 type) {
    SDL_Event event{};
    event.type = type;
    event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.key.keysym.scancode = code;
    event.key.keysym.sym = SDL_GetKeyFromScancode(code);
    SDL_PushEvent(&event);
}

ScriptedInput::ScriptedInput(std::vector<std::string> keys, std::string shot)
    : mKeys(std::move(keys)), mShot(std::move(shot)) {}

void ScriptedInput::frameBegins() {
    if (!gPopupList.empty())
        return; // the next key is for the window that is about to open
    if (wantsKey()) {
        const SDL_Scancode code = findKey(mKeys[mPressed++])->code;
        mFramesSince = 0;
        pushKey(code, SDL_KEYDOWN);
        pushKey(code, SDL_KEYUP);
    } else if (!mShot.empty() && !mEnded && isSettled()) {
        takeNextShot();
    }
}

bool ScriptedInput::wantsKey() const {
    return mPressed < mKeys.size() && mKeys[mPressed] != pictureKey;
}

/// In the second frame: the first has shown what the last key did.
bool ScriptedInput::isSettled() {
    const bool pictures = picturesOnTheirWay();
    mFramesSince = wasUnsettled() || pictures ? 0 : mFramesSince + 1;
    return mFramesSince >= 2;
}

void ScriptedInput::takeNextShot() {
    if (mPressed < mKeys.size()) {
        ++mPressed;
        ++mNumber;
        takeShot(numberedShot());
        return;
    }
    mEnded = true;
    takeShot(mShot);
    hostkit::requestClose();
}

std::string ScriptedInput::numberedShot() const {
    const std::filesystem::path path = mShot;
    const std::string name = path.stem().string() + "-" + std::to_string(mNumber) + path.extension().string();
    return (path.parent_path() / name).string();
}

void ScriptedInput::takeShot(const std::string& path) {
    std::unique_ptr<KestroSurface> picture(ScreenSnapshot());
    if (picture && picture->getHeight() > picture->getWidth()) // on a display that is mounted on its side
        picture.reset(RotateSurface(picture.get(), 90));
    const auto* const copy = dynamic_cast<SDL2KestroSurface*>(picture.get());
    SDL_Surface* const opaque =
        copy ? SDL_ConvertSurfaceFormat(copy->getSurface(), SDL_PIXELFORMAT_RGB24, 0) : nullptr;
    if (!opaque || IMG_SavePNG(opaque, path.c_str()) != 0) {
        mFailed = true;
        fprintf(stderr, "navora: cannot write '%s': %s\n", path.c_str(), SDL_GetError());
    }
    SDL_FreeSurface(opaque);
}

bool ScriptedInput::shotFailed() const {
    if (mShot.empty())
        return false;
    if (!mEnded)
        fprintf(stderr, "navora: the launcher has ended before '%s' could be written\n", mShot.c_str());
    return mFailed || !mEnded;
}

} // namespace navora
