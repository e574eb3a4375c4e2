#include "core/window_stack.h"
#include "support/dialog_test.h"
#include "support/recorded_window.h"

#include <functional>
#include <set>

using testing::ElementsAre;
using testing::IsEmpty;

static const std::string okLine = "DialogWindow ok\n";
static const std::string cancelLine = "DialogWindow cancel\n";

static constexpr int swapIndex = 19; // of the shared table: A and B exchanged

class DialogKeysTest : public DialogTest {};

TEST_F(DialogKeysTest, OpensWithConfirmFocused) {
    open("Delete", "Really?");
    EXPECT_EQ(dialog->getFocus(), 1);
}

TEST_F(DialogKeysTest, LeftFocusesCancelAndStopsThere) {
    open("Delete", "Really?");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(press(7), -1);
        EXPECT_EQ(dialog->getFocus(), 0);
    }
}

TEST_F(DialogKeysTest, RightFocusesConfirmAndStopsThere) {
    open("Delete", "Really?");
    EXPECT_EQ(press(8), -1);
    EXPECT_EQ(dialog->getFocus(), 1);
    press(7);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(press(8), -1);
        EXPECT_EQ(dialog->getFocus(), 1);
    }
}

TEST_F(DialogKeysTest, TheConfirmKeyRunsTheActionWithoutARow) {
    openWithAction(1002);
    EXPECT_EQ(press(1), 1002);
    EXPECT_THAT(actions.ran, ElementsAre(nullptr));
    EXPECT_THAT(actions.ranSecondary, IsEmpty());
    EXPECT_EQ(takeLog(), okLine);
}

TEST_F(DialogKeysTest, TheActionsResultIsTheCodeWhateverItIs) {
    for (const int result : {-7, -1, 0, 1, 2, 25, 26, 42, 1002, 1003, 1004, 1005, 1008}) {
        openWithAction(result);
        EXPECT_EQ(press(1), result);
        EXPECT_EQ(press(4), result);
        EXPECT_EQ(takeLog(), okLine + okLine);
    }
}

