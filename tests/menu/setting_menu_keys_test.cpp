#include "core/frame_rate.h"
#include "core/window_stack.h"
#include "support/fake_clock.h"
#include "support/recorded_window.h"
#include "support/setting_menu_test.h"

#include <algorithm>
#include <climits>
#include <random>

using testing::ElementsAre;

class SettingMenuKeysTest : public SettingMenuTest {};

TEST_F(SettingMenuKeysTest, TheBackKeyAndTheThirdFaceButtonLeave) {
    add(new RecordedAction(actions, 5))->answer = 0;
    for (const int swap : {0, 1, -1}) {
        gTestHost.table[19] = swap;
        EXPECT_EQ(press(swap ? 1 : 2), 1002);
        EXPECT_EQ(press(3), 1002);
    }
    EXPECT_TRUE(log.codes.empty());
    EXPECT_TRUE(actions.ran.empty());
    EXPECT_TRUE(actions.ranSecondary.empty());
}

TEST_F(SettingMenuKeysTest, ARowThatHandlesAConfirmationGivesMinusOneForAAndElevenForB) {
    RecordedSettingRow* const row = add(new RecordedAction(actions, 5));
    for (const int answer : {0, 1, 1002}) {
        row->answer = answer;
        gTestHost.table[19] = 0;
        EXPECT_EQ(press(1), -1);
        gTestHost.table[19] = 1;
        EXPECT_EQ(press(2), 11);
    }
    EXPECT_THAT(log.codes, ElementsAre(1, 2, 1, 2, 1, 2));
    EXPECT_TRUE(actions.ran.empty());
}

TEST_F(SettingMenuKeysTest, ARowThatDoesNotHandleAConfirmationRunsItsAction) {
    RecordedSettingRow* const row = add(new RecordedAction(actions, 1005));
    for (const int answer : {-1, -2, INT_MIN}) {
        row->answer = answer;
        gTestHost.table[19] = 0;
        EXPECT_EQ(press(1), 1005);
        gTestHost.table[19] = 1;
        EXPECT_EQ(press(2), 1005);
    }
    EXPECT_EQ(actions.ran.size(), 6u);
}

TEST_F(SettingMenuKeysTest, TheResultOfAnActionIsNotClamped) {
    add(new RecordedAction(actions, -55));
    EXPECT_EQ(press(1), -55);
    EXPECT_EQ(press(4), -55);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SettingMenuKeysTest, TheFourthFaceButtonConfirmsWhateverTheSwap) {
    RecordedSettingRow* const row = add(new RecordedAction(actions, 5));
    for (const int swap : {0, 1}) {
        gTestHost.table[19] = swap;
        row->answer = 0;
        EXPECT_EQ(press(4), -1);
        row->answer = -1;
        EXPECT_EQ(press(4), 5);
    }
    EXPECT_THAT(log.codes, ElementsAre(4, 4, 4, 4));
    EXPECT_EQ(actions.ran.size(), 2u);
}

TEST_F(SettingMenuKeysTest, LeftAndRightGoOnlyToTheRow) {
    RecordedSettingRow* const row = add(new RecordedAction(actions, 5));
    for (const int swap : {0, 1})
        for (const int answer : {-1, 0, 7}) {
            gTestHost.table[19] = swap;
            row->answer = answer;
            EXPECT_EQ(press(7), -1);
            EXPECT_EQ(press(8), -1);
        }
    EXPECT_THAT(log.codes, ElementsAre(7, 8, 7, 8, 7, 8, 7, 8, 7, 8, 7, 8));
    EXPECT_TRUE(actions.ran.empty());
}

TEST_F(SettingMenuKeysTest, TheMenuKeyGivesElevenAndAnythingElseMinusOne) {
    add(new RecordedAction(actions, 5))->answer = 0;
    for (const int swap : {0, 1}) {
        gTestHost.table[19] = swap;
        EXPECT_EQ(press(11), 11);
        for (const int code : {0, 9, 10, 12, 13, 14, 15, 25, 26, 42, 43, 44, 1002, 1003, 1004, 1005, -5})
            EXPECT_EQ(press(code), -1) << code;
    }
    EXPECT_TRUE(log.codes.empty());
    EXPECT_TRUE(actions.ran.empty());
}

