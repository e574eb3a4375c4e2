#include "core/window_stack.h"

#include "core/clock.h"
#include "core/frame_rate_internal.h"
#include "core/key_repeat_internal.h"
#include "core/load_order.h"
#include "core/log.h"
#include "gfx/screen.h"

#include <SDL.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

using Windows = std::vector<KestroWindow*>;

Windows* gWinList = nullptr;
Windows gPopupList KESTRO_LOADED_POPUP_LIST;

namespace {

enum LoopCode {
    skipInput = 25,
    closeUnlessLast = 1002,
    quitLoop = 1003,
    quitLoopToo = 1004,
    closeAlways = 1005,
};

enum class AfterInput { pace, leave };

/// Watches for a window that answers without ever taking an event: the input of one frame would not end.
/// Counting the queue walks it, so it is done only now and then.
class StallGuard {
public:
    bool stalled() {
        const int call = mCalls++ % callsInVain;
        if (call != 0 && call != callsInVain - 1)
            return false;
        const int before = mQueued;
        mQueued = SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, 0, 0xFFFF);
        return call != 0 && mQueued >= before;
    }

private:
    static constexpr int callsInVain = 1000;
    int mCalls = 0;
    int mQueued = 0;
};

} // namespace

static void discard(KestroWindow* window) {
    if (!window)
        return;
    window->quit();
    delete window;
}

/// Discards `window` and then takes it off the stack. It is found again by its value, since quit or the
/// destructor may have changed the stack.
static void discardFrom(Windows& windows, KestroWindow* window) {
    const auto address = reinterpret_cast<uintptr_t>(window);
    discard(window);
    const auto same = [address](KestroWindow* w) { return reinterpret_cast<uintptr_t>(w) == address; };
    const auto found = std::find_if(windows.rbegin(), windows.rend(), same);
    if (found != windows.rend())
        windows.erase(std::next(found).base());
}

static void closeActive(Windows& windows, int code) {
    KestroWindow* const window = windows.back();
    if (window)
        window->onClose();
    discardFrom(windows, window);
    tprintf("a is %d, popup current window\n", code);
}

static void dropNullWindows(Windows& windows) {
    while (!windows.empty() && !windows.back())
        windows.pop_back();
}

/// Moves the newest queued window onto the stack and discards the others. Returns whether there was one.
/// What is queued meanwhile waits for the next frame.
static bool takeQueued(Windows& windows) {
    if (gPopupList.empty())
        return false;
    Windows queued = std::move(gPopupList);
    gPopupList.clear();
    KestroWindow* const newest = queued.back();
    queued.pop_back();
    if (newest) {
        newest->init();
        tprintf("add popup window\n");
        windows.push_back(newest);
    }
    for (KestroWindow* displaced : queued)
        discard(displaced);
    return true;
}

static void drawFrame(KestroWindow* window) {
    window->update();
    window->postUpdate();
    window->draw();
    ScreenUpdateAndFlip();
}

static bool closesWindow(int code, const Windows& windows) {
    return code == closeAlways || (code == closeUnlessLast && windows.size() >= 2);
}

static bool leavesLoop(int code) {
    return code == quitLoop || code == quitLoopToo;
}

static void leave(Windows& windows, int code) {
    if (!windows.empty() && windows.back() && windows.back()->type < 0)
        discardFrom(windows, windows.back());
    tprintf("a is %d, quit navora\n", code);
}

/// Lets windows handle input until a code or an empty queue ends the frame's input. `peeked` receives the
/// last event that was seen waiting.
static AfterInput handleInput(Windows& windows, SDL_Event& peeked) {
    StallGuard guard;
    for (;;) {
        dropNullWindows(windows);
        if (windows.empty())
            return AfterInput::pace;
        const int code = windows.back()->eventHandling();
        if (windows.empty())
            return AfterInput::pace;
        if (closesWindow(code, windows)) {
            closeActive(windows, code);
            return AfterInput::pace;
        }
        if (leavesLoop(code)) {
            leave(windows, code);
            return AfterInput::leave;
        }
        if (code == skipInput)
            return AfterInput::pace;
        SDL_PumpEvents();
        // Negative once SDL has shut down. The record may be written even when nothing waits.
        if (SDL_PeepEvents(&peeked, 1, SDL_PEEKEVENT, 0, 0xFFFF) <= 0 || guard.stalled())
            return AfterInput::pace;
    }
}

static void runLoop(Windows& windows) {
    for (;;) {
        dropNullWindows(windows);
        if (windows.empty())
            return;
        const uint64_t frameStart = systemms();
        drawFrame(windows.back());
        if (takeQueued(windows))
            continue;
        SDL_Event peeked{};
        const AfterInput next = handleInput(windows, peeked);
        if (peeked.type == SDL_QUIT)
            kestro::quitSdl(); // on purpose not the end of the loop: the windows decide that
        if (next == AfterInput::leave)
            return;
        kestro::paceFrame(frameStart);
    }
}

void runWindows(Windows& windows) {
    tprintf("runWindows\n");
    Windows* const outer = gWinList;
    static int depth = 0;
    gWinList = &windows;
    ++depth;
    kestro::startKeyRepeat();
    runLoop(windows);
    freeWindows(windows);
    kestro::stopKeyRepeat();
    if (--depth > 0)
        gWinList = outer;
}

void add2PopupList(KestroWindow* w) {
    Windows queued = std::move(gPopupList);
    gPopupList.clear();
    for (KestroWindow* displaced : queued)
        if (displaced != w)
            discard(displaced);
    if (w)
        gPopupList.push_back(w); // after anything that a displaced window queued: the newest is the last
}

void freeWindows(Windows& windows) {
    tprintf("%ld window to free\n", static_cast<long>(windows.size()));
    while (!windows.empty()) {
        KestroWindow* const window = windows.back();
        if (window) {
            tprintf("free window:");
            window->dump();
        }
        windows.pop_back();
        discard(window);
    }
}
