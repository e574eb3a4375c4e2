#include "core/window_stack.h"
#include "gfx/fill.h"
#include "menu/text_menu.h"
#include "support/fake_clock.h"
#include "support/input_events.h"
#include "support/open_dialog.h"
#include "support/quick_repeat.h"
#include "support/recorded_action.h"
#include "support/recorded_window.h"
#include "support/skinned_test.h"
#include "support/window_test.h"

using testing::ElementsAre;
using testing::HasSubstr;

/// What the window beneath shows, and what a dialog has done.
static std::vector<std::string> sSteps;

/// A window that leaves the loop when it does not close by itself, so that a failure does not hang.
template <class Window>
class Ending : public Window {
public:
    using Window::Window;

    int eventHandling() override {
        const int code = Window::eventHandling();
        if (++mRounds < 50)
            return code;
        ADD_FAILURE() << "still open";
        return 1003;
    }

private:
    int mRounds = 0;
};

/// A dialog that notes the focus that it draws and its end.
class SteppedDialog : public Ending<OpenDialog> {
public:
    using Ending::Ending;
    ~SteppedDialog() override { sSteps.emplace_back("deleted"); }

    int draw() override {
        sSteps.push_back("focus " + std::to_string(getFocus()));
        return Ending::draw();
    }
    void init() override {
        Ending::init();
        sSteps.emplace_back("init");
    }
    void onClose() override { sSteps.emplace_back("onClose"); }
};

/// Float windows over a page in the real loop, with real events. The page leaves the loop when it gets
/// input.
class FloatWindowLoopTest : public SkinnedTest {
protected:
    FakeClock clock{laterStart()};
    QuickRepeat quick;
    WindowLog calls;
    ActionLog actions;
    std::vector<KestroWindow*> windows;
    RecordedWindow* page = nullptr;

    void SetUp() override {
        SkinnedTest::SetUp();
        sSteps.clear();
        page = new RecordedWindow(calls, "page", 3);
        windows = {page};
        SDL_PumpEvents();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    }

    void TearDown() override {
        for (KestroWindow* const left : windows) // where no loop was run
            delete left;
        add2PopupList(nullptr);
        gWinList = nullptr;
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        SkinnedTest::TearDown();
    }

    SteppedDialog* queueDialog(int result, void (*onCancel)() = nullptr) {
        auto* const dialog =
            new SteppedDialog("Delete", "Really?", false, new RecordedAction(actions, result), onCancel);
        add2PopupList(dialog);
        takeLog();
        return dialog;
    }

    /// Runs the loop after these codes were pushed, and returns the log.
    std::string runWith(std::initializer_list<int> codes) {
        for (const int code : codes)
            push(userEvent(code));
        runWindows(windows);
        return takeLog();
    }
};

TEST_F(FloatWindowLoopTest, ADialogFreezesTheFrameThatWasShownBeneathIt) {
    page->onDraw = [] { FillRect(nullptr, nullptr, 10, 20, 30, 255); };
    auto* const dialog = queueDialog(1003);
    Uint32 frozen = 0;
    actions.ran.clear();
    static_cast<RecordedAction*>(dialog->action)->onRun = [&] {
        frozen =
            *static_cast<Uint32*>(dynamic_cast<SDL2KestroSurface*>(dialog->snapshot)->getSurface()->pixels);
    };
    runWith({1});
    EXPECT_EQ(frozen, 0xFF0A141E);
    EXPECT_EQ(actions.ran.size(), 1u);
}

TEST_F(FloatWindowLoopTest, CancellingClosesAndTheLoopDeletesIt) {
    queueDialog(0);
    EXPECT_THAT(runWith({2}), HasSubstr("add popup window\na is 1002, popup current window\n"));
    EXPECT_THAT(sSteps, ElementsAre("init", "focus 1", "onClose", "deleted"));
    EXPECT_EQ(actions.deleted, 1);
}

TEST_F(FloatWindowLoopTest, AnActionThatGivesMinusOneKeepsTheDialogOpen) {
    queueDialog(-1);
    EXPECT_THAT(runWith({1, 7, 1}), HasSubstr("DialogWindow ok\na is 1002, popup current window\n"));
    EXPECT_THAT(sSteps, ElementsAre("init", "focus 1", "onClose", "deleted"));
    EXPECT_EQ(actions.ran.size(), 1u);
}

