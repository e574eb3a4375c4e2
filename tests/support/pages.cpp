#include "support/pages.h"

#include "gfx/fill.h"
#include "gfx/screen.h"
#include "gfx/text.h"
#include "support/surfaces.h"

static constexpr int columns = 5;
static constexpr int rows = 6;

static const struct {
    const char* text;
    SDL_Color color;
} lines[rows] = {
    {"Play again", {255, 255, 255, 255}}, {"Çédille Ñ ß", {255, 210, 120, 255}},
    {"开始游戏", {120, 230, 255, 255}},   {"はじめる", {160, 255, 160, 200}},
    {"게임 시작", {255, 160, 220, 160}},  {"Too big 字", {255, 120, 100, 255}},
};

static SDL_Rect cell(int column, int row) {
    const SDL_Rect wide{column * 128 + 6, row * 80 + 8, 116, 64};
    return row == rows - 1 ? SDL_Rect{wide.x + 30, wide.y + 27, 55, 11} : wide;
}

void drawTextPage(TTF_Font* font, bool shadow) {
    // On black and blue, all renderers blend nearly alike.
    ClearRect(nullptr, nullptr, 0, 0, 0, 255);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            SDL_Rect box = cell(column, row);
            FillRect(nullptr, &box, 0, 0, 64, 255);
            DrawString(font, box, lines[row].text, lines[row].color, column, shadow, false);
        }
}

/// Sixteen steps of alpha, blended above and replaced below, over a white band.
static void drawAlphaSteps() {
    SDL_Rect band{20, 30, 600, 60};
    FillRect(nullptr, &band, 255, 255, 255, 255);
    for (int step = 0; step < 16; ++step) {
        const auto alpha = static_cast<unsigned char>(step * 17);
        SDL_Rect above{24 + step * 37, 20, 33, 38};
        SDL_Rect below{24 + step * 37, 62, 33, 38};
        FillRect(nullptr, &above, 200, 30, 60, alpha);
        ClearRect(nullptr, &below, 30, 60, alpha, 255);
    }
}

static void drawOverlaps() {
    SDL_Rect over{-20, 110, 200, 120};
    SDL_Rect beyond{580, 150, 100, 400};
    SDL_Rect added{60, 140, 200, 60};
    SDL_Rect multiplied{120, 120, 90, 130};
    FillRect(nullptr, &over, 40, 160, 90, 128);
    FillRect(nullptr, &beyond, 220, 200, 40, 77);
    FillRectInternal(nullptr, &added, 90, 40, 120, 200, SDL_BLENDMODE_ADD);
    FillRectInternal(nullptr, &multiplied, 255, 128, 64, 255, SDL_BLENDMODE_MOD);
}

/// A surface with a translucent frame round a hole.
static void drawThroughSurface() {
    const KestroSurfacePtr surface = emptyTarget(200, 120);
    KestroSurface* const before = GetRenderTarget();
    SetRenderTarget(surface.get());
    SDL_Rect hole{40, 30, 120, 60};
    ClearRect(nullptr, nullptr, 250, 250, 250, 180);
    ClearRect(nullptr, &hole, 0, 0, 0, 0);
    SetRenderTarget(before);
    SDL_Rect place{320, 130, 0, 0};
    surface->setBlendMode(SDL_BLENDMODE_BLEND);
    surface->render(nullptr, &place, true, nullptr);
}

static void drawPictures() {
    static const SDL_BlendMode modes[] = {SDL_BLENDMODE_NONE, SDL_BLENDMODE_BLEND, SDL_BLENDMODE_ADD,
                                          SDL_BLENDMODE_MOD};
    const KestroSurfacePtr pattern = patternPicture();
    const KestroSurfacePtr solid = solidPicture(48, 30, 0xFF3090E0);
    for (int i = 0; i < 24; ++i) {
        SDL_Rect place{20 + i * 25, (i % 3 == 0 ? 270 : 330) + i * 5, 0, 0};
        const KestroSurfacePtr& picture = i % 3 == 0 ? solid : pattern;
        picture->setBlendMode(modes[i % 4]);
        picture->setAlpha(static_cast<unsigned char>(255 - i * 8));
        picture->render(nullptr, &place, true, nullptr);
    }
}

void drawFillPage() {
    ClearRect(nullptr, nullptr, 60, 70, 80, 255);
    drawAlphaSteps();
    drawOverlaps();
    drawThroughSurface();
    drawPictures();
}
