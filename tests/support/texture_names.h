#pragma once

#include "gfx/surface.h"

#include <string>

/// While it lives, drawing logs say what is drawn: for rendered texts, all of which are rendered anew, the
/// text and its colour, and for pictures the name given here. So "copy all -> 95,107 80x42 on W" becomes
///
///     "Alpha" #FFFFFFFF all -> 95,107 80x42 on W
///     'icon' all -> 95,107 80x42 on W
class TextureNames {
public:
    TextureNames();
    ~TextureNames();
    TextureNames(const TextureNames&) = delete;
    TextureNames& operator=(const TextureNames&) = delete;

    /// Names a picture. The name stays with its texture.
    void name(KestroSurface* picture, const std::string& name);

    /// For the creation log: a texture was made from a surface.
    static void made(SDL_Texture* texture, SDL_Surface* surface);

    /// For the drawing log: what to write for a texture; "copy" while nothing is named, and for others.
    static std::string of(SDL_Texture* texture);
};
