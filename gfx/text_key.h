#pragma once

#include <SDL_ttf.h>

#include <string_view>

namespace kestro {

/// The key of a rendered text in gTextSurfaceCache: the text, the font's address and the colour's bytes, and
/// 1 for the shadow. It lies in one buffer for all and is cut at the buffer's end: texts that agree so far
/// share an entry. Valid until the next call; main thread.
std::string_view textKey(const TTF_Font* font, const char* text, SDL_Color color, int shadow);

} // namespace kestro
