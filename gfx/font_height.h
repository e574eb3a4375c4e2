#pragma once

#include <SDL_ttf.h>

namespace kestro {

/// The height of a line in pixels; 0 for a null font, which TTF_FontHeight does not bear.
inline int fontHeight(TTF_Font* font) {
    return font ? TTF_FontHeight(font) : 0;
}

} // namespace kestro
