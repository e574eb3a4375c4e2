#pragma once

#include "gfx/surface.h"

#include <SDL_ttf.h>

#include <string>

namespace navora {

/// The pages' common measures, in pixels.
constexpr int screenWidth = 1280;
constexpr int screenHeight = 720;
constexpr int margin = 40;
constexpr int headerHeight = 80;
constexpr int footerTop = 650; // which is where the bar at the bottom begins too

/// Draws a picture in its own size; nothing for null.
void drawAt(KestroSurface* picture, int x, int y);

/// Draws a picture into the middle of a rectangle; nothing for null.
void drawCentred(KestroSurface* picture, const SDL_Rect& rect);

/// Deletes a picture, and loads the theme's of that name in its place.
void replacePicture(KestroSurface*& picture, const char* name);

/// The text, cut to a width in pixels with an ellipsis.
std::string cutToWidth(TTF_Font* font, const std::string& text, int width);

/// Draws one line, cut to the width of `rect` with an ellipsis.
void drawCut(TTF_Font* font, const SDL_Rect& rect, const std::string& text, SDL_Color color, int align);

/// A text cut into at most `maxLines` lines of at most `width` pixels, apart by "\n", the last with an
/// ellipsis if more is left.
std::string wrapped(TTF_Font* font, std::string text, int width, int maxLines);

/// Draws a text in lines of at most the width of `rect`, the last of `maxLines` with an ellipsis if more
/// is left. Returns the height of what was drawn.
int drawWrapped(TTF_Font* font, SDL_Rect rect, std::string text, SDL_Color color, int maxLines);

} // namespace navora
