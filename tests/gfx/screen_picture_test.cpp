#include "gfx/fill.h"
#include "gfx/screen.h"
#include "gfx/text.h"
#include "support/pages.h"
#include "support/screen_test.h"

/// Whole pages, pixel by pixel.
class PictureTest : public ScreenTest {};

TEST_F(PictureTest, TextInEveryAlignmentAndScript) {
    drawTextPage(font(18), false);
    expectPicture("text");
}

TEST_F(PictureTest, TextWithShadows) {
    drawTextPage(font(18), true);
    expectPicture("text-shadows");
}

TEST_F(PictureTest, FillsAndPicturesInEveryMode) {
    drawFillPage();
    expectPicture("fills");
}

TEST_F(PictureTest, RotatedText) {
    openScreen(640, 480, 1);
    drawTextPage(font(18), false);
    ScreenUpdateAndFlip();
    expectPicture("text-rotated");
}

/// The graphics processor rounds its own way: two of 255 are allowed. Shadows are left out, as every
/// further layer would add its own rounding.
class AcceleratedPictureTest : public AcceleratedScreenTest {};

TEST_F(AcceleratedPictureTest, TextInEveryAlignmentAndScript) {
    drawTextPage(font(18), false);
    expectPicture("text", 2);
}

TEST_F(AcceleratedPictureTest, FillsAndPicturesInEveryMode) {
    drawFillPage();
    expectPicture("fills", 2);
}

TEST_F(AcceleratedPictureTest, RotatedText) {
    openScreen(640, 480, 1);
    drawTextPage(font(18), false);
    ScreenUpdateAndFlip();
    expectPicture("text-rotated", 2);
}
