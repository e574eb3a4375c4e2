#include "hostkit/close_request.h"

#include "core/dialog_window.h"
#include "core/host.h"
#include "core/input.h"
#include "core/window_stack.h"
#include "hostkit/key_table.h"
#include "menu/setting_menu.h"
#include "support/window_test.h"

#include <SDL.h>

#include <csignal>
#include <memory>
#include <thread>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

static void pushQuit() {
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
}

class CloseRequestTest : public WindowTest {
protected:
    void SetUp() override {
        signal(SIGINT, SIG_DFL); // which a job in the background ignores, and then SDL does too
        WindowTest::SetUp();
        hostkit::watchForCloseRequests();
    }

    void TearDown() override {
        hostkit::setBeforeClose(nullptr);
        hostkit::forgetCloseRequest();
        EXPECT_TRUE(gPopupList.empty());
        SDL_EventState(SDL_POLLSENTINEL, SDL_ENABLE);
        hostkit::gKeyTable.close();
        hostkit::removeKeyTable(hostkit::keyTableName());
        WindowTest::TearDown();
    }

    /// A window that keeps whatever comes in to itself; in its frame number `frame` it does `act`. After 50
    /// frames it gives up.
    RecordedWindow* addSilentWindow(int frame, std::function<void()> act, int type = 0) {
        RecordedWindow* const window = addWindow("silent", type);
        window->onUpdate = [this, frame, act] {
            if (++frames == frame)
                act();
        };
        window->onInput = [this] {
            wait_event(nullptr);
            return frames < 50 ? -1 : 1004;
        };
        return window;
    }

    int frames = 0;
};

static const char* const sLeft = "a is 1003, quit navora\n";

TEST_F(CloseRequestTest, EndsTheLoopOfAWindowThatKeepsEveryCode) {
    addSilentWindow(2, pushQuit);
    EXPECT_EQ(run(), std::string("add popup window\n") + sLeft + freed({0}));
    EXPECT_LE(frames, 4);
    EXPECT_TRUE(hostkit::closeRequested());
}

TEST_F(CloseRequestTest, EndsTheLoopOfAFloatingWindowWithoutAnAnswer) {
    addWindow("below");
    addSilentWindow(1, pushQuit, -1);
    EXPECT_EQ(run(), std::string("add popup window\n") + sLeft + freed({-1, 0}));
    EXPECT_THAT(takeCalls(), Not(HasSubstr("below.eventHandling")));
}

TEST_F(CloseRequestTest, EndsTheLoopOfASettingPage) {
    auto menu = std::make_unique<SettingMenu>();
    RecordedWindow* const window = addSilentWindow(2, pushQuit);
    window->onInput = [&] { return frames < 50 ? menu->eventHandling() : 1004; };
    takeLog();
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_LE(frames, 4);
    menu.reset();
    takeLog();
}

/// A dialog in whose first frame somebody asks to close the program.
class ClosedDialog : public DialogWindow {
public:
    using DialogWindow::DialogWindow;

    int eventHandling() override {
        if (++mFrames == 1)
            pushQuit();
        const int code = DialogWindow::eventHandling();
        return mFrames < 50 ? code : 1004;
    }

private:
    int mFrames = 0;
};

TEST_F(CloseRequestTest, EndsTheLoopOfADialog) {
    addSilentWindow(2,
                    [] { add2PopupList(new ClosedDialog("Delete?", "All of it", false, nullptr, nullptr)); });
    takeLog();
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_EQ(frames, 2);
}

TEST_F(CloseRequestTest, NoWindowIsAskedToCloseItself) {
    addSilentWindow(1, pushQuit);
    run();
    const std::string calls = takeCalls();
    EXPECT_THAT(calls, Not(HasSubstr("onClose")));
    EXPECT_THAT(calls, HasSubstr("silent.quit silent.deleted"));
}

TEST_F(CloseRequestTest, TheLastFrameShowsTheWindowAsBefore) {
    addSilentWindow(1, pushQuit);
    run();
    EXPECT_THAT(takeCalls(),
                StartsWith("silent.update silent.postUpdate silent.draw silent.draw silent.quit"));
}

TEST_F(CloseRequestTest, SdlIsNotShutDown) {
    addSilentWindow(2, pushQuit);
    run();
    EXPECT_NE(SDL_WasInit(SDL_INIT_EVENTS), 0u);
}

