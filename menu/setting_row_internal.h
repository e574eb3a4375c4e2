#pragma once

#include "menu/setting_item.h"

namespace kestro {

/// Draws the background and the label that every setting row has.
void drawSettingRow(ItemDrawable& row, const SDL_Rect& rect, bool selected, KestroSurface* selectedBackground,
                    KestroSurface* background, const char* label);

/// Draws a picture at `x`, vertically in the middle of `rect`. Null draws nothing.
void drawInMiddle(KestroSurface* picture, int x, const SDL_Rect& rect);

} // namespace kestro
