#include "core/window.h"
#include "support/kestro_test.h"
#include "support/plain_window.h"
#include "support/recorded_window.h"
#include "system/language.h"

#include <string>

class KestroWindowTest : public KestroTest {};

TEST_F(KestroWindowTest, KeepsTitleAndType) {
    const PlainWindow window(7, -3);
    EXPECT_EQ(window.titleId, 7);
    EXPECT_EQ(window.type, -3);
}

TEST_F(KestroWindowTest, TitleIsTheLanguageString) {
    PlainWindow window(4, 0);
    EXPECT_STREQ(window.getTitle(), "OPEN");
}

TEST_F(KestroWindowTest, NegativeTitleIdIsTheEmptyTitle) {
    PlainWindow window(-1, 0);
    EXPECT_STREQ(window.getTitle(), "");
}

TEST_F(KestroWindowTest, TitleFollowsAChangeOfTitleId) {
    PlainWindow window(4, 0);
    window.titleId = 5;
    EXPECT_STREQ(window.getTitle(), "BACK");
}

TEST_F(KestroWindowTest, DumpLogsTitleAndType) {
    PlainWindow window(1, 42);
    window.dump();
    EXPECT_EQ(takeLog(), "title OK, type 42\n");
}

TEST_F(KestroWindowTest, DumpOfAWindowWithoutTitleLogsAnEmptyOne) {
    PlainWindow window(-5, -1);
    window.dump();
    EXPECT_EQ(takeLog(), "title , type -1\n");
}

TEST_F(KestroWindowTest, DumpOfAnUnknownTitleLogsThatWord) {
    PlainWindow window(99, 0);
    window.dump();
    EXPECT_EQ(takeLog(), "title wrongbeef, type 0\n");
}

TEST_F(KestroWindowTest, DumpDoesNotAskTheWindowForItsTitle) {
    class Liar : public PlainWindow {
    public:
        using PlainWindow::PlainWindow;
        const char* getTitle() override { return "something else"; }
    };
    Liar window(0, 0);
    window.dump();
    EXPECT_EQ(takeLog(), "title Cancel, type 0\n");
}

TEST_F(KestroWindowTest, PostUpdateAndOnCloseDoNothingByDefault) {
    PlainWindow window(2, 9);
    window.postUpdate();
    window.onClose();
    EXPECT_EQ(window.titleId, 2);
    EXPECT_EQ(window.type, 9);
}

TEST_F(KestroWindowTest, IsDeletedThroughItsBase) {
    WindowLog calls;
    const KestroWindow* const window = new RecordedWindow(calls, "a");
    delete window;
    EXPECT_THAT(calls, testing::ElementsAre("a.deleted"));
}