TEST_F(SettingMenuKeysTest, UpAndDownMoveTheCursor) {
    for (int i = 0; i < 3; ++i)
        add();
    EXPECT_EQ(press(6), -1);
    EXPECT_EQ(menu->getCursor(), 1);
    EXPECT_EQ(press(5), -1);
    EXPECT_EQ(menu->getCursor(), 0);
    EXPECT_EQ(press(5), -1); // wraps
    EXPECT_EQ(menu->getCursor(), 2);
    EXPECT_EQ(press(6), -1);
    EXPECT_EQ(menu->getCursor(), 0);
    menu->setWrap(false);
    EXPECT_EQ(press(5), -1);
    EXPECT_EQ(menu->getCursor(), 0);
    menu->setCursor(2);
    EXPECT_EQ(press(6), -1); // down always wraps
    EXPECT_EQ(menu->getCursor(), 0);
    EXPECT_TRUE(log.codes.empty());
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SettingMenuKeysTest, MovesGoThroughTheVirtualOperations) {
    class Noting : public SettingMenu {
    public:
        std::vector<std::string> moves;
        int moveForward() override { return moves.emplace_back("down"), 1002; }
        int moveBackward() override { return moves.emplace_back("up"), 1008; }
    };
    Noting noting;
    takeLog();
    pressCode(5);
    EXPECT_EQ(noting.eventHandling(), -1);
    pressCode(6);
    EXPECT_EQ(noting.eventHandling(), -1);
    EXPECT_THAT(noting.moves, ElementsAre("up", "down"));
}

TEST_F(SettingMenuKeysTest, AHeldKeyNeverJumps) {
    FakeClock clock;
    for (int i = 0; i < 40; ++i)
        add();
    for (int pressed = 1; pressed <= 30; ++pressed) {
        clock.advance(30);
        press(6);
        ASSERT_EQ(menu->getCursor(), pressed);
    }
}

TEST_F(SettingMenuKeysTest, NoKeyBoostsTheFrameRate) {
    touchBoostFps(0); // what a test before this one has left
    add();
    touchBoostFps(0); // one of the tests before may have left a boost
    FakeClock clock;
    WindowLog calls;
    auto* const window = new RecordedWindow(calls, "page");
    int code = 0;
    window->onInput = [&] {
        if (code > 15)
            return 1003;
        pressCode(code++);
        menu->eventHandling();
        return 0;
    };
    std::vector<KestroWindow*> windows{window};
    runWindows(windows);
    takeLog();
    EXPECT_EQ(clock.takeSleeps(), std::vector<uint64_t>(16, 100000));
}

TEST_F(SettingMenuKeysTest, WithoutRowsNothingIsHandled) {
    const int results[] = {-1, -1, 1002, 1002, -1, -1, -1, -1, -1, -1, -1, 11, -1};
    for (int code = 0; code < 13; ++code) {
        menu->setCursor(0);
        EXPECT_EQ(press(code), results[code]) << code;
        menu->setCursor(-1);
        EXPECT_EQ(press(code), results[code]) << code;
    }
    gTestHost.table[19] = 1;
    EXPECT_EQ(press(1), 1002);
    EXPECT_EQ(press(2), -1);
}

TEST_F(SettingMenuKeysTest, ReadsRealKeys) {
    add();
    add();
    pressKey(SDLK_DOWN);
    EXPECT_EQ(menu->eventHandling(), -1);
    EXPECT_EQ(menu->getCursor(), 1);
    pressKey(SDLK_LCTRL, false);
    EXPECT_EQ(menu->eventHandling(), 1002);
    pressKey(SDLK_ESCAPE, false);
    EXPECT_EQ(menu->eventHandling(), 11);
}

TEST_F(SettingMenuKeysTest, MovesAndScrollsLikeASlidingWindow) {
    std::mt19937 random(5);
    for (const int rows : {1, 5, 6, 7, 30}) {
        menu = std::make_unique<OpenSettingMenu>();
        for (int i = 0; i < rows; ++i)
            add();
        int cursor = 0;
        int top = 0;
        const int page = std::min(rows, 6);
        for (int i = 0; i < 1000; ++i) {
            const bool wraps = random() % 2;
            const bool down = random() % 8 < (i / 40 % 2 ? 6u : 2u);
            menu->setWrap(wraps);
            press(down ? 6 : 5);
            cursor = down ? (cursor + 1) % rows : cursor > 0 ? cursor - 1 : wraps ? rows - 1 : 0;
            ASSERT_EQ(menu->getCursor(), cursor);
            menu->draw();
            top = std::clamp(top, cursor - page + 1, cursor);
            ASSERT_EQ(menu->getFirstVisible(), top);
            ASSERT_EQ(menu->getLastVisible(), top + page - 1);
        }
    }
}
