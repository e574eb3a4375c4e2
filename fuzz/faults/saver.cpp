// Saves once what a device saves, for tools/faults, which lets system calls fail meanwhile, and looks
// afterwards at what is left. Usage: kestro-saver KIND old|new|check, where KIND is settings, item,
// window-state, favourites or recents. "check" prints old, new or lost. The device is KESTRO_DEVICE_ROOT; the
// call access("/begin") marks where the save begins.
#include "core/host.h"
#include "core/log.h"
#include "core/window_state.h"
#include "navora/game_lists.h"
#include "platform/device_path.h"
#include "system/system_state.h"
#include "tests/support/plain_window.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <unistd.h>

namespace {

constexpr int oldValue = 3;
constexpr int newValue = 4;

std::string stateFile() {
    return std::string(kestro::DevicePath("/mnt/UDISK/windows.json"));
}

void begin() {
    access("/begin", F_OK);
}

struct Kind {
    std::function<void(int value)> save;
    std::function<int()> saved; // the value, or another one
};

int loadedVolume() {
    SetKeyShm(gShmInfo, 0, -1);
    loadSystemState(gShmInfo, nullptr);
    return GetKeyShm(gShmInfo, 0);
}

int savedWindowType() {
    const std::unique_ptr<cJSON, void (*)(cJSON*)> root(loadWindowsState(stateFile().c_str()), cJSON_Delete);
    const cJSON* const list = cJSON_GetObjectItemCaseSensitive(root.get(), "list");
    return list && list->child ? cJSON_GetObjectItemCaseSensitive(list->child, "type")->valueint : -1;
}

/// The game that comes with a value.
std::string game(int value) {
    return "/games/" + std::to_string(value);
}

/// Both games stand in the list once the new one is saved.
int savedGame(const std::vector<std::string>& games) {
    const auto has = [&](int value) {
        return std::find(games.begin(), games.end(), game(value)) != games.end();
    };
    return !has(oldValue) ? -1 : has(newValue) ? newValue : oldValue;
}

const std::map<std::string, Kind> kinds{
    {"settings",
     {[](int value) {
          SetKeyShm(gShmInfo, 0, value);
          begin();
          saveSystemState(gShmInfo, nullptr);
      },
      loadedVolume}},
    {"item",
     {[](int value) {
          begin();
          saveOneItemInSystemState("vol", value);
      },
      loadedVolume}},
    {"window-state",
     {[](int value) {
          PlainWindow window(-1, value);
          std::vector<KestroWindow*> windows{&window};
          begin();
          saveWindowsState(windows, stateFile().c_str());
      },
      savedWindowType}},
    {"favourites",
     {[](int value) {
          begin();
          navora::gameLists().setFavourite(game(value), true);
      },
      [] { return savedGame(navora::gameLists().favourites()); }}},
    {"recents",
     {[](int value) {
          begin();
          navora::gameLists().noteStarted(game(value));
      },
      [] { return savedGame(navora::gameLists().recents()); }}},
};

} // namespace

int main(int count, char** arguments) {
    const auto kind = count == 3 ? kinds.find(arguments[1]) : kinds.end();
    if (kind == kinds.end())
        return 2;
    initLogger(1);
    setSettingsJournal(!getenv("KESTRO_NO_JOURNAL"));
    const std::string what = arguments[2];
    if (what != "check") {
        kind->second.save(what == "new" ? newValue : oldValue);
        return 0;
    }
    const int saved = kind->second.saved();
    puts(saved == oldValue ? "old" : saved == newValue ? "new" : "lost");
}
