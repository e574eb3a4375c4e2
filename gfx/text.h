#pragma once

#include "core/export.h"

#include <SDL.h>
#include <SDL_ttf.h>

/// @file
/// Text on the current render target. Main thread.
///
/// | align     | horizontal | vertical |
/// |-----------|------------|----------|
/// | 0         | left       | top      |
/// | 1         | centre     | centre   |
/// | 3         | left       | centre   |
/// | 4         | right      | centre   |
/// | 2, others | right      | top      |
///
/// A text larger than its rectangle is not cut: it reaches out of it, on both sides where it is centred.
/// Texts are UTF-8; bad UTF-8 draws something.

/// Draws one line and returns its width in pixels; 0 if the font or the text is null, the text is empty,
/// or it cannot be rendered. Rendered texts are kept in gTextSurfaceCache.
///
/// With `shadow`, a copy in the same colour is drawn beneath, one pixel to the right and two down. With
/// `measureOnly`, the text itself is not drawn, but its shadow still is.
KESTRO_API int DrawString(TTF_Font* font, SDL_Rect rect, const char* text, SDL_Color color, int align,
                          bool shadow, bool measureOnly);

/// Cuts the text at any of the characters in `separators` (null: none), leaving out empty lines, and
/// spreads the lines over the height of the rectangle; lines that would lie closer than 5 pixels are
/// stacked at the font's height plus 5. Returns 0.
KESTRO_API int DrawStringLines(TTF_Font* font, const SDL_Rect& rect, const char* text, const char* separators,
                               const SDL_Color& color, int align, bool shadow);

/// The same with lines at the font's height plus `spacing` pixels, whatever the rectangle's height.
KESTRO_API int DrawStringLinesSpacing(TTF_Font* font, const SDL_Rect& rect, const char* text,
                                      const char* separators, int spacing, const SDL_Color& color, int align,
                                      bool shadow);

/// How many characters (code points) of `text` to keep so that it fits into `width` pixels with an
/// ellipsis after it; 0 if nothing has to be cut, if `width` is 20 or less, and for a null font or text.
/// `ignored` is not used.
KESTRO_API int getTruncateLen(TTF_Font* font, const char* text, int ignored, int width);
