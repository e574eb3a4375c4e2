#include "core/input.h"
#include "support/input_test.h"
#include "support/virtual_pad.h"

class PadTest : public InputTest {};

static std::string released(int button) {
    return "joybuttonup " + std::to_string(button) + "\nclear repeat time\n";
}

TEST_F(PadTest, ButtonsGiveTheirCodesWhenReleased) {
    const struct {
        int button;
        int code;
    } rows[] = {{0, 2}, {1, 1}, {2, 4}, {3, 3}, {6, 10}, {7, 9}, {8, 11}};
    for (const auto& row : rows) {
        EXPECT_EQ(give(buttonDown(row.button)), 0) << row.button;
        EXPECT_EQ(takeLog(), "");
        EXPECT_EQ(give(buttonUp(row.button)), row.code) << row.button;
        EXPECT_EQ(takeLog(), released(row.button));
    }
}

TEST_F(PadTest, ShouldersGiveTheirCodesWhenReleased) {
    EXPECT_EQ(give(buttonDown(4)), 0);
    EXPECT_EQ(give(buttonUp(4)), 12);
    EXPECT_EQ(takeLog(), released(4) + "hotkey1 select=0, start=0\n");
    EXPECT_EQ(give(buttonDown(5)), 0);
    EXPECT_EQ(give(buttonUp(5)), 13);
    EXPECT_EQ(takeLog(), released(5) + "hotkey2 select=0, start=0\n");
}

TEST_F(PadTest, OtherButtonsGiveNothing) {
    for (const int button : {9, 10, 11, 14, 15, 16, 128, 255}) {
        EXPECT_EQ(give(buttonDown(button)), 0) << button;
        EXPECT_EQ(give(buttonUp(button)), 0) << button;
        EXPECT_EQ(takeLog(), released(button));
    }
}

TEST_F(PadTest, HatGivesDirectionsAndMarksThemHeld) {
    const struct {
        int value;
        int code;
    } rows[] = {{1, 5}, {4, 6}, {8, 7}, {2, 8}};
    for (const auto& row : rows) {
        clock.advance(7);
        EXPECT_EQ(give(hatMoved(row.value)), row.code);
        EXPECT_EQ(takeLog(), "set repeat time " + std::to_string(clock.now()) + "\n");
    }
}

TEST_F(PadTest, CentredAndDiagonalHatClearsWhatIsHeld) {
    for (const int value : {0, 1 | 2, 1 | 8, 4 | 2, 4 | 8, 5, 10, 15, 16, 255}) {
        EXPECT_EQ(give(hatMoved(value)), 0) << value;
        EXPECT_EQ(takeLog(), "clear repeat time\n");
    }
}

TEST_F(PadTest, JoystickAddedOpensTheJoysticksAgain) {
    SDL_Event event = plainEvent(0x653);
    event.cdevice.which = 3;
    EXPECT_EQ(give(event), 0);
    EXPECT_EQ(takeLog(), "joystick add 3\n");
    EXPECT_EQ(gTestHost.joystickOpenings, 1);
}

TEST_F(PadTest, JoystickRemovedOpensTheJoysticksAgain) {
    SDL_Event event = plainEvent(0x654);
    event.cdevice.which = -1;
    EXPECT_EQ(give(event), 0);
    EXPECT_EQ(takeLog(), "joystick remove -1\n");
    EXPECT_EQ(gTestHost.joystickOpenings, 1);
}

TEST_F(PadTest, OtherJoystickEventsGiveNothing) {
    for (const Uint32 type : {SDL_JOYBALLMOTION, SDL_JOYBATTERYUPDATED, SDL_JOYDEVICEADDED,
                              SDL_JOYDEVICEREMOVED, SDL_CONTROLLERBUTTONDOWN, SDL_CONTROLLERBUTTONUP,
                              SDL_CONTROLLERAXISMOTION, SDL_CONTROLLERDEVICEREMAPPED})
        EXPECT_EQ(give(plainEvent(type)), 0) << type;
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(gTestHost.joystickOpenings, 0);
}

/// The same with a pad that SDL takes for a real one.
class VirtualPadTest : public InputTest {
protected:
    void SetUp() override {
        InputTest::SetUp();
        ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_JOYSTICK), 0) << SDL_GetError();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    }

    /// The codes other than 0 of all events that wait.
    static std::vector<int> codes() {
        std::vector<int> codes;
        while (waitingEvents() > 0)
            if (const int code = wait_event(nullptr))
                codes.push_back(code);
        return codes;
    }

    /// Forgets the events of plugging the pad in.
    void settle() {
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        takeLog();
    }
};

TEST_F(VirtualPadTest, PluggingAGamePadInAndOutOpensTheJoysticks) {
    ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER), 0) << SDL_GetError();
    VirtualPad pad(SDL_JOYSTICK_TYPE_GAMECONTROLLER);
    SDL_FlushEvent(SDL_JOYAXISMOTION); // its triggers coming to rest
    EXPECT_THAT(codes(), testing::IsEmpty());
    EXPECT_EQ(takeLog(), "joystick add " + std::to_string(pad.deviceIndex()) + "\n");
    EXPECT_EQ(gTestHost.joystickOpenings, 1);
    pad.detach();
    EXPECT_THAT(codes(), testing::IsEmpty());
    EXPECT_EQ(takeLog(), "joystick remove " + std::to_string(pad.instance()) + "\n");
    EXPECT_EQ(gTestHost.joystickOpenings, 2);
}

TEST_F(VirtualPadTest, EveryButtonGivesItsCode) {
    VirtualPad pad;
    settle();
    for (int button = 0; button < 15; ++button) {
        pad.press(button);
        EXPECT_THAT(codes(), testing::IsEmpty());
        pad.release(button);
        constexpr int wanted[] = {2, 1, 4, 3, 12, 13, 10, 9, 11};
        if (button < 9)
            EXPECT_THAT(codes(), testing::ElementsAre(wanted[button])) << button;
        else
            EXPECT_THAT(codes(), testing::IsEmpty()) << button;
    }
    EXPECT_THAT(takeLog(), testing::EndsWith("joybuttonup 14\nclear repeat time\n"));
}

TEST_F(VirtualPadTest, HatGivesItsDirections) {
    VirtualPad pad;
    settle();
    for (const int value : {SDL_HAT_UP, SDL_HAT_DOWN, SDL_HAT_LEFT, SDL_HAT_RIGHT, SDL_HAT_CENTERED})
        pad.moveHat(value);
    EXPECT_THAT(codes(), testing::ElementsAre(5, 6, 7, 8));
    const std::string set = "set repeat time " + std::to_string(clock.now()) + "\n";
    EXPECT_EQ(takeLog(), set + set + set + set + "clear repeat time\n");
}

TEST_F(VirtualPadTest, AxesGiveDirectionsAndTriggers) {
    VirtualPad pad;
    settle();
    constexpr int wanted[] = {8, 6, 14, 8, 6, 15};
    for (int axis = 0; axis < 6; ++axis) {
        clock.advance(151);
        pad.moveAxis(axis, 32767);
        EXPECT_THAT(codes(), testing::ElementsAre(wanted[axis])) << axis;
        EXPECT_EQ(takeLog(), "joyaxis " + std::to_string(axis) + ", value 32767\n");
    }
}
