#include "gfx/screen.h"

#include "core/log.h"
#include "gfx/screen_internal.h"
#include "gfx/surface_cache.h"
#include "gfx/surface_internal.h"

#include <cstdio>
#include <linux/fb.h>
#include <sys/ioctl.h>

SDL_Renderer* gRenderer = nullptr;

static SDL_Window* sWindow = nullptr;
static SDL_Texture* sRotatedTexture = nullptr;
static SDL_Texture* sTargetTexture = nullptr;

static struct {
    Uint32 windowId = 0; // tells whether sWindow still exists, whoever shut SDL down
    int rotate = 0;
    SDL_Point windowSize{0, 0};
    KestroSurface* target = nullptr;
    unsigned generation = 0;
} sScreen;

bool ScreenInit(int width, int height, int bpp, int rotate) {
    if (sWindow || gRenderer)
        ScreenUninit();
    tprintf("ScreenInit %dx%d %d, rotate=%d\n", width, height, bpp, rotate);
    sScreen.rotate = rotate;
    if (!SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "1"))
        printf("[Warning]: Linear texture filtering not enabled!");
    sScreen.windowSize = rotate ? SDL_Point{height, width} : SDL_Point{width, height};
    sWindow = SDL_CreateWindow("Main", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, sScreen.windowSize.x,
                               sScreen.windowSize.y, SDL_WINDOW_SHOWN);
    sScreen.windowId = SDL_GetWindowID(sWindow);
    gRenderer = SDL_CreateRenderer(sWindow, -1, SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC);
    if (rotate)
        sRotatedTexture = sTargetTexture = kestro::createTargetTexture(width, height);
    tprintf("window=%p, renderer=%p\n", static_cast<void*>(sWindow), static_cast<void*>(gRenderer));
    return sWindow && gRenderer;
}

/// Turns the logical frame onto the display. The shift by one pixel to the left is where the panel wants
/// it.
static void copyRotated() {
    int w = 0;
    int h = 0;
    SDL_QueryTexture(sRotatedTexture, nullptr, nullptr, &w, &h);
    const SDL_Rect dst{(h - w) / 2 - 1, (w - h) / 2, w, h};
    SDL_RenderCopyEx(gRenderer, sRotatedTexture, nullptr, &dst, 270.0, nullptr, SDL_FLIP_NONE);
}

int ScreenUpdateAndFlip() {
    if (!kestro::liveRenderer())
        return 0;
    if (sScreen.rotate)
        copyRotated();
    SDL_RenderPresent(gRenderer);
    return 0;
}

int ScreenUninit() {
    gIconCache.clear();
    gTextSurfaceCache.clear();
    if (SDL_Renderer* const renderer = kestro::liveRenderer()) {
        if (sRotatedTexture)
            SDL_DestroyTexture(sRotatedTexture);
        SDL_DestroyRenderer(renderer);
        if (sWindow)
            SDL_DestroyWindow(sWindow);
    } else if (sWindow && SDL_GetWindowFromID(sScreen.windowId) == sWindow) {
        SDL_DestroyWindow(sWindow);
    }
    gRenderer = nullptr;
    sWindow = nullptr;
    sRotatedTexture = sTargetTexture = nullptr;
    sScreen.target = nullptr;
    sScreen.rotate = 0;
    ++sScreen.generation;
    return 0;
}

void SetRenderTarget(KestroSurface* s) {
    const SDL2KestroSurface* const surface = kestro::textured(s);
    sTargetTexture = s ? (surface ? surface->getTexture() : nullptr) : sRotatedTexture;
    sScreen.target = s;
}

KestroSurface* GetRenderTarget() {
    return sScreen.target;
}

KestroSurface* ScreenSnapshot() {
    SDL_Renderer* const renderer = kestro::liveRenderer();
    SDL_Surface* const frame =
        renderer ? create_surface(sScreen.windowSize.x, sScreen.windowSize.y) : nullptr;
    if (!frame)
        return nullptr;
    // With the rectangle given, a larger target cannot write beyond the frame.
    const SDL_Rect whole{0, 0, frame->w, frame->h};
    SDL_RenderReadPixels(renderer, &whole, SDL_PIXELFORMAT_ARGB8888, frame->pixels, frame->pitch);
    return kestro::surfaceOwning(frame);
}

void lcd_fb_flip() {
    static fb_var_screeninfo info;
    info.yoffset = 0;
    if (ioctl(-1, FBIOPAN_DISPLAY, &info) < 0)
        tprintf("FBIOPAN_DISPLAY fail\n");
}

void lcd_fb_wait_for_vsync() {}

/// The reverse of copyRotated, on pixels. The page's first row, which the shift moves off the display, is
/// made from its second.
static SDL_Surface* turnedUpright(const SDL_Surface* frame) {
    SDL_Surface* const page = create_surface(frame->h, frame->w);
    if (!page)
        return nullptr;
    for (int y = 0; y < page->h; ++y) {
        auto* const row = reinterpret_cast<Uint32*>(static_cast<char*>(page->pixels) + y * page->pitch);
        const int column = y > 0 ? y - 1 : 0;
        for (int x = 0; x < page->w; ++x) {
            const int line = frame->h - 1 - x;
            const char* const pixels = static_cast<const char*>(frame->pixels) + line * frame->pitch;
            row[x] = reinterpret_cast<const Uint32*>(pixels)[column];
        }
    }
    return page;
}

namespace kestro {

SDL_Renderer* liveRenderer() {
    if (!gRenderer || !SDL_WasInit(SDL_INIT_VIDEO))
        return nullptr;
    if (sWindow && SDL_GetWindowFromID(sScreen.windowId) != sWindow)
        return nullptr;
    return gRenderer;
}

unsigned screenGeneration() {
    return sScreen.generation;
}

SDL_Texture* targetTexture() {
    return sTargetTexture;
}

SDL_Point windowSize() {
    return sScreen.windowSize;
}

KestroSurface* pageSnapshot() {
    KestroSurface* const frame = ScreenSnapshot();
    if (!frame || !sScreen.rotate)
        return frame;
    KestroSurface* const page = surfaceOwning(turnedUpright(textured(frame)->getSurface()));
    delete frame;
    return page;
}

} // namespace kestro
