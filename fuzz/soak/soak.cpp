// Holds a host to hours of use in minutes: random keys, pads that come and go, themes, languages, windows of
// every kind. Usage: kestro-soak FRAMES [SEED], in a run folder and on a device of its own: see tools/soak.
// Every thousand frames all windows are closed and the caches emptied, and memory and open files are looked
// at. Prints a table; fails if, after the first tenth, more than 1 MB or any file is left over.
#include "fuzz/support/setting_handlers.h"
#include "hostkit/hostkit.h"
#include "kestro.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr int leaveLoop = 1003;
constexpr int closeWindow = 1002;

std::mt19937 sRandom;
long sFramesLeft = 0; // before the next look
std::string sWindowState;

int oneOf(int count) {
    return static_cast<int>(sRandom() % static_cast<unsigned>(count));
}

bool oneIn(int count) {
    return oneOf(count) == 0;
}

/// Pads that somebody plugs in and out.
class Pads {
public:
    void act() {
        if (oneIn(200) && mPads.size() < 4)
            plugIn();
        if (mPads.empty())
            return;
        SDL_Joystick* const pad = mPads[static_cast<size_t>(oneOf(static_cast<int>(mPads.size())))];
        switch (oneOf(4)) { // what of it is pressed or let go
        case 0:
            SDL_JoystickSetVirtualButton(pad, oneOf(12), static_cast<Uint8>(oneOf(2)));
            break;
        case 1:
            SDL_JoystickSetVirtualHat(pad, 0, static_cast<Uint8>(oneOf(9)));
            break;
        case 2:
            SDL_JoystickSetVirtualAxis(pad, oneOf(6), static_cast<Sint16>(oneOf(65536) - 32768));
            break;
        default:
            if (oneIn(50))
                pullOut(pad);
        }
    }
    void pullOutAll() {
        while (!mPads.empty())
            pullOut(mPads.back());
    }

private:
    std::vector<SDL_Joystick*> mPads;

    void plugIn() {
        const int device = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_UNKNOWN, 6, 12, 1);
        if (SDL_Joystick* const pad = device >= 0 ? SDL_JoystickOpen(device) : nullptr)
            mPads.push_back(pad);
    }
    void pullOut(SDL_Joystick* pad) {
        const SDL_JoystickID instance = SDL_JoystickInstanceID(pad);
        for (int device = 0; device < SDL_NumJoysticks(); ++device)
            if (SDL_JoystickGetDeviceInstanceID(device) == instance) {
                SDL_JoystickDetachVirtual(device);
                break;
            }
        SDL_JoystickClose(pad);
        mPads.erase(std::find(mPads.begin(), mPads.end(), pad));
    }
} sPads;

void pressKey() {
    constexpr SDL_Keycode keys[] = {SDLK_UP,     SDLK_DOWN,  SDLK_LEFT,  SDLK_RIGHT,    SDLK_DOWN,
                                    SDLK_DOWN,   SDLK_SPACE, SDLK_LCTRL, SDLK_LSHIFT,   SDLK_LALT,
                                    SDLK_RETURN, SDLK_TAB,   SDLK_SPACE, SDLK_BACKSPACE};
    SDL_Event event{};
    event.key.keysym.sym = keys[oneOf(std::size(keys))];
    event.type = oneIn(3) ? SDL_KEYUP : SDL_KEYDOWN;
    event.key.state = event.type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    SDL_PushEvent(&event);
}

void changeTheDevice() {
    if (oneIn(2000)) {
        const char* const themes[] = {"", "themes/dusk", "themes/missing"};
        hostkit::changeTheme(themes[oneOf(3)]);
    }
    if (oneIn(500)) {
        const char* const languages[] = {"en.lang", "ch.lang", "jp.lang", "missing.lang"};
        hostkit::changeLanguage(languages[oneOf(4)]);
    }
    if (oneIn(1000))
        hostkit::saveSettings();
    if (oneIn(1000) && gWinList)
        saveWindowsState(*gWinList, sWindowState.c_str());
}

/// A window that makes things happen before it reads its input, and ends the loop when it is time to look.
template <class Window>
class Restless : public Window {
public:
    using Window::Window;
    int eventHandling() override {
        if (--sFramesLeft <= 0)
            return leaveLoop;
        pressKey();
        sPads.act();
        changeTheDevice();
        return oneIn(400) ? closeWindow : Window::eventHandling();
    }
};

// The rows do not own these.
fuzz::Number sNumber;
fuzz::Flag sFlag;

int openAny(void*);

