// Keys, pads and odd events, read by a window with every kind of list, a dialog and a pop-up. Two bytes of
// the input are one step: what comes, and a detail of it.
#include "core/dialog_window.h"
#include "core/frame_rate.h"
#include "core/popup_window.h"
#include "core/window_stack.h"
#include "fuzz/support/device.h"
#include "fuzz/support/screen.h"
#include "fuzz/support/setting_handlers.h"
#include "menu/file_browser_menu.h"
#include "menu/setting_menu.h"
#include "menu/text_menu.h"

#include <filesystem>
#include <iterator>
#include <memory>
#include <vector>

namespace {

/// What is left of the input.
struct {
    const uint8_t* data;
    size_t left;
} sSteps;

SDL_Event keyEvent(uint32_t type, uint8_t detail) {
    constexpr SDL_Keycode keys[] = {
        SDLK_UP,     SDLK_DOWN,  SDLK_LEFT,   SDLK_RIGHT, SDLK_SPACE,     SDLK_LCTRL, SDLK_LSHIFT, SDLK_LALT,
        SDLK_RETURN, SDLK_RCTRL, SDLK_ESCAPE, SDLK_TAB,   SDLK_BACKSPACE, SDLK_e,     SDLK_t,      SDLK_F1};
    SDL_Event event{};
    event.type = type;
    event.key.keysym.sym = keys[detail % std::size(keys)];
    event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.key.repeat = detail >> 7;
    return event;
}

SDL_Event buttonEvent(uint32_t type, uint8_t detail) {
    SDL_Event event{};
    event.type = type;
    event.jbutton.button = detail;
    event.jbutton.state = type == SDL_JOYBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
    return event;
}

SDL_Event hatEvent(uint8_t detail) {
    SDL_Event event{};
    event.type = SDL_JOYHATMOTION;
    event.jhat.hat = detail >> 6;
    event.jhat.value = detail & 0x1F;
    return event;
}

SDL_Event axisEvent(uint8_t detail) {
    SDL_Event event{};
    event.type = SDL_JOYAXISMOTION;
    event.jaxis.axis = detail & 7;
    event.jaxis.value = static_cast<int16_t>((detail >> 3) * 2114 - 32768);
    return event;
}

/// Anything but a close request, after which SDL is gone.
SDL_Event otherEvent(uint8_t detail) {
    constexpr uint32_t types[] = {SDL_CONTROLLERDEVICEADDED,
                                  SDL_CONTROLLERDEVICEREMOVED,
                                  SDL_JOYDEVICEADDED,
                                  SDL_JOYDEVICEREMOVED,
                                  SDL_MOUSEMOTION,
                                  SDL_USEREVENT,
                                  SDL_USEREVENT + 8,
                                  SDL_WINDOWEVENT,
                                  SDL_TEXTINPUT,
                                  SDL_RENDER_TARGETS_RESET,
                                  SDL_FINGERDOWN,
                                  0x7FFE};
    SDL_Event event{};
    event.type = types[detail % std::size(types)];
    event.user.code = detail;
    return event;
}

SDL_Event eventOf(uint8_t kind, uint8_t detail) {
    return kind < 60    ? keyEvent(SDL_KEYDOWN, detail)
           : kind < 100 ? keyEvent(SDL_KEYUP, detail)
           : kind < 130 ? buttonEvent(SDL_JOYBUTTONDOWN, detail)
           : kind < 150 ? buttonEvent(SDL_JOYBUTTONUP, detail)
           : kind < 180 ? hatEvent(detail)
           : kind < 200 ? axisEvent(detail)
                        : otherEvent(detail);
}

/// Pushes the event of the next step; false when there is none.
bool pushNext() {
    if (sSteps.left < 2)
        return false;
    SDL_Event event = eventOf(sSteps.data[0], sSteps.data[1]);
    sSteps.data += 2;
    sSteps.left -= 2;
    SDL_PushEvent(&event);
    return true;
}

/// A window that gets a step for each time that it reads, and ends the loop after the last.
template <class Window>
class Fed : public Window {
public:
    using Window::Window;
    int eventHandling() override {
        constexpr int leave = 1003;
        return pushNext() ? Window::eventHandling() : leave;
    }
};

// The rows do not own these.
fuzz::Number sNumber;
fuzz::Flag sFlag;

int openDialog(void*) {
    auto* const action = new GeneralAction([](void*) { return 0; }, nullptr);
    add2PopupList(new Fed<DialogWindow>("Title", "A message\nof two lines", true, action, nullptr));
    return 0;
}

std::unique_ptr<TextMenu> textMenu(int rows) {
    auto menu = std::make_unique<TextMenu>(nullptr, nullptr, 5, 4);
    for (int row = 0; row < rows; ++row)
        menu->insertItem(static_cast<TextMenuItemProvider*>(new TextMenuItem(
            row % 3 ? "第一行 row" : "row", nullptr, new GeneralAction(openDialog, nullptr), true)));
    return menu;
}

int openPopUp(void*) {
    add2PopupList(new Fed<PopUpWindow>(-1, textMenu(3).release(), nullptr));
    return 0;
}

std::unique_ptr<ListMenu> settingMenu() {
    auto menu = std::make_unique<SettingMenu>();
    for (int row = 0; row < 4; ++row) {
        menu->insertSettingItem(new SettingValueItem(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                                     nullptr, row, new GeneralAction(openPopUp, nullptr),
                                                     &sNumber));
        menu->insertSettingItem(new SettingSwitchItem(nullptr, nullptr, nullptr, nullptr, row, &sFlag));
    }
    return menu;
}

/// Shows its lists in turn, so that all of them read what comes.
class ListsWindow : public KestroWindow {
public:
    ListsWindow() : KestroWindow(-1, -1) {
        mLists.push_back(textMenu(12));
        mLists.push_back(textMenu(0));
        mLists.push_back(settingMenu());
        auto browser = std::make_unique<FileBrowserMenu>(".", ".", nullptr, nullptr, 6, 0);
        browser->LoadDir();
        mLists.push_back(std::move(browser));
    }
    int eventHandling() override { return mLists[mCurrent]->eventHandling(); }
    int draw() override { return mLists[mCurrent]->draw(); }
    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }
    void update() override { mCurrent = (mCurrent + 1) % mLists.size(); }

private:
    std::vector<std::unique_ptr<ListMenu>> mLists;
    size_t mCurrent = 0;
};

void openLists() {
    fuzz::openScreen();
    std::filesystem::create_directories("folder/inner");
    constexpr int noPause = 100'000; // frames a second, more than there are milliseconds
    setKestroWindowFps(noPause, noPause);
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool open = (openLists(), true);
    (void)open;
    sSteps = {data, size};
    std::vector<KestroWindow*> stack{new Fed<ListsWindow>};
    runWindows(stack);
    add2PopupList(nullptr);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    return 0;
}
