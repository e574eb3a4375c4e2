#include "hostkit/close_request.h"

#include "core/window_stack.h"
#include "hostkit/event_filter.h"

#include <SDL.h>

#include <atomic>
#include <cstddef>

namespace hostkit {

static constexpr int leaveLoop = 1003;

static struct {
    std::atomic<bool> requested{false};
    bool queued = false; // the window that does it; main thread
    void (*beforeClose)() = nullptr;
    SDL_threadID mainThread = 0;
} sClose;

static void queueLeavingWindow();

namespace {

/// Leaves the loop at its first input. Every window passes a key or a user event on as it likes, and some
/// keep the loop's codes for themselves; this one none of them can stop. It asks again until nobody wants the
/// loop to end any more: it may be displaced from the queue, and a loop may run inside another.
class LeavingWindow : public KestroWindow {
public:
    LeavingWindow() : KestroWindow(-1, -1) {}
    ~LeavingWindow() override {
        sClose.queued = false;
        if (sClose.requested)
            queueLeavingWindow();
    }

    int eventHandling() override {
        if (sClose.beforeClose)
            sClose.beforeClose();
        return leaveLoop;
    }

    /// What was seen before, for the one frame.
    int draw() override {
        const size_t count = gWinList ? gWinList->size() : 0;
        return count >= 2 && gWinList->back() == this && (*gWinList)[count - 2]
                   ? (*gWinList)[count - 2]->draw()
                   : 0;
    }

    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }
    void update() override {}
};

} // namespace

/// Not by add2PopupList, which would destroy a window that waits in the middle of SDL's work on an event: the
/// loop does that, when it takes the newest.
static void queueLeavingWindow() {
    sClose.queued = true;
    gPopupList.push_back(new LeavingWindow);
}

static bool onMainThread() {
    return SDL_ThreadID() == sClose.mainThread;
}

static bool takeCloseRequest(SDL_Event& event) {
    if (event.type == SDL_QUIT) {
        sClose.requested = true;
        if (!onMainThread()) {
            event = {};
            event.type = SDL_USEREVENT;
            event.user.code = leaveLoop;
        }
    }
    if (sClose.requested && !sClose.queued && onMainThread())
        queueLeavingWindow();
    return event.type != SDL_QUIT;
}

void watchForCloseRequests() {
    sClose.mainThread = SDL_ThreadID();
    addEventFilter(takeCloseRequest);
}

void requestClose() {
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
}

void setBeforeClose(void (*leaving)()) {
    sClose.beforeClose = leaving;
}

bool closeRequested() {
    return sClose.requested;
}

void forgetCloseRequest() {
    sClose.requested = false;
    add2PopupList(nullptr);
}

} // namespace hostkit