std::unique_ptr<TextMenu> textMenu(int rows) {
    auto menu = std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
    for (int row = 0; row < rows; ++row) {
        std::string label =
            std::to_string(oneOf(10000)) + (row % 2 ? " 超级玛丽兄弟 the long label of a row" : " row");
        auto* const item =
            new TextMenuItem(label.c_str(), nullptr, new GeneralAction(openAny, nullptr), true);
        menu->insertItem(static_cast<TextMenuItemProvider*>(item));
    }
    return menu;
}

std::unique_ptr<ListMenu> settingMenu() {
    auto menu = std::make_unique<SettingMenu>();
    for (int row = 0; row < 8; ++row) {
        menu->insertSettingItem(new SettingValueItem(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                                     nullptr, row, new GeneralAction(openAny, nullptr),
                                                     &sNumber));
        menu->insertSettingItem(new SettingSwitchItem(nullptr, nullptr, nullptr, nullptr, row, &sFlag));
    }
    return menu;
}

std::unique_ptr<ListMenu> fileBrowser() {
    auto menu = std::make_unique<FileBrowserMenu>(".", ".", "skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
    menu->LoadDir();
    return menu;
}

class ListWindow : public hostkit::MenuWindow {
public:
    explicit ListWindow(std::unique_ptr<ListMenu> list) : MenuWindow("Soak", std::move(list)) {}
    int draw() override {
        const int result = MenuWindow::draw();
        drawNavBar(0);
        drawStatBar(0);
        return result;
    }
};

KestroWindow* anyWindow() {
    const auto ok = [] { return new GeneralAction([](void*) { return 0; }, nullptr); };
    switch (oneOf(6)) {
    case 0:
        return new Restless<DialogWindow>("Title", "A message\nof 两 lines", true, ok(), nullptr);
    case 1:
        return new Restless<PopUpWindow>(-1, textMenu(4).release(), "skin/pop-menu.png");
    case 2:
        return new Restless<ListWindow>(settingMenu());
    case 3:
        return new Restless<ListWindow>(fileBrowser());
    default:
        return new Restless<ListWindow>(textMenu(oneOf(300)));
    }
}

int openAny(void*) {
    if (gWinList && gWinList->size() < 12)
        add2PopupList(anyWindow());
    return 0;
}

struct Look {
    size_t heap;
    size_t files;
};

Look look() {
    const fs::directory_iterator files("/proc/self/fd");
    malloc_trim(0);
    const struct mallinfo2 memory = mallinfo2();
    return {memory.uordblks + memory.hblkhd, static_cast<size_t>(std::distance(begin(files), end(files)))};
}

/// Runs `frames` frames from an empty stack to an empty stack.
Look runFor(long frames) {
    sFramesLeft = frames;
    while (sFramesLeft > 0) {
        std::vector<KestroWindow*> windows{new Restless<ListWindow>(textMenu(40))};
        runWindows(windows);
    }
    add2PopupList(nullptr);
    sPads.pullOutAll();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    hostkit::changeLanguage("en.lang");
    hostkit::changeTheme("");
    return look();
}

} // namespace

int main(int count, char** arguments) {
    const long frames = count > 1 ? atol(arguments[1]) : 0;
    if (frames < 1)
        return fprintf(stderr, "Usage: kestro-soak FRAMES [SEED]\n"), 2;
    sRandom.seed(count > 2 ? static_cast<unsigned>(atol(arguments[2])) : 1);
    const char* const device = getenv("KESTRO_DEVICE_ROOT");
    if (!device)
        return fprintf(stderr, "KESTRO_DEVICE_ROOT is not set\n"), 2;
    sWindowState = device + std::string("/mnt/UDISK/windows.json");
    hostkit::SessionOptions options;
    options.useSyslog = true;
    const hostkit::Session session(options);
    if (!session.isOpen())
        return fprintf(stderr, "%s\n", session.problem().c_str()), 2;
    constexpr int noPause = 100'000; // frames a second, more than there are milliseconds
    setKestroWindowFps(noPause, noPause);

    constexpr long aTurn = 1000;
    const long turns = std::max(10L, frames / aTurn);
    Look first{};
    Look most{};
    for (long turn = 1; turn <= turns; ++turn) {
        const Look now = runFor(aTurn);
        if (turn == turns / 10)
            first = most = now;
        most = {std::max(most.heap, now.heap), std::max(most.files, now.files)};
        if (turn == turns / 10 || turn == turns)
            printf("after %ld frames: %zu KB of heap, %zu open files\n", turn * aTurn, now.heap >> 10,
                   now.files);
    }
    const size_t growth = most.heap - first.heap;
    printf("%ld frames: heap grew by %zu KB at most, open files by %zu\n", turns * aTurn, growth >> 10,
           most.files - first.files);
    return growth >= 1 << 20 || most.files > first.files;
}