TEST_F(CloseRequestTest, SignalsEndTheLoop) {
    for (const int signal : {SIGTERM, SIGINT}) {
        frames = 0;
        addSilentWindow(2, [signal] { raise(signal); });
        EXPECT_THAT(run(), HasSubstr(sLeft)) << signal;
        EXPECT_LE(frames, 5);
        hostkit::forgetCloseRequest();
    }
}

TEST_F(CloseRequestTest, AWindowThatIsOpenedAtTheSameTimeDoesNotStopIt) {
    RecordedWindow* const other = makeWindow("other");
    int looks = 0;
    other->onInput = [&looks] { return ++looks < 50 ? -1 : 1004; }; // does not even ask SDL for events
    addSilentWindow(2, [other] {
        pushQuit();
        add2PopupList(other); // takes the place of what waits
    });
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_LE(frames, 3);
}

TEST_F(CloseRequestTest, AWindowThatWaitsIsNotDestroyedWithinTheRequest) {
    RecordedWindow* const waiting = makeWindow("waiting");
    addSilentWindow(1, [&] {
        add2PopupList(waiting);
        takeCalls();
        pushQuit();
        EXPECT_EQ(takeCalls(), "");
    });
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_THAT(takeCalls(), HasSubstr("waiting.quit waiting.deleted"));
}

TEST_F(CloseRequestTest, ALoopWithinALoopEndsToo) {
    RecordedWindow* const outer = addSilentWindow(2, [this] {
        std::vector<KestroWindow*> inner{makeWindow("inner")};
        auto* const window = static_cast<RecordedWindow*>(inner.front());
        window->onUpdate = pushQuit;
        window->onInput = [] {
            wait_event(nullptr);
            return -1;
        };
        runWindows(inner);
    });
    ASSERT_NE(outer, nullptr);
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_LE(frames, 4);
}

TEST_F(CloseRequestTest, ALoopThatStartsLaterEndsToo) {
    hostkit::requestClose();
    addSilentWindow(60, [] {});
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_LE(frames, 2);
}

TEST_F(CloseRequestTest, AForgottenRequestEndsNothing) {
    hostkit::requestClose();
    hostkit::forgetCloseRequest();
    EXPECT_FALSE(hostkit::closeRequested());
    addSilentWindow(60, [] {});
    EXPECT_EQ(run(), "a is 1004, quit navora\n" + freed({0}));
    EXPECT_EQ(frames, 50);
}

static size_t sWindowsBeforeClose = 0;

TEST_F(CloseRequestTest, BeforeItEndsALoopTheHostSeesAllWindows) {
    hostkit::setBeforeClose([] { sWindowsBeforeClose = gWinList->size(); });
    addWindow("below");
    addSilentWindow(2, pushQuit);
    sWindowsBeforeClose = 0;
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_EQ(sWindowsBeforeClose, 3u) << "and the one that ends the loop";
}

TEST_F(CloseRequestTest, AnotherThreadMayAsk) {
    SDL_EventState(SDL_POLLSENTINEL, SDL_IGNORE); // SDL's own event at each look would do
    RecordedWindow* const window = addSilentWindow(2, [] {
        std::thread(hostkit::requestClose).join();
        EXPECT_TRUE(gPopupList.empty()) << "windows are the main thread's";
    });
    window->onInput = [this] {
        const int code = wait_event(nullptr);
        return code ? code : frames < 50 ? -1 : 1004;
    };
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_LE(frames, 3);
}

TEST_F(CloseRequestTest, AnotherThreadsRequestReachesASilentWindowWithTheNextEvent) {
    RecordedWindow* const window = addSilentWindow(2, [] { std::thread(hostkit::requestClose).join(); });
    window->onDraw = [this] {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        if (frames == 4)
            SDL_PushEvent(&event);
    };
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_LE(frames, 6);
}

TEST_F(CloseRequestTest, EventsBeforeTheRequestAreNotLost) {
    std::vector<int> codes;
    RecordedWindow* const window = addSilentWindow(1, [] {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        event.user.code = 77;
        SDL_PushEvent(&event);
    });
    window->onInput = [&] {
        codes.push_back(wait_event(nullptr));
        if (codes.back() == 77)
            pushQuit();
        return -1;
    };
    EXPECT_THAT(run(), HasSubstr(sLeft));
    EXPECT_EQ(codes.front(), 77);
}
