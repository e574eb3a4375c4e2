#include "core/window_stack.h"
#include "support/input_events.h"
#include "support/window_test.h"

class PopupQueueTest : public WindowTest {};

static constexpr const char* added = "add popup window\n";

TEST_F(PopupQueueTest, QueuedWindowIsInitialisedAndDrawnBeforeAnyInput) {
    addWindow("a");
    add2PopupList(makeWindow("p"));
    EXPECT_EQ(run(), added + left(1003) + freed({0, 0}));
    EXPECT_EQ(takeCalls(),
              drawn("a") + "p.init " + drawn("p") + "p.eventHandling p.quit p.deleted a.quit a.deleted");
    EXPECT_TRUE(gPopupList.empty());
}

TEST_F(PopupQueueTest, TakingAWindowIsNotPaced) {
    addWindow("a");
    add2PopupList(makeWindow("p"));
    run();
    EXPECT_TRUE(clock.takeSleeps().empty());
}

TEST_F(PopupQueueTest, QueuedFromAHandlerItComesAfterTheNextDrawing) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [&] {
        add2PopupList(makeWindow("p"));
        return 0;
    };
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling " + drawn("a") + "p.init " + drawn("p") +
                               "p.eventHandling p.quit p.deleted a.quit a.deleted");
}

TEST_F(PopupQueueTest, QueuedWhileDrawingItComesInTheSameFrame) {
    RecordedWindow* const a = addWindow("a");
    a->onDraw = [this, once = true]() mutable {
        if (once)
            add2PopupList(makeWindow("p"));
        once = false;
    };
    run();
    EXPECT_EQ(takeCalls(),
              drawn("a") + "p.init " + drawn("p") + "p.eventHandling p.quit p.deleted a.quit a.deleted");
}

TEST_F(PopupQueueTest, UnderTheQueuedWindowTheOldOneComesBack) {
    addWindow("a");
    RecordedWindow* const popup = makeWindow("p");
    popup->onInput = answers({1002});
    add2PopupList(popup);
    EXPECT_EQ(run(), added + std::string("a is 1002, popup current window\n") + left(1003) + freed({0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "p.init " + drawn("p") +
                               "p.eventHandling p.onClose p.quit p.deleted " + drawn("a") +
                               "a.eventHandling a.quit a.deleted");
}

TEST_F(PopupQueueTest, NewestWinsAndTheDisplacedIsDeletedWithoutInit) {
    add2PopupList(makeWindow("first"));
    add2PopupList(makeWindow("second"));
    EXPECT_EQ(takeCalls(), "first.quit first.deleted");
    addWindow("a");
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "second.init " + drawn("second") +
                               "second.eventHandling second.quit second.deleted a.quit a.deleted");
}

TEST_F(PopupQueueTest, TwoInOneFrameShowOnlyTheSecond) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = [&] {
        add2PopupList(makeWindow("first"));
        add2PopupList(makeWindow("second"));
        return 0;
    };
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling first.quit first.deleted " + drawn("a") +
                               "second.init " + drawn("second") +
                               "second.eventHandling second.quit second.deleted a.quit a.deleted");
}

TEST_F(PopupQueueTest, AtMostOneWindowWaits) {
    RecordedWindow* last = nullptr;
    for (int i = 0; i < 5; ++i)
        add2PopupList(last = makeWindow("p"));
    EXPECT_THAT(gPopupList, testing::ElementsAre(last));
}

TEST_F(PopupQueueTest, QueueingTheSameWindowAgainKeepsIt) {
    RecordedWindow* const popup = makeWindow("p");
    add2PopupList(popup);
    add2PopupList(popup);
    EXPECT_EQ(takeCalls(), "");
    EXPECT_THAT(gPopupList, testing::ElementsAre(popup));
}

TEST_F(PopupQueueTest, QueueingAWindowAgainDisplacesTheOthers) {
    RecordedWindow* const popup = makeWindow("p");
    gPopupList = {makeWindow("x"), popup, makeWindow("y")};
    add2PopupList(popup);
    EXPECT_EQ(takeCalls(), "x.quit x.deleted y.quit y.deleted");
    EXPECT_THAT(gPopupList, testing::ElementsAre(popup));
}

