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
class StallGuard {
public:
    /// To be asked after every call of a handler.
    bool stalled() {
        ++mUncounted;
        if (mQueued > manyEvents && mUncounted < callsBetween)
            return false; // counting walks the queue
        const int queued = SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, 0, 0xFFFF);
        mCallsInVain = queued < mQueued ? 0 : mCallsInVain + mUncounted;
        mQueued = queued;
        mUncounted = 0;
        return mCallsInVain >= mostCallsInVain;
    }

private:
    static constexpr int mostCallsInVain = 1000;
    static constexpr int manyEvents = 4096;
    static constexpr int callsBetween = 64;
    int mQueued = 0;
    int mUncounted = 0;
    int mCallsInVain = 0; // one after the other, after which no fewer events were queued
};

} // namespace

static void discard(KestroWindow* window) {
    if (!window)
        return;
    window->quit();
    delete window;
}

/// Discards `window` and then takes it off the stack, if it is there. It is found again by its value, since
/// quit or the destructor may have changed the stack.
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
        windows.erase(std::remove(windows.begin(), windows.end(), newest), windows.end()); // never twice
        windows.push_back(newest);
    }
    for (KestroWindow* displaced : queued)
        discardFrom(windows, displaced);
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

/// The window whose turn it is to handle input: at first the one that was drawn, if it is still there, then
/// whichever is active. Null when the stack is empty.
static KestroWindow* inputWindow(Windows& windows, KestroWindow* drawn) {
    dropNullWindows(windows);
    if (windows.empty())
        return nullptr;
    const bool stillThere = std::find(windows.begin(), windows.end(), drawn) != windows.end();
    return drawn && stillThere ? drawn : windows.back();
}

/// Lets windows handle input until a code or an empty queue ends the frame's input. `peeked` receives the
/// last event that was seen waiting.
static AfterInput handleInput(Windows& windows, KestroWindow* drawn, SDL_Event& peeked) {
    StallGuard guard;
    while (KestroWindow* const window = inputWindow(windows, drawn)) {
        drawn = nullptr;
        const int code = window->eventHandling();
        if (leavesLoop(code)) {
            leave(windows, code);
            return AfterInput::leave;
        }
        if (!windows.empty() && closesWindow(code, windows)) {
            closeActive(windows, code);
            break;
        }
        if (code == skipInput)
            break;
        SDL_PumpEvents();
        // Negative once SDL has shut down. The record may be written even when nothing waits.
        if (SDL_PeepEvents(&peeked, 1, SDL_PEEKEVENT, 0, 0xFFFF) <= 0 || guard.stalled())
            break;
    }
    return AfterInput::pace;
}

static void runLoop(Windows& windows) {
    for (;;) {
        dropNullWindows(windows);
        if (windows.empty())
            return;
        const uint64_t frameStart = systemms();
        KestroWindow* const drawn = windows.back();
        drawFrame(drawn);
        if (takeQueued(windows))
            continue;
        SDL_Event peeked{};
        const AfterInput next = handleInput(windows, drawn, peeked);
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

/// Discards all that is queued but `kept`.
static void emptyQueue(const KestroWindow* kept) {
    const Windows queued = std::move(gPopupList);
    gPopupList.clear();
    for (KestroWindow* displaced : queued)
        if (displaced != kept)
            discard(displaced);
}

void add2PopupList(KestroWindow* w) {
    // What a displaced window queues in its end is displaced too. One that always queues another would go
    // on for ever: what is left of that is below `w` and ends with the next frame.
    constexpr int mostRounds = 16;
    for (int round = 0; round < mostRounds && !gPopupList.empty(); ++round)
        emptyQueue(w);
    if (w)
        gPopupList.push_back(w);
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
