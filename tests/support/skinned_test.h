#pragma once

#include "support/screen_test.h"

#include <map>
#include <string>

/// A test with a screen of 1280 x 720 and the shared skin: the tests' font as "./regular.ttf", and pictures
/// of one colour as "./skin/bg-list-f.png" (selected row, 1260 x 96, 0xFF305090) and "./skin/bg-list-n.png"
/// (other rows, 1260 x 96, 0xFF202830). There is no theme. The language is built in. Log lines are taken.
class SkinnedTest : public ScreenTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Writes a PNG picture of one colour (0xAARRGGBB); with a radius, its corners are round.
    static void writePicture(const std::string& path, int w, int h, Uint32 color, int radius = 0);

    /// Makes a language of these words the current one, until the end of the test.
    static void useLanguage(const std::map<int, std::string>& words);

    /// Clears the screen to black.
    static void clearScreen();
};

/// A new picture of one colour, on the screen that is open. The caller deletes it.
KestroSurface* newPicture(int w, int h, Uint32 color);

/// The width in pixels of a text, and the height of a font's line.
int textWidth(TTF_Font* font, const std::string& text);
int lineHeight(TTF_Font* font);
