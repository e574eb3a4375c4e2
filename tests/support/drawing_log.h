#pragma once

#include <SDL.h>

#include <string>
#include <vector>

/// While it lives, notes the drawing calls that reach SDL's renderer, in this form ("target" is the texture
/// that SDL draws to, W the window, T any texture; a null rectangle is "all"):
///
///     copy all -> 10,20 64x32 on W
///     copy 0,0 8x8 -> all on T
///     turn 270 all -> -81,80 640x480 on W      (after the place, where they hold: round a point, flipped)
///     fill 0,0 10x10 #11223344 blend on T      (or: replace, add, mod, otherwise)
///     clear #00000000 on T
///     present
///
/// While TextureNames is there too, what is copied has a name.
class DrawingLog {
public:
    DrawingLog();
    ~DrawingLog();
    DrawingLog(const DrawingLog&) = delete;
    DrawingLog& operator=(const DrawingLog&) = delete;

    /// The calls since the last call of this.
    std::vector<std::string> take();

    /// How the texture of each copy since the last call of this was blended.
    std::vector<SDL_BlendMode> takeBlending();
};
