#include "core/input.h"
#include "support/input_test.h"

class KeyboardTest : public InputTest {};

TEST_F(KeyboardTest, ReleasesGiveTheirCodes) {
    const struct {
        SDL_Keycode key;
        int code;
    } rows[] = {
        {SDLK_SPACE, 1},  {SDLK_LCTRL, 2},  {SDLK_LSHIFT, 3},  {SDLK_LALT, 4},
        {SDLK_RETURN, 9}, {SDLK_RCTRL, 10}, {SDLK_ESCAPE, 11},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(give(keyDown(row.key)), 0) << SDL_GetKeyName(row.key);
        EXPECT_EQ(give(keyUp(row.key)), row.code) << SDL_GetKeyName(row.key);
    }
}

TEST_F(KeyboardTest, SymbolsAreThoseOfTheDevice) {
    const struct {
        SDL_Keycode key;
        int code;
    } rows[] = {{0x20, 1}, {0x400000E0, 2},  {0x400000E1, 3}, {0x400000E2, 4},
                {0x0D, 9}, {0x400000E4, 10}, {0x1B, 11}};
    for (const auto& row : rows)
        EXPECT_EQ(give(keyUp(row.key)), row.code) << row.key;
    EXPECT_EQ(give(keyDown(0x40000052)), 5);
    EXPECT_EQ(give(keyDown(0x40000051)), 6);
    EXPECT_EQ(give(keyDown(0x40000050)), 7);
    EXPECT_EQ(give(keyDown(0x4000004F)), 8);
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(give(keyUp(0x09)), 12);
    EXPECT_EQ(give(keyUp(0x08)), 13);
    EXPECT_EQ(takeLog(), "hotkey1 select=0, start=0\nhotkey2 select=0, start=0\n");
}

TEST_F(KeyboardTest, ArrowsGiveTheirCodesWhenPressed) {
    EXPECT_EQ(give(keyDown(SDLK_UP)), 5);
    EXPECT_EQ(give(keyDown(SDLK_DOWN)), 6);
    EXPECT_EQ(give(keyDown(SDLK_LEFT)), 7);
    EXPECT_EQ(give(keyDown(SDLK_RIGHT)), 8);
    for (const SDL_Keycode arrow : {SDLK_UP, SDLK_DOWN, SDLK_LEFT, SDLK_RIGHT})
        EXPECT_EQ(give(keyUp(arrow)), 0);
    EXPECT_EQ(takeLog(), "") << "no repeat is started for the keyboard";
}

TEST_F(KeyboardTest, RepeatsOfTheSystemCountAsPresses) {
    EXPECT_EQ(give(keyDown(SDLK_UP, true)), 5);
}

TEST_F(KeyboardTest, OtherKeysGiveNothing) {
    for (const SDL_Keycode key :
         {SDLK_a, SDLK_0, SDLK_RSHIFT, SDLK_RALT, SDLK_KP_ENTER, SDLK_F1, SDLK_POWER, SDLK_UNKNOWN}) {
        EXPECT_EQ(give(keyDown(key)), 0) << key;
        EXPECT_EQ(give(keyUp(key)), 0) << key;
    }
}

TEST_F(KeyboardTest, ModifiersDoNotMatter) {
    SDL_Event event = keyUp(SDLK_SPACE);
    event.key.keysym.mod = KMOD_SHIFT | KMOD_CTRL;
    EXPECT_EQ(give(event), 1);
}
