#include "core/input.h"
#include "support/input_model.h"
#include "support/input_test.h"

#include <vector>

/// Start and select, alone and together with the shoulders; on the keyboard unless said otherwise. What
/// the pad's buttons log beside is left out.
class HotkeyTest : public InputTest {
protected:
    static SDL_Event down(const std::string& name, bool pad = false) {
        return pad ? buttonDown(buttonOf(name)) : keyDown(keyOf(name));
    }
    static SDL_Event up(const std::string& name, bool pad = false) {
        return pad ? buttonUp(buttonOf(name)) : keyUp(keyOf(name));
    }

    static SDL_Keycode keyOf(const std::string& name) {
        return name == "start"    ? SDLK_RETURN
               : name == "select" ? SDLK_RCTRL
               : name == "left"   ? SDLK_TAB
                                  : SDLK_BACKSPACE;
    }
    static int buttonOf(const std::string& name) {
        return name == "start" ? 7 : name == "select" ? 6 : name == "left" ? 4 : 5;
    }
};

TEST_F(HotkeyTest, StartAloneGivesItsCode) {
    EXPECT_EQ(give(down("start")), 0);
    EXPECT_EQ(give(up("start")), 9);
}

TEST_F(HotkeyTest, SelectAloneGivesItsCode) {
    EXPECT_EQ(give(down("select")), 0);
    EXPECT_EQ(give(up("select")), 10);
}

TEST_F(HotkeyTest, ShoulderWhileStartIsHeldIsAHotkey) {
    give(down("start"));
    EXPECT_EQ(give(down("left")), 0);
    EXPECT_EQ(give(up("left")), 0);
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=1\n");
    EXPECT_EQ(give(up("start")), 0);
    give(down("start"));
    EXPECT_EQ(give(up("start")), 9) << "the release before cleared everything";
}

TEST_F(HotkeyTest, SoIsTheOtherShoulder) {
    give(down("start"));
    EXPECT_EQ(give(down("right")), 0);
    EXPECT_EQ(give(up("right")), 0);
    EXPECT_EQ(takeLog(), "hotkey2 select=0, start=1\n");
    EXPECT_EQ(give(up("start")), 0);
    EXPECT_EQ(give(up("start")), 9);
}

TEST_F(HotkeyTest, ShoulderReleasedAfterStartGivesItsCode) {
    give(down("start"));
    give(down("left"));
    EXPECT_EQ(give(up("start")), 0);
    EXPECT_EQ(give(up("left")), 12);
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=0\n");
}

TEST_F(HotkeyTest, ShoulderPressedBeforeStartIsNoHotkey) {
    give(down("left"));
    give(down("start"));
    EXPECT_EQ(give(up("left")), 0) << "start is held";
    EXPECT_EQ(give(up("start")), 9) << "but no hotkey was used";
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=1\n");
}

TEST_F(HotkeyTest, ShoulderWhileSelectIsHeldGivesNothing) {
    give(down("select"));
    give(down("left"));
    EXPECT_EQ(give(up("left")), 0);
    EXPECT_EQ(takeLog(), "hotkey1 select=1, start=0\n");
    EXPECT_EQ(give(up("select")), 10) << "holding select marks no hotkey as used";
}

TEST_F(HotkeyTest, SelectAfterAHotkeyGivesNothingUntilStartIsReleased) {
    give(down("start"));
    give(down("right"));
    give(up("right"));
    give(down("select"));
    EXPECT_EQ(give(up("select")), 0);
    give(down("select"));
    EXPECT_EQ(give(up("select")), 0) << "the mark stays";
    EXPECT_EQ(give(up("start")), 0);
    give(down("select"));
    EXPECT_EQ(give(up("select")), 10);
    EXPECT_EQ(takeLog(), "hotkey2 select=0, start=1\n");
}

TEST_F(HotkeyTest, BothHeldAreLogged) {
    give(down("select"));
    give(down("start"));
    EXPECT_EQ(give(up("left")), 0);
    EXPECT_EQ(give(up("right")), 0);
    EXPECT_EQ(takeLog(), "hotkey1 select=1, start=1\nhotkey2 select=1, start=1\n");
}