TEST_F(FloatWindowLoopTest, AnActionThatGives1002ClosesIt) {
    queueDialog(1002);
    EXPECT_THAT(runWith({1}), HasSubstr("DialogWindow ok\na is 1002, popup current window\n"));
    EXPECT_EQ(actions.ran.size(), 1u);
}

TEST_F(FloatWindowLoopTest, AQuitCodeClosesTheDialogBeforeThePage) {
    queueDialog(1003);
    EXPECT_THAT(runWith({1}), HasSubstr("DialogWindow ok\na is 1003, quit navora\n1 window to free\n"
                                        "free window:title , type 3\n"));
    EXPECT_THAT(sSteps, ElementsAre("init", "focus 1", "deleted"));
}

TEST_F(FloatWindowLoopTest, Code25EndsTheInputOfThisFrame) {
    queueDialog(0);
    runWith({25, 7, 2});
    EXPECT_THAT(sSteps, ElementsAre("init", "focus 1", "focus 1", "onClose", "deleted"));
}

TEST_F(FloatWindowLoopTest, OtherCodesGoOnInTheSameFrame) {
    queueDialog(0);
    runWith({43, 7, 44, 25, 2});
    EXPECT_THAT(sSteps, ElementsAre("init", "focus 1", "focus 0", "onClose", "deleted"));
}

TEST_F(FloatWindowLoopTest, CodesOfTheLoopThatArePushedDoNothingInADialog) {
    queueDialog(0);
    EXPECT_THAT(runWith({1002, 1003, 1004, 1005, 2}), HasSubstr("a is 1002, popup current window\n"));
    EXPECT_THAT(sSteps, ElementsAre("init", "focus 1", "onClose", "deleted"));
}

TEST_F(FloatWindowLoopTest, AnActionMayOpenTheNextDialogInItsPlace) {
    auto* const first = queueDialog(1002);
    static_cast<RecordedAction*>(first->action)->onRun = [] {
        add2PopupList(new SteppedDialog("Done", "Done.", false, nullptr, nullptr));
    };
    runWith({1, 25, 1});
    EXPECT_THAT(sSteps, ElementsAre("init", "focus 1", "onClose", "deleted", //
                                    "init", "focus 1", "focus 1", "onClose", "deleted"));
    takeLog();
}

TEST_F(FloatWindowLoopTest, ADisplacedDialogIsDeletedUnseen) {
    queueDialog(0);
    queueDialog(0);
    EXPECT_THAT(sSteps, ElementsAre("deleted"));
    EXPECT_EQ(actions.deleted, 1);
}

TEST_F(FloatWindowLoopTest, APopUpWithoutAListClosesAtItsFirstInputRound) {
    add2PopupList(new Ending<PopUpWindow>(-1, nullptr, nullptr));
    EXPECT_THAT(runWith({}), HasSubstr("add popup window\na is 1002, popup current window\n"));
}

TEST_F(FloatWindowLoopTest, ARowThatGives1003EndsTheLoopFromAPopUp) {
    auto* const menu = new TextMenu(nullptr, nullptr, 6, 0);
    menu->insertItem(static_cast<TextMenuItemProvider*>(
        new TextMenuItem("row", nullptr, new RecordedAction(actions, 1003), true)));
    add2PopupList(new Ending<PopUpWindow>(-1, menu, nullptr));
    EXPECT_THAT(runWith({1}), HasSubstr("a is 1003, quit navora\n1 window to free\n"));
    EXPECT_EQ(actions.ran.size(), 1u);
    EXPECT_EQ(actions.deleted, 1);
}

TEST_F(FloatWindowLoopTest, APlainFloatWindowTakesNothingFromTheQueue) {
    class Leaving : public FloatWindow {
    public:
        Leaving() : FloatWindow(-1) {}
        int eventHandling() override {
            const int code = FloatWindow::eventHandling();
            return waitingEvents() == 1 ? 1002 : code;
        }
    };
    push(userEvent(9));
    add2PopupList(new Leaving);
    EXPECT_THAT(runWith({}), HasSubstr("a is 1002, popup current window\n"));
}
