#include "navora/picture_card.h"

#include "gfx/fill.h"
#include "gfx/image.h"
#include "hostkit/files.h"
#include "hostkit/theme.h"
#include "navora/look.h"

namespace navora {

static void fill(SDL_Rect rect, SDL_Color color) {
    FillRect(nullptr, &rect, color.r, color.g, color.b, color.a);
}

static void drawFolderShape(const SDL_Rect& rect) {
    constexpr SDL_Color back{150, 108, 46, 255};
    constexpr SDL_Color front{196, 150, 78, 255};
    constexpr int w = 200;
    const int x = rect.x + (rect.w - w) / 2;
    const int y = rect.y + rect.h / 2 - 60;
    fill({x, y - 20, 84, 20}, back);
    fill({x, y, w, 20}, back);
    fill({x, y + 26, w, 114}, front);
}

static void drawPaperShape(const SDL_Rect& rect) {
    constexpr SDL_Color paper{56, 72, 102, 255};
    constexpr SDL_Color ink{110, 132, 168, 255};
    constexpr int w = 150;
    constexpr int h = 200;
    const int x = rect.x + (rect.w - w) / 2;
    const int y = rect.y + (rect.h - h) / 2;
    fill({x, y, w, h}, paper);
    for (int line = 0; line < 5; ++line)
        fill({x + 24, y + 36 + line * 30, line == 4 ? 60 : w - 48, 6}, ink);
}

void PictureCard::draw(const SDL_Rect& rect, const Entry& entry) {
    if (mPath != entry.path || mThemeNumber != hostkit::themeNumber()) {
        mThemeNumber = hostkit::themeNumber(); // the picture may have gone down with the screen
        const std::string picture = entry.isFolder ? "" : hostkit::thumbnailOf(entry.path);
        mPath = entry.path;
        mPicture.reset(picture.empty() ? nullptr
                                       : LoadKestroSurfaceSpecSized(picture.c_str(), rect.w, rect.h, nullptr,
                                                                    false, true));
    }
    if (mPicture) // its top in line with what stands beside it
        drawAt(mPicture.get(), rect.x + (rect.w - mPicture->getWidth()) / 2, rect.y);
    else if (entry.isFolder)
        drawFolderShape(rect);
    else
        drawPaperShape(rect);
}

} // namespace navora