TEST_F(HotkeyTest, KeyboardAndPadShareWhatIsHeld) {
    give(down("start"));
    give(down("left", true));
    EXPECT_EQ(give(up("left", true)), 0);
    EXPECT_EQ(give(up("start", true)), 0);
    EXPECT_EQ(takeLog(), "joybuttonup 4\nclear repeat time\nhotkey1 select=0, start=1\n"
                         "joybuttonup 7\nclear repeat time\n");
}

TEST_F(HotkeyTest, GrabChangeForgetsAHeldStart) {
    for (const bool grabbed : {true, false}) {
        give(down("start"));
        setGrabbed(grabbed);
        EXPECT_EQ(give(up("left")), 12) << grabbed;
        EXPECT_EQ(takeLog(), "hotkey1 select=0, start=0\n");
    }
}

TEST_F(HotkeyTest, GrabChangeForgetsAHeldSelect) {
    for (const bool grabbed : {true, false}) {
        give(down("select"));
        setGrabbed(grabbed);
        EXPECT_EQ(give(up("right")), 13) << grabbed;
        EXPECT_EQ(takeLog(), "hotkey2 select=0, start=0\n");
    }
}

TEST_F(HotkeyTest, GrabChangeForgetsAUsedHotkey) {
    bool grabbed = false;
    for (const char* hotkey : {"left", "right"}) {
        give(down("start"));
        give(down(hotkey));
        setGrabbed(grabbed = !grabbed);
        EXPECT_EQ(give(up("select")), 10) << hotkey;
        EXPECT_EQ(give(up("start")), 9) << hotkey;
    }
}

TEST_F(HotkeyTest, GrabChangeIsNoticedWithoutAnEvent) {
    give(down("start"));
    setGrabbed(true);
    EXPECT_EQ(wait_event(nullptr), 0);
    setGrabbed(false);
    EXPECT_EQ(give(up("left")), 12);
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=0\n");
}

TEST_F(HotkeyTest, GrabThatComesAndGoesBetweenTwoCallsIsNotSeen) {
    give(down("start"));
    setGrabbed(true);
    setGrabbed(false);
    EXPECT_EQ(give(up("left")), 0);
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=1\n");
}

TEST_F(HotkeyTest, GrabDoesNotKeepEventsAway) {
    setGrabbed(true);
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 1);
    EXPECT_EQ(give(down("start")), 0);
    EXPECT_EQ(give(up("start")), 9);
}

/// Every order of pressing and releasing the four and of the grab changing, three steps deep, and then the
/// release of each: 9^3 stories on the keyboard, and as many on the pad.
class HotkeyStoriesTest : public HotkeyTest, public testing::WithParamInterface<bool> {
protected:
    static constexpr int actions = 9;
    static constexpr const char* names[] = {"start", "select", "left", "right"};

    void step(int action) {
        if (action == actions - 1) {
            setGrabbed(mGrabbed = !mGrabbed);
            return;
        }
        const char* const name = names[action / 2];
        const SDL_Event event = action % 2 ? up(name, GetParam()) : down(name, GetParam());
        const int wanted = mModel.give(event, mGrabbed, false, clock.now());
        EXPECT_EQ(give(event), wanted);
    }

    /// Both sides forget what is held.
    void startAfresh() {
        step(actions - 1);
        step(0);
        step(actions - 1);
        step(1);
    }

    InputModel mModel;
    bool mGrabbed = false;
};

TEST_P(HotkeyStoriesTest, GoAsTheyMust) {
    for (int story = 0; story < actions * actions * actions; ++story) {
        startAfresh();
        std::string told;
        for (int rest = story, i = 0; i < 3; ++i, rest /= actions) {
            told += std::to_string(rest % actions) + " ";
            step(rest % actions);
        }
        for (const int release : {5, 7, 3, 1, 1})
            step(release);
        EXPECT_EQ(takeLog(), mModel.takeLog()) << told;
        ASSERT_FALSE(HasFailure()) << "story " << told;
    }
}

INSTANTIATE_TEST_SUITE_P(OnKeyboardAndPad, HotkeyStoriesTest, testing::Bool());
