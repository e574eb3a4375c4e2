#pragma once

#include "support/screen_test.h"

#include <string>
#include <vector>

/// A test of the skin's files: the tests' font is "./regular.ttf", there are no pictures and no theme.
class SkinFilesTest : public ScreenTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// The names of the skin's pictures, in the order in which they are loaded.
    static const std::vector<std::string> pictureNames;

    /// Writes a PNG picture of one colour.
    static void writePicture(const std::string& path, int w, int h, Uint32 color = 0xFF305090);

    /// Writes all pictures of the skin in this folder, which ends in "/". The first is `size` pixels wide
    /// and high, and each other one pixel more than the one before.
    static void writePictures(const std::string& folder, int size);

    /// The line that is logged when a picture of the skin comes from "./" in the theme's place.
    static std::string fallbackLine(const std::string& name, const std::string& theme = "(null)");

    /// The lines of opening the fonts.
    static std::string fontLines();
};
