#pragma once

#include <string>
#include <vector>

/// While it lives, notes what SDL is told to make for the screen and to take away again, in this form:
///
///     window Main 640x480 anywhere shown
///     renderer -1 accelerated vsync
///     texture 640x480 target ARGB8888       (or: streaming, static)
///     texture from surface
///     texture destroyed                     (or: renderer, window)
class CreationLog {
public:
    CreationLog();
    ~CreationLog();
    CreationLog(const CreationLog&) = delete;
    CreationLog& operator=(const CreationLog&) = delete;

    /// The calls since the last call of this.
    std::vector<std::string> take();

    /// Lets windows fail that are higher than wide, as if the display could not be turned.
    void refuseTallWindows();

    /// Lets SDL make `more` textures from surfaces; the ones after that fail, as if graphics memory were
    /// full.
    void allowTexturesFromSurfaces(int more);
};