TEST_F(PopupQueueTest, NullEmptiesTheQueue) {
    add2PopupList(makeWindow("p"));
    add2PopupList(nullptr);
    EXPECT_EQ(takeCalls(), "p.quit p.deleted");
    EXPECT_TRUE(gPopupList.empty());
}

TEST_F(PopupQueueTest, NullInTheQueueIsPassedOver) {
    gPopupList = {nullptr, makeWindow("x")};
    RecordedWindow* const popup = makeWindow("p");
    add2PopupList(popup);
    EXPECT_EQ(takeCalls(), "x.quit x.deleted");
    EXPECT_THAT(gPopupList, testing::ElementsAre(popup));
}

TEST_F(PopupQueueTest, LoopTakesTheLastOfSeveralAndDiscardsTheOthers) {
    gPopupList = {makeWindow("x"), nullptr, makeWindow("y"), makeWindow("p")};
    addWindow("a");
    EXPECT_EQ(run(), added + left(1003) + freed({0, 0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "p.init x.quit x.deleted y.quit y.deleted " + drawn("p") +
                               "p.eventHandling p.quit p.deleted a.quit a.deleted");
    EXPECT_TRUE(gPopupList.empty());
}

TEST_F(PopupQueueTest, NullAsTheNewestIsNoWindow) {
    gPopupList = {makeWindow("x"), nullptr};
    addWindow("a");
    EXPECT_EQ(run(), left(1003) + freed({0}));
    EXPECT_THAT(takeCalls(), testing::AllOf(testing::HasSubstr("x.quit x.deleted"),
                                            testing::Not(testing::HasSubstr("x.init"))));
}

TEST_F(PopupQueueTest, InitThatQueuesAnotherIsShownFirstItself) {
    addWindow("a");
    RecordedWindow* const popup = makeWindow("p");
    popup->onInit = [this] { add2PopupList(makeWindow("q")); };
    add2PopupList(popup);
    EXPECT_EQ(run(), added + std::string(added) + left(1003) + freed({0, 0, 0}));
    EXPECT_EQ(takeCalls(), drawn("a") + "p.init " + drawn("p") + "q.init " + drawn("q") +
                               "q.eventHandling q.quit q.deleted p.quit p.deleted a.quit a.deleted");
}

TEST_F(PopupQueueTest, WindowQueuedByADisplacedOnesEndWaitsForTheNextFrame) {
    RecordedWindow* const displaced = makeWindow("x");
    displaced->onQuit = [this] { add2PopupList(makeWindow("q")); };
    gPopupList = {displaced, makeWindow("p")};
    addWindow("a");
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "p.init x.quit x.deleted " + drawn("p") + "q.init " + drawn("q") +
                               "q.eventHandling q.quit q.deleted p.quit p.deleted a.quit a.deleted");
}

TEST_F(PopupQueueTest, WindowQueuedByTheEndOfADisplacedOneIsDisplacedToo) {
    RecordedWindow* const displaced = makeWindow("x");
    displaced->onQuit = [this] { add2PopupList(makeWindow("q")); };
    displaced->onDelete = [this] { add2PopupList(makeWindow("r")); };
    add2PopupList(displaced);
    RecordedWindow* const popup = makeWindow("p");
    add2PopupList(popup);
    EXPECT_EQ(takeCalls(), "x.quit x.deleted q.quit q.deleted r.quit r.deleted");
    EXPECT_THAT(gPopupList, testing::ElementsAre(popup));
}

TEST_F(PopupQueueTest, EmptyingTheQueueLeavesNothingOfWhatIsQueuedMeanwhile) {
    RecordedWindow* const displaced = makeWindow("x");
    displaced->onQuit = [this] { add2PopupList(makeWindow("q")); };
    add2PopupList(displaced);
    add2PopupList(nullptr);
    EXPECT_EQ(takeCalls(), "x.quit x.deleted q.quit q.deleted");
    EXPECT_TRUE(gPopupList.empty());
}

TEST_F(PopupQueueTest, WindowQueuedAgainByADisplacedOneIsQueuedOnce) {
    RecordedWindow* const popup = makeWindow("p");
    RecordedWindow* const displaced = makeWindow("x");
    displaced->onQuit = [popup] { add2PopupList(popup); };
    add2PopupList(displaced);
    add2PopupList(popup);
    EXPECT_EQ(takeCalls(), "x.quit x.deleted");
    EXPECT_THAT(gPopupList, testing::ElementsAre(popup));
}

TEST_F(PopupQueueTest, WindowOfTheStackComesToItsTop) {
    RecordedWindow* const below = addWindow("below");
    RecordedWindow* const above = addWindow("above");
    above->onInput = [&, once = true]() mutable {
        if (!once)
            return 1003;
        once = false;
        add2PopupList(below);
        return 0;
    };
    below->onInput = answers({1002});
    run();
    EXPECT_EQ(takeCalls(), drawn("above") + "above.eventHandling " + drawn("above") + "below.init " +
                               drawn("below") +
                               "below.eventHandling below.onClose below.quit below.deleted " +
                               drawn("above") + "above.eventHandling above.quit above.deleted");
}

TEST_F(PopupQueueTest, DisplacedWindowOfTheStackLeavesIt) {
    RecordedWindow* const below = addWindow("below");
    addWindow("above");
    gPopupList = {below, makeWindow("p")};
    EXPECT_EQ(run(), added + left(1003) + freed({0, 0}));
    EXPECT_EQ(takeCalls(), drawn("above") + "p.init below.quit below.deleted " + drawn("p") +
                               "p.eventHandling p.quit p.deleted above.quit above.deleted");
}

TEST_F(PopupQueueTest, WindowThatAlwaysQueuesAnotherHoldsNothingUp) {
    bool again = true;
    std::function<RecordedWindow*()> makeStubborn = [&] {
        RecordedWindow* const window = makeWindow("x");
        window->onQuit = [&] {
            if (again)
                add2PopupList(makeStubborn());
        };
        return window;
    };
    add2PopupList(makeStubborn());
    RecordedWindow* const popup = makeWindow("p");
    add2PopupList(popup);
    ASSERT_FALSE(gPopupList.empty());
    EXPECT_EQ(gPopupList.back(), popup);
    EXPECT_THAT(takeCalls(), testing::StartsWith("x.quit x.deleted "));
    again = false;
    addWindow("a");
    run();
    EXPECT_THAT(takeCalls(), testing::AllOf(testing::HasSubstr("p.init x.quit x.deleted " + drawn("p")),
                                            testing::Not(testing::HasSubstr("x.init"))));
    EXPECT_TRUE(gPopupList.empty());
}

TEST_F(PopupQueueTest, WindowQueuedWithTheLastCodeWaitsForTheNextRun) {
    RecordedWindow* const a = addWindow("a");
    RecordedWindow* const popup = makeWindow("p");
    a->onInput = [&] {
        add2PopupList(popup);
        return 1003;
    };
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.quit a.deleted");
    EXPECT_THAT(gPopupList, testing::ElementsAre(popup));

    addWindow("b");
    EXPECT_EQ(run(), added + left(1003) + freed({0, 0}));
    EXPECT_EQ(takeCalls(),
              drawn("b") + "p.init " + drawn("p") + "p.eventHandling p.quit p.deleted b.quit b.deleted");
}

TEST_F(PopupQueueTest, WindowQueuedByTheLastOneThatClosesWaitsForTheNextRun) {
    RecordedWindow* const a = addWindow("a");
    a->onInput = answers({1005});
    a->onClosing = [this] { add2PopupList(makeWindow("p")); };
    run();
    EXPECT_EQ(takeCalls(), drawn("a") + "a.eventHandling a.onClose a.quit a.deleted");
    EXPECT_EQ(gPopupList.size(), 1u);
}

TEST_F(PopupQueueTest, AnEmptyStackTakesNoQueuedWindow) {
    RecordedWindow* const popup = makeWindow("p");
    add2PopupList(popup);
    EXPECT_EQ(run(), freed({}));
    EXPECT_EQ(takeCalls(), "");
    EXPECT_THAT(gPopupList, testing::ElementsAre(popup));
}

TEST_F(PopupQueueTest, QueuedWindowIsNotTheActiveOneUntilTheFrameEnds) {
    addWindow("below");
    RecordedWindow* const above = addWindow("above");
    above->onInput = [&] {
        add2PopupList(makeWindow("p"));
        return 1002;
    };
    run();
    EXPECT_EQ(takeCalls(), drawn("above") + "above.eventHandling above.onClose above.quit above.deleted " +
                               drawn("below") + "p.init " + drawn("p") +
                               "p.eventHandling p.quit p.deleted below.quit below.deleted");
}
