#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/threads.h"
#include "support/window_test.h"

#include <algorithm>

/// Handlers may change the stack under the loop, through gWinList.
class StackChangingTest : public WindowTest {
protected:
    static void pushDirectly(KestroWindow* window) { gWinList->push_back(window); }

    /// Takes a window off the stack without closing it.
    static void takeOff(KestroWindow* window) {
        gWinList->erase(std::remove(gWinList->begin(), gWinList->end(), window), gWinList->end());
    }
};

TEST_F(StackChangingTest, WindowPushedByAHandlerIsClosedByItsCode) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [this, once = true]() mutable {
        if (!once)
            return 1003;
        once = false;
        pushDirectly(makeWindow("b"));
        return 1002;
    };
    EXPECT_EQ(run(), popped(1002) + left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling b.onClose b.quit b.deleted " + drawn("a") +
                               "a.eventHandling a.quit a.deleted");
}

TEST_F(StackChangingTest, WindowPushedByAHandlerIsTheActiveOneOfTheNextFrame) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [this] {
        pushDirectly(makeWindow("b"));
        return 0;
    };
    EXPECT_EQ(run(), left(1003) + freed({0, 0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling " + drawn("b") +
                               "b.eventHandling b.quit b.deleted a.quit a.deleted");
}

TEST_F(StackChangingTest, WindowPushedByAHandlerOfNegativeTypeIsClosedOnLeaving) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [this] {
        pushDirectly(makeWindow("b", -1));
        return 1003;
    };
    EXPECT_EQ(run(), left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling b.quit b.deleted a.quit a.deleted");
}

TEST_F(StackChangingTest, LastWindowTakenAwayWhileItIsDrawnGetsNoInputAndEndsTheLoop) {
    RecordedWindow* const a = addWindow("a");
    a->onDraw = [a] { takeOff(a); };
    EXPECT_EQ(run(), freed({}));
    EXPECT_EQ(takeCalls() + " ", drawn("a"));
    delete a;
}

TEST_F(StackChangingTest, FirstInputOfAFrameGoesToTheWindowThatWasDrawn) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = answers({25});
    a->onDraw = [this, once = true]() mutable {
        if (once)
            pushDirectly(makeWindow("b"));
        once = false;
    };
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling " + drawn("b") +
                               "b.eventHandling b.quit b.deleted a.quit a.deleted");
}

TEST_F(StackChangingTest, WindowThatIsGoneAfterItsDrawingGetsNoInput) {
    addWindow("a");
    RecordedWindow* const b = addWindow("b");
    b->onDraw = [b] {
        takeOff(b);
        b->onDraw = nullptr;
    };
    run();
    delete b;
    EXPECT_THAT(takeCalls(), testing::StartsWith(drawn("b") + "a.eventHandling"));
}

TEST_F(StackChangingTest, HandlerThatEmptiesTheStackEndsTheLoop) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [a] {
        takeOff(a);
        return 0;
    };
    EXPECT_EQ(run(), freed({}));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling");
    delete a;
}

TEST_F(StackChangingTest, QuitCodeIsLoggedEvenWhenTheStackIsEmptyByThen) {
    RecordedWindow* const a = addWindow("a", -1);
    a->onInput = [a] {
        takeOff(a);
        return 1003;
    };
    EXPECT_EQ(run(), left(1003) + freed({}));
    delete a;
}

TEST_F(StackChangingTest, EmptyStackHasNothingToClose) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [a] {
        takeOff(a);
        return 1005;
    };
    EXPECT_THAT(run(), testing::EndsWith(freed({})));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling");
    delete a;
}

TEST_F(StackChangingTest, WindowPushedByTheQuitOfAClosedOneStays) {
    addWindow("a");
    RecordedWindow* const b = addWindow("b");
    b->onInput = answers({1002});
    b->onQuit = [this] { pushDirectly(makeWindow("c")); };
    EXPECT_EQ(run(), popped(1002) + left(1003) + freed({0, 0}));
    EXPECT_EQ(takeCalls(), drawn("b") + "b.eventHandling b.onClose b.quit b.deleted " + drawn("c") +
                               "c.eventHandling c.quit c.deleted a.quit a.deleted");
}

TEST_F(StackChangingTest, WindowRemovedByTheDestructorOfAClosedOneIsNotClosedForIt) {
    RecordedWindow* const a = addWindow("a");
    RecordedWindow* const b = addWindow("b");
    RecordedWindow* const c = addWindow("c");
    c->onInput = answers({1005});
    c->onDelete = [b] { takeOff(b); };
    EXPECT_EQ(run(), popped(1005) + left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("c") + "c.eventHandling c.onClose c.quit c.deleted " + drawn("a") +
                               "a.eventHandling a.quit a.deleted");
    (void)a;
    delete b;
}

TEST_F(StackChangingTest, WindowThatTakesItselfOffInQuitIsDeletedOnce) {
    addWindow("a");
    RecordedWindow* const b = addWindow("b");
    b->onInput = answers({1002});
    b->onQuit = [b] { takeOff(b); };
    run();
    EXPECT_EQ(takeCalls(), drawn("b") + "b.eventHandling b.onClose b.quit b.deleted " + drawn("a") +
                               "a.eventHandling a.quit a.deleted");
}

