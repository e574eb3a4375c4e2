#pragma once

#include <SDL_ttf.h>

/// Pages of 640 x 480 pixels that are drawn by the library, for comparing whole pictures. Both cover all
/// of the current render target first.

/// A table of texts: Latin, accented, Chinese, Japanese and Korean from top to bottom, the alignments 0 to
/// 4 from left to right, each in a box that is drawn too. The last row's boxes are too small for their
/// texts. Made for a font of 18 points, with which no text touches the next one.
void drawTextPage(TTF_Font* font, bool shadow);

/// Fills in every mode and many alphas, over each other, over the page's edges, and through a surface of
/// its own with a hole in it; pictures at natural size, plain, translucent, added and multiplied.
void drawFillPage();
