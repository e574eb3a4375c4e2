#include "navora/scripted_input.h"

#include "core/window_stack.h"
#include "hostkit/close_request.h"
#include "hostkit/unattended.h"
#include "navora/thumbnails.h"
#include "navora/unsettled.h"

#include <SDL.h>

#include <cstdio>
#include <filesystem>
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

ScriptedInput::ScriptedInput(std::vector<std::string> keys, std::string shot)
    : mKeys(std::move(keys)), mShot(std::move(shot)) {}

void ScriptedInput::frameBegins() {
    if (!gPopupList.empty())
        return; // the next key is for the window that is about to open
    if (wantsKey()) {
        const SDL_Scancode code = findKey(mKeys[mPressed++])->code;
        mFramesSince = 0;
        hostkit::pressKey(code);
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
    if (hostkit::saveScreenPicture(path))
        return;
    mFailed = true;
    fprintf(stderr, "navora: cannot write '%s': %s\n", path.c_str(), SDL_GetError());
}

bool ScriptedInput::shotFailed() const {
    if (mShot.empty())
        return false;
    if (!mEnded)
        fprintf(stderr, "navora: the launcher has ended before '%s' could be written\n", mShot.c_str());
    return mFailed || !mEnded;
}

} // namespace navora