TEST_F(StackChangingTest, WindowOfNegativeTypeThatTakesItselfOffInQuitIsDeletedOnce) {
    addWindow("a");
    RecordedWindow* const b = addWindow("b", -1);
    b->onQuit = [b] { takeOff(b); };
    EXPECT_EQ(run(), left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("b") + "b.eventHandling b.quit b.deleted a.quit a.deleted");
}

TEST_F(StackChangingTest, NullOnTheStackIsPoppedWithoutACall) {
    addWindow("a");
    windows.push_back(nullptr);
    windows.push_back(nullptr);
    EXPECT_EQ(run(), left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.quit a.deleted");
}

TEST_F(StackChangingTest, StackOfNullsIsAnEmptyOne) {
    windows = {nullptr, nullptr};
    EXPECT_EQ(run(), freed({}));
}

TEST_F(StackChangingTest, NullThatAHandlerPushesIsPopped) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [once = true]() mutable {
        if (!once)
            return 1003;
        once = false;
        pushDirectly(nullptr);
        return 0;
    };
    EXPECT_EQ(run(), left(1003) + freed({0}));
}

TEST_F(StackChangingTest, NullOnTopIsLeftWithAQuitCode) {
    RecordedWindow* const a = addWindow("a", -1);
    a->onInput = [] {
        pushDirectly(nullptr);
        return 1003;
    };
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.quit a.deleted");
    EXPECT_TRUE(windows.empty());
}

class NestedRunTest : public StackChangingTest {};

TEST_F(NestedRunTest, InnerRunEndsFirstAndTheOuterGoesOn) {
    RecordedWindow* const outer = addWindow("outer");
    std::vector<KestroWindow*> inner{makeWindow("inner")};
    std::vector<KestroWindow*>* during = nullptr;
    static_cast<RecordedWindow*>(inner[0])->onDraw = [&] { during = gWinList; };
    outer->onInput = [&, once = true]() mutable {
        if (!once)
            return 1003;
        once = false;
        runWindows(inner);
        return 0;
    };
    EXPECT_EQ(run(), "runWindows\nclear repeat time\n" + left(1003) + freed({0}) + left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("outer") + "outer.eventHandling " + drawn("inner") +
                               "inner.eventHandling inner.quit inner.deleted " + drawn("outer") +
                               "outer.eventHandling outer.quit outer.deleted");
    EXPECT_EQ(during, &inner);
    EXPECT_EQ(gWinList, &windows);
}

TEST_F(NestedRunTest, ThreadOutlivesTheInnerRun) {
    RecordedWindow* const outer = addWindow("outer");
    int threads = 0;
    outer->onInput = [&] {
        EXPECT_TRUE(threadAppears("repeatkey"));
        std::vector<KestroWindow*> inner{makeWindow("inner")};
        runWindows(inner);
        QuickRepeat::awaitLook();
        threads = threadsNamed("repeatkey");
        return 1003;
    };
    run();
    EXPECT_EQ(threads, 1);
    EXPECT_TRUE(threadDisappears("repeatkey"));
}

class FreeWindowsTest : public WindowTest {};

TEST_F(FreeWindowsTest, FreesFromTheTopDown) {
    addWindow("a", 1);
    addWindow("b", 2);
    addWindow("c", -3);
    freeWindows(windows);
    EXPECT_EQ(takeLog(), "3 window to free\n"
                         "free window:title , type -3\n"
                         "free window:title , type 2\n"
                         "free window:title , type 1\n");
    EXPECT_EQ(takeCalls(), "c.quit c.deleted b.quit b.deleted a.quit a.deleted");
    EXPECT_TRUE(windows.empty());
}

TEST_F(FreeWindowsTest, EmptyStackOnlyLogsItsCount) {
    freeWindows(windows);
    EXPECT_EQ(takeLog(), "0 window to free\n");
}

TEST_F(FreeWindowsTest, WindowIsOffTheStackWhenItsQuitRuns) {
    addWindow("a");
    size_t size = 99;
    addWindow("b")->onQuit = [&] { size = windows.size(); };
    freeWindows(windows);
    takeLog();
    EXPECT_EQ(size, 1u);
}

TEST_F(FreeWindowsTest, LogsTheTitleOfTheWindow) {
    addWindow("a")->titleId = 7;
    freeWindows(windows);
    EXPECT_EQ(takeLog(), "1 window to free\nfree window:title MENU, type 0\n");
}

TEST_F(FreeWindowsTest, PassesOverNull) {
    addWindow("a");
    windows.push_back(nullptr);
    freeWindows(windows);
    EXPECT_THAT(takeLog(), testing::EndsWith("free window:title , type 0\n"));
    EXPECT_EQ(takeCalls(), "a.quit a.deleted");
    EXPECT_TRUE(windows.empty());
}

TEST_F(FreeWindowsTest, WindowPushedByAQuitIsFreedToo) {
    addWindow("a")->onQuit = [this] { windows.push_back(makeWindow("b")); };
    freeWindows(windows);
    takeLog();
    EXPECT_EQ(takeCalls(), "a.quit a.deleted b.quit b.deleted");
    EXPECT_TRUE(windows.empty());
}