TEST_F(DialogKeysTest, ConfirmingWithoutAnActionClosesWithoutLogging) {
    open("Delete", "Really?", false, noteCancel);
    EXPECT_EQ(press(1), 1002);
    EXPECT_EQ(dialog->handleOK(), 1002);
    EXPECT_EQ(cancels, 0);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(DialogKeysTest, LeftThenTheFourthFaceButtonCancelsAndDoesNotRunTheAction) {
    openWithAction(-1, noteCancel);
    press(7);
    EXPECT_EQ(press(4), 1002);
    EXPECT_EQ(cancels, 1);
    EXPECT_THAT(actions.ran, IsEmpty());
    EXPECT_EQ(takeLog(), cancelLine);
}

TEST_F(DialogKeysTest, TheConfirmKeyOnCancelCancels) {
    openWithAction(-1, noteCancel);
    press(7);
    EXPECT_EQ(press(1), 1002);
    EXPECT_EQ(cancels, 1);
    EXPECT_THAT(actions.ran, IsEmpty());
    EXPECT_EQ(takeLog(), cancelLine);
}

TEST_F(DialogKeysTest, CancellingWithoutAFunctionClosesWithoutLogging) {
    openWithAction(-1);
    EXPECT_EQ(press(2), 1002);
    EXPECT_EQ(press(3), 1002);
    press(7);
    EXPECT_EQ(press(1), 1002);
    EXPECT_EQ(dialog->handleOK(), 1002);
    EXPECT_EQ(dialog->handleCancel(), 1002);
    EXPECT_THAT(actions.ran, IsEmpty());
    EXPECT_EQ(takeLog(), "");
}

TEST_F(DialogKeysTest, TheBackKeyAndTheThirdFaceButtonCancelWhateverHasTheFocus) {
    openWithAction(-1, noteCancel);
    EXPECT_EQ(press(2), 1002);
    EXPECT_EQ(press(3), 1002);
    press(7);
    EXPECT_EQ(press(2), 1002);
    EXPECT_EQ(press(3), 1002);
    EXPECT_EQ(cancels, 4);
    EXPECT_THAT(actions.ran, IsEmpty());
    EXPECT_EQ(takeLog(), cancelLine + cancelLine + cancelLine + cancelLine);
}

TEST_F(DialogKeysTest, WithAAndBExchangedAConfirmsNothingAndCancels) {
    gTestHost.table[swapIndex] = 1;
    openWithAction(1002, noteCancel);
    EXPECT_EQ(press(1), 1002);
    EXPECT_EQ(cancels, 1);
    EXPECT_THAT(actions.ran, IsEmpty());
    EXPECT_EQ(takeLog(), cancelLine);
}

TEST_F(DialogKeysTest, WithAAndBExchangedBConfirms) {
    gTestHost.table[swapIndex] = -1; // any number but 0
    openWithAction(33, noteCancel);
    EXPECT_EQ(press(2), 33);
    EXPECT_EQ(cancels, 0);
    EXPECT_THAT(actions.ran, ElementsAre(nullptr));
    EXPECT_EQ(takeLog(), okLine);
    press(7);
    EXPECT_EQ(press(2), 1002); // the focused button is cancel
    EXPECT_EQ(takeLog(), cancelLine);
}

TEST_F(DialogKeysTest, TheOtherTwoFaceButtonsAreNotExchanged) {
    gTestHost.table[swapIndex] = 1;
    openWithAction(33, noteCancel);
    EXPECT_EQ(press(3), 1002);
    EXPECT_EQ(press(4), 33);
    EXPECT_EQ(takeLog(), cancelLine + okLine);
}

TEST_F(DialogKeysTest, TheExchangeIsLookedUpAtEachPressOfAAndBOnly) {
    openWithAction(-1);
    gTestHost.reads.clear();
    for (const int code : {3, 4, 7, 8, 9, 25})
        press(code);
    EXPECT_THAT(gTestHost.reads, IsEmpty());
    press(1);
    press(2);
    EXPECT_THAT(gTestHost.reads, ElementsAre(swapIndex, swapIndex));
    takeLog();
}

TEST_F(DialogKeysTest, ThreeCodesPassUnchanged) {
    openWithAction(-1, noteCancel);
    for (const int code : {25, 43, 44})
        EXPECT_EQ(press(code), code);
}

TEST_F(DialogKeysTest, EveryOtherCodeDoesNothing) {
    openWithAction(33, noteCancel);
    const std::set<int> known{1, 2, 3, 4, 7, 8, 25, 43, 44};
    for (int code = -20; code < 1100; ++code) {
        if (known.count(code) == 0) {
            ASSERT_EQ(press(code), -1) << "code " << code;
        }
    }
    EXPECT_EQ(dialog->getFocus(), 1);
    EXPECT_EQ(cancels, 0);
    EXPECT_THAT(actions.ran, IsEmpty());
}

TEST_F(DialogKeysTest, WithoutAnEventItGivesMinusOne) {
    open("Delete", "Really?");
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    EXPECT_EQ(dialog->eventHandling(), -1);
}

TEST_F(DialogKeysTest, BothHandlersCanBeCalledByTheHost) {
    openWithAction(17, noteCancel);
    EXPECT_EQ(dialog->handleOK(), 17);
    EXPECT_EQ(dialog->handleCancel(), 1002);
    EXPECT_EQ(takeLog(), okLine + cancelLine);
    EXPECT_EQ(cancels, 1);
}

TEST_F(DialogKeysTest, TheLineComesBeforeTheActionRuns) {
    std::string before;
    openWithAction(12)->onRun = [&] { before = takeLog(); };
    EXPECT_EQ(press(1), 12);
    EXPECT_EQ(before, okLine);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(DialogKeysTest, TheLineComesBeforeTheCancelFunctionRuns) {
    static std::function<void()> whenCancelled;
    std::string before;
    whenCancelled = [&] { before = takeLog(); };
    open("Delete", "Really?", false, [] { whenCancelled(); });
    EXPECT_EQ(press(2), 1002);
    EXPECT_EQ(before, cancelLine);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(DialogKeysTest, TheActionMayDeleteTheDialog) {
    RecordedAction* const action = openWithAction(12);
    action->onRun = [this] { dialog.reset(); };
    OpenDialog* const opened = dialog.get();
    EXPECT_EQ(opened->handleOK(), 12);
    EXPECT_EQ(actions.deleted, 1);
    EXPECT_EQ(takeLog(), okLine);
}

static std::unique_ptr<OpenDialog>* sDoomed;

TEST_F(DialogKeysTest, TheCancelFunctionMayDeleteTheDialog) {
    open("Delete", "Really?", false, [] { sDoomed->reset(); });
    sDoomed = &dialog;
    OpenDialog* const opened = dialog.get();
    EXPECT_EQ(opened->handleCancel(), 1002);
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(takeLog(), cancelLine);
}

TEST_F(DialogKeysTest, BothMayQueueAnotherWindow) {
    WindowLog calls;
    RecordedAction* const action = openWithAction(1002, [] { add2PopupList(nullptr); });
    auto* const next = new RecordedWindow(calls, "next");
    action->onRun = [&] { add2PopupList(next); };
    EXPECT_EQ(press(1), 1002);
    EXPECT_THAT(gPopupList, ElementsAre(next));
    EXPECT_EQ(press(2), 1002);
    EXPECT_THAT(gPopupList, IsEmpty());
    EXPECT_THAT(calls, ElementsAre("next.quit", "next.deleted"));
    takeLog();
}
