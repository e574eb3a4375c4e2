#include "hostkit/pads.h"

#include "core/host.h"
#include "support/known_pad.h"
#include "support/pad_test.h"

#include <SDL.h>

using testing::ElementsAre;
using testing::IsEmpty;

class PadsTest : public PadTest {};

TEST_F(PadsTest, EveryButtonHasItsNumberByPosition) {
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    const struct {
        int reported;
        const char* number;
    } buttons[] = {{14, "0"}, {0, "1"}, {13, "2"}, {1, "3"}, {12, "4"}, {2, "5"},
                   {11, "6"}, {3, "7"}, {10, "8"}, {9, "9"}, {8, "10"}};
    for (const auto& [reported, number] : buttons) {
        pad.press(reported);
        EXPECT_THAT(takeEvents(), ElementsAre("down " + std::string(number))) << reported;
        pad.release(reported);
        EXPECT_THAT(takeEvents(), ElementsAre("up " + std::string(number))) << reported;
    }
}

TEST_F(PadsTest, ButtonsMeanTheirPositionToTheWindows) {
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    const struct {
        int reported;
        int code;
    } buttons[] = {{14, 2}, {0, 1}, {13, 4}, {1, 3}, {12, 12}, {2, 13}, {11, 10}, {3, 9}, {10, 11}};
    for (const auto& [reported, code] : buttons) {
        pad.press(reported);
        EXPECT_THAT(takeCodes(), IsEmpty());
        pad.release(reported);
        EXPECT_THAT(takeCodes(), ElementsAre(code)) << reported;
        takeLog();
    }
}

TEST_F(PadsTest, TheLabelsOnTheButtonsDoNotCount) {
    describePads("a:b1,b:b0,x:b3,y:b2,hint:SDL_GAMECONTROLLER_USE_BUTTON_LABELS:=1");
    describePads("a:b0,b:b1,x:b2,y:b3,hint:!SDL_GAMECONTROLLER_USE_BUTTON_LABELS:=1");
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.press(0);
    EXPECT_THAT(takeEvents(), ElementsAre("down 0"));
}

TEST_F(PadsTest, ADPadOfButtonsIsTheHat) {
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    const struct {
        int reported;
        const char* hat;
    } directions[] = {{4, "hat 1"}, {5, "hat 4"}, {6, "hat 8"}, {7, "hat 2"}};
    for (const auto& [reported, hat] : directions) {
        pad.press(reported);
        EXPECT_THAT(takeEvents(), ElementsAre(hat));
        pad.release(reported);
        EXPECT_THAT(takeEvents(), ElementsAre("hat 0"));
    }
    pad.press(4);
    pad.press(7);
    pad.release(4);
    pad.release(7);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 1", "hat 3", "hat 2", "hat 0"));
}

TEST_F(PadsTest, ADPadOfAxesIsTheHat) {
    describePads("a:b0,dpup:-a1,dpdown:+a1,dpleft:-a0,dpright:+a0,leftx:a2,lefty:a3");
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.moveAxis(1, -32768);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 1"));
    pad.moveAxis(1, 32767);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 4"));
    pad.moveAxis(1, 0);
    pad.moveAxis(0, -32768);
    pad.moveAxis(0, 0);
    pad.moveAxis(0, 32767);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 0", "hat 8", "hat 0", "hat 2"));
    pad.moveAxis(2, 20000);
    EXPECT_THAT(takeEvents(), ElementsAre("axis 0 20000")) << "the stick beside it";
}

TEST_F(PadsTest, ADPadThatIsAHatStaysTheHat) {
    describePads("a:b0,dpup:h0.1,dpright:h0.2,dpdown:h0.4,dpleft:h0.8");
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    for (const int value : {1, 2, 4, 8, 9, 0})
        pad.moveHat(value);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 1", "hat 2", "hat 4", "hat 8", "hat 9", "hat 0"));
}

TEST_F(PadsTest, WithoutADPadTheLeftStickIsTheHat) {
    describePads("a:b0,leftx:a0,lefty:a1,rightx:a2");
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.moveAxis(0, 16384);
    pad.moveAxis(1, -16384);
    EXPECT_THAT(takeEvents(), IsEmpty());
    pad.moveAxis(0, 16385);
    pad.moveAxis(1, -16385);
    pad.moveAxis(0, -16385);
    pad.moveAxis(1, 16385);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 2", "hat 3", "hat 9", "hat 12"));
    pad.moveAxis(2, 9);
    EXPECT_THAT(takeEvents(), ElementsAre("axis 3 9"));
}

TEST_F(PadsTest, SticksAndTriggersHaveTheirNumbers) {
    describePads("dpup:b4,leftx:a5,lefty:a4,rightx:a3,righty:a2,lefttrigger:a1,righttrigger:b9");
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.moveAxis(5, 100);
    pad.moveAxis(4, -200);
    pad.moveAxis(3, 300);
    pad.moveAxis(2, -400);
    EXPECT_THAT(takeEvents(), ElementsAre("axis 0 100", "axis 1 -200", "axis 3 300", "axis 4 -400"));
    pad.moveAxis(1, 32767);
    EXPECT_THAT(takeEvents(), ElementsAre("axis 2 32767"));
    pad.press(9);
    pad.release(9);
    EXPECT_THAT(takeEvents(), ElementsAre("axis 5 32767", "axis 5 0"));
}

TEST_F(PadsTest, AnUnknownPadKeepsItsNumbers) {
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.press(14);
    pad.release(14);
    pad.moveHat(4);
    pad.moveAxis(3, 999);
    EXPECT_THAT(takeEvents(), ElementsAre("down 14", "up 14", "hat 4", "axis 3 999"));
}

TEST_F(PadsTest, APadThatSdlKnowsByItselfIsPresentedToo) {
    VirtualPad pad(SDL_JOYSTICK_TYPE_GAMECONTROLLER);
    initJoyStick();
    takeEvents();
    for (const int reported : {0, 1, 2, 3, 9, 10, 4, 6, 5, 12})
        pad.press(reported);
    EXPECT_THAT(takeEvents(), ElementsAre("down 0", "down 1", "down 2", "down 3", "down 4", "down 5",
                                          "down 6", "down 7", "down 8", "hat 4"));
}

TEST_F(PadsTest, TwoPadsDoNotDisturbEachOther) {
    describePads(scrambled);
    VirtualPad one;
    VirtualPad other(SDL_JOYSTICK_TYPE_ARCADE_PAD);
    initJoyStick();
    takeEvents();
    one.press(4);
    other.press(4);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 1", "down 4")) << "the other is unknown";
    other.detach();
    takeEvents();
    one.press(0);
    EXPECT_THAT(takeEvents(), ElementsAre("down 1"));
}

TEST_F(PadsTest, EventsTellTheirPadTimeAndState) {
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    SDL_Delay(1);
    pad.press(14);
    pad.release(14);
    for (const int state : {SDL_PRESSED, SDL_RELEASED}) {
        SDL_Event event{};
        ASSERT_EQ(SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_JOYBUTTONDOWN, SDL_JOYBUTTONUP), 1);
        EXPECT_EQ(event.jbutton.which, pad.instance());
        EXPECT_GT(event.jbutton.timestamp, 0u);
        EXPECT_EQ(event.jbutton.state, state);
    }
}
