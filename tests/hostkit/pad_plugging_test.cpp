#include "core/host.h"
#include "hostkit/pads.h"
#include "support/known_pad.h"
#include "support/pad_test.h"

#include <SDL.h>

using testing::ElementsAre;
using testing::IsEmpty;

/// Pads that come and go.
class PadPluggingTest : public PadTest {};

TEST_F(PadPluggingTest, EveryPadIsAnnouncedOnce) {
    for (const bool known : {false, true}) {
        if (known)
            describePads("a:b0,dpup:h0.1");
        VirtualPad pad;
        EXPECT_THAT(takeAnnouncements(), ElementsAre("added " + std::to_string(pad.deviceIndex()))) << known;
        initJoyStick();
        pad.detach();
        EXPECT_THAT(takeAnnouncements(), ElementsAre("removed " + std::to_string(pad.instance()))) << known;
        initJoyStick();
        EXPECT_THAT(takeEvents(), IsEmpty()) << known;
    }
}

TEST_F(PadPluggingTest, WaitEventOpensWhatIsPluggedIn) {
    describePads(scrambled);
    VirtualPad pad;
    EXPECT_THAT(takeCodes(), IsEmpty());
    EXPECT_EQ(takeLog(), "joystick add " + std::to_string(pad.deviceIndex()) + "\n");
    pad.press(0);
    pad.release(0);
    EXPECT_THAT(takeCodes(), ElementsAre(1));
    EXPECT_EQ(takeLog(), "joybuttonup 1\nclear repeat time\n");
}

TEST_F(PadPluggingTest, OpeningAgainKeepsWhatIsHeld) {
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.press(4);
    pad.press(0);
    initJoyStick();
    EXPECT_THAT(takeEvents(), ElementsAre("hat 1", "down 1"));
    pad.release(0);
    pad.release(4);
    EXPECT_THAT(takeEvents(), ElementsAre("up 1", "hat 0"));
}

TEST_F(PadPluggingTest, APadUnpluggedWhileItsHatIsHeldLetsGo) {
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.press(5);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 4"));
    pad.detach();
    EXPECT_THAT(takeEvents(), ElementsAre("hat 0", "removed " + std::to_string(pad.instance())));
}

TEST_F(PadPluggingTest, AnUnknownPadUnpluggedWhileItsHatIsHeldLetsGo) {
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.moveHat(1);
    EXPECT_THAT(takeEvents(), ElementsAre("hat 1"));
    pad.detach();
    EXPECT_THAT(takeEvents(), ElementsAre("hat 0", "removed " + std::to_string(pad.instance())));
}

TEST_F(PadPluggingTest, APadThatIsGoneIsClosed) {
    for (const bool known : {false, true}) {
        if (known)
            describePads(scrambled);
        VirtualPad pad;
        initJoyStick();
        EXPECT_EQ(SDL_GameControllerFromInstanceID(pad.instance()) != nullptr, known);
        pad.detach();
        EXPECT_NE(SDL_JoystickFromInstanceID(pad.instance()), nullptr) << "not in the middle of SDL's work";
        initJoyStick();
        EXPECT_EQ(SDL_JoystickFromInstanceID(pad.instance()), nullptr) << known;
        takeEvents();
    }
}

TEST_F(PadPluggingTest, AClosedPadIsNotHeldAnyMore) {
    for (const bool known : {false, true}) {
        if (known)
            describePads(scrambled);
        VirtualPad pad;
        initJoyStick();
        initJoyStick();
        hostkit::closePads();
        EXPECT_EQ(SDL_GameControllerFromInstanceID(pad.instance()), nullptr);
        pad.detach();
        EXPECT_EQ(SDL_JoystickFromInstanceID(pad.instance()), nullptr) << known;
        takeEvents();
    }
}

TEST_F(PadPluggingTest, APadThatComesBackIsOpenedAgain) {
    describePads(scrambled);
    for (int time = 0; time < 3; ++time) {
        VirtualPad pad;
        initJoyStick();
        takeEvents();
        pad.press(0);
        EXPECT_THAT(takeEvents(), ElementsAre("down 1"));
    }
}

TEST_F(PadPluggingTest, AfterSdlWasShutDownPadsAreOpenedAnew) {
    describePads(scrambled);
    {
        VirtualPad known;
        VirtualPad unknown(SDL_JOYSTICK_TYPE_ARCADE_PAD);
        initJoyStick();
    }
    SDL_Quit();
    initJoyStick();
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    takeEvents();
    pad.press(0);
    EXPECT_THAT(takeEvents(), ElementsAre("down 1"));
}

TEST_F(PadPluggingTest, ClosedPadsSayNothing) {
    describePads(scrambled);
    VirtualPad pad;
    initJoyStick();
    pad.press(4);
    takeEvents();
    hostkit::closePads();
    EXPECT_THAT(takeEvents(), ElementsAre("hat 0"));
    initJoyStick();
    pad.release(4);
    takeEvents();
    pad.press(0);
    EXPECT_THAT(takeEvents(), ElementsAre("down 1"));
}
