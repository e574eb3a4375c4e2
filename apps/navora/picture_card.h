#pragma once

#include "gfx/surface.h"
#include "navora/folder.h"

#include <memory>

namespace navora {

/// Draws the picture of an entry into a rectangle, or a card in its place if it has none. Keeps the picture
/// until it is asked for another entry or the theme is loaded anew.
class PictureCard {
public:
    void draw(const SDL_Rect& rect, const Entry& entry);

private:
    std::string mPath;
    int mThemeNumber = 0;
    std::unique_ptr<KestroSurface> mPicture;
};

} // namespace navora
