#include "core/log.h"
#include "core/window_stack.h"
#include "support/window_test.h"

/// Where the loop's lines stand among what the windows themselves log.
class WindowLogOrderTest : public WindowTest {
protected:
    static void saysWhatHappens(RecordedWindow* window, const std::string& name) {
        const auto says = [name](const char* what) {
            return [name, what] { tprintf("%s.%s\n", name.c_str(), what); };
        };
        window->onInit = says("init");
        window->onClosing = says("close");
        window->onQuit = says("quit");
        window->onDelete = says("deleted");
    }
};

TEST_F(WindowLogOrderTest, QueuedWindowIsAddedAfterItsInitAndBeforeTheEndOfTheDisplaced) {
    RecordedWindow* const popup = makeWindow("p");
    RecordedWindow* const displaced = makeWindow("x");
    saysWhatHappens(popup, "p");
    saysWhatHappens(displaced, "x");
    popup->onQuit = popup->onDelete = nullptr;
    size_t stacked = 0;
    displaced->onDelete = [&] { stacked = windows.size(); };
    gPopupList = {displaced, popup};
    addWindow("a");
    EXPECT_EQ(run(), "p.init\nadd popup window\nx.quit\na is 1003, quit navora\n" + freed({0, 0}));
    EXPECT_EQ(stacked, 2u);
}

TEST_F(WindowLogOrderTest, ClosingIsLoggedWhenTheWindowIsGone) {
    addWindow("below");
    RecordedWindow* const above = addWindow("above");
    above->onInput = answers({1002});
    saysWhatHappens(above, "above");
    EXPECT_EQ(run(), "above.close\nabove.quit\nabove.deleted\na is 1002, popup current window\n"
                     "a is 1003, quit navora\n" +
                         freed({0}));
}

TEST_F(WindowLogOrderTest, LeavingIsLoggedAfterTheEndOfAWindowOfNegativeType) {
    saysWhatHappens(addWindow("a", -1), "a");
    EXPECT_EQ(run(), "a.quit\na.deleted\na is 1003, quit navora\n" + freed({}));
}

TEST_F(WindowLogOrderTest, FreeingIsLoggedBeforeTheEndOfEachWindow) {
    saysWhatHappens(addWindow("a", 1), "a");
    saysWhatHappens(addWindow("b", 2), "b");
    freeWindows(windows);
    EXPECT_EQ(takeLog(), "2 window to free\n"
                         "free window:title , type 2\nb.quit\nb.deleted\n"
                         "free window:title , type 1\na.quit\na.deleted\n");
}
