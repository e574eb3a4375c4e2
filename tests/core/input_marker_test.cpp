#include "core/input.h"
#include "support/input_test.h"
#include "support/tone_log.h"

#include <cstring>
#include <filesystem>

/// While the device's own display is up, its marker file exists and the windows get no input.
class DisplayMarkerTest : public InputTest {};

TEST_F(DisplayMarkerTest, EveryEventIsTakenAndDropped) {
    setDisplayUp(true);
    for (int i = 0; i < 5; ++i)
        push(keyUp(SDLK_SPACE));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(wait_event(nullptr), 0);
    setDisplayUp(false);
    SDL_Event left;
    EXPECT_EQ(SDL_PollEvent(&left), 0);
}

TEST_F(DisplayMarkerTest, DropsEveryKindOfEventWithoutAWord) {
    setDisplayUp(true);
    for (const SDL_Event& event :
         {keyDown(SDLK_UP), keyUp(SDLK_TAB), axisMoved(0, 32767), hatMoved(1), hatMoved(0), buttonDown(7),
          buttonUp(1), userEvent(25), plainEvent(0x653), plainEvent(SDL_QUIT)})
        EXPECT_EQ(give(event), 0) << event.type;
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(gTestHost.joystickOpenings, 0);
    EXPECT_NE(SDL_WasInit(SDL_INIT_EVENTS), 0u) << "a quit request is dropped too";
}

TEST_F(DisplayMarkerTest, LeavesTheCallersRecordAlone) {
    setDisplayUp(true);
    push(keyUp(SDLK_SPACE));
    SDL_Event event;
    memset(&event, 0x5A, sizeof event);
    const SDL_Event before = event;
    EXPECT_EQ(wait_event(&event), 0);
    EXPECT_EQ(memcmp(&event, &before, sizeof event), 0);
}

TEST_F(DisplayMarkerTest, PlaysNoTone) {
    Mix_Chunk sound{};
    gKeyChunk = &sound;
    ToneLog tones;
    setDisplayUp(true);
    give(buttonDown(0));
    give(hatMoved(1));
    give(keyDown(SDLK_POWER));
    EXPECT_THAT(tones.take(), testing::IsEmpty());
}

TEST_F(DisplayMarkerTest, DroppedPressesAreNotHeld) {
    setDisplayUp(true);
    give(keyDown(SDLK_RETURN));
    setDisplayUp(false);
    EXPECT_EQ(give(keyUp(SDLK_TAB)), 12);
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=0\n");
}

TEST_F(DisplayMarkerTest, DroppedReleasesAreStillHeld) {
    give(keyDown(SDLK_RETURN));
    setDisplayUp(true);
    give(keyUp(SDLK_RETURN));
    setDisplayUp(false);
    EXPECT_EQ(give(keyUp(SDLK_TAB)), 0);
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=1\n");
}

TEST_F(DisplayMarkerTest, DroppedAxisEventDoesNotCount) {
    clock.advance(1000);
    setDisplayUp(true);
    give(axisMoved(0, 32767));
    setDisplayUp(false);
    EXPECT_EQ(give(axisMoved(0, 32767)), 8);
    EXPECT_EQ(takeLog(), "joyaxis 0, value 32767\n");
}

TEST_F(DisplayMarkerTest, IsLookedAtForEachEvent) {
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 1);
    setDisplayUp(true);
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 0);
    setDisplayUp(false);
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 1);
}

TEST_F(DisplayMarkerTest, AnythingOfThatNameCounts) {
    std::filesystem::create_directories(onDevice("/tmp/osdd_show_up"));
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 0);
    setDisplayUp(false);
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 1);
}

TEST_F(DisplayMarkerTest, GrabIsStillNoticed) {
    give(keyDown(SDLK_RETURN));
    setDisplayUp(true);
    setGrabbed(true);
    give(keyUp(SDLK_SPACE));
    setGrabbed(false);
    setDisplayUp(false);
    EXPECT_EQ(give(keyUp(SDLK_TAB)), 12);
    takeLog();
}
