#include "bench/start_bare.h"

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_ttf.h>

#include <cstring>

namespace bench {

static constexpr int points[] = {32, 24, 36, 24, 24, 36, 44, 36, 36};
static constexpr const char* names[] = {"skin/ic-video.png",  "skin/ic-folder.png",     "skin/bg.png",
                                        "skin/icon-back.png", "skin/tips-MENU2.png",    "skin/tips-A.png",
                                        "skin/tips-B.png",    "skin/float-win-mask.png"};

static struct {
    SDL_Window* window;
    SDL_Renderer* renderer;
    TTF_Font* fonts[9];
    SDL_Texture* pictures[8];
    SDL_Texture* background;
} sOpen;

static bool openWindow() {
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "1");
    sOpen.window = SDL_CreateWindow("Main", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, 1280, 720,
                                    SDL_WINDOW_SHOWN);
    sOpen.renderer =
        SDL_CreateRenderer(sOpen.window, -1, SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC);
    return sOpen.renderer;
}

static bool openFonts() {
    for (size_t i = 0; i < 9; ++i)
        if (sOpen.fonts[i] = TTF_OpenFont("./regular.ttf", points[i]); !sOpen.fonts[i])
            return false;
    return true;
}

static bool openPictures() {
    for (size_t i = 0; i < 8; ++i) {
        SDL_Surface* const picture = IMG_Load(names[i]);
        sOpen.pictures[i] = SDL_CreateTextureFromSurface(sOpen.renderer, picture);
        SDL_FreeSurface(picture);
        if (!sOpen.pictures[i])
            return false;
        if (strcmp(names[i], "skin/bg.png") == 0)
            sOpen.background = sOpen.pictures[i];
    }
    return true;
}

bool startBare() {
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0 || !openWindow() || !openFonts() ||
        !openPictures() || SDL_RenderCopy(sOpen.renderer, sOpen.background, nullptr, nullptr) != 0)
        return false;
    SDL_RenderPresent(sOpen.renderer);
    return true;
}

void endBare() {
    if (!sOpen.window)
        return;
    for (TTF_Font* const font : sOpen.fonts)
        TTF_CloseFont(font);
    for (SDL_Texture* const picture : sOpen.pictures)
        SDL_DestroyTexture(picture);
    SDL_DestroyRenderer(sOpen.renderer);
    SDL_DestroyWindow(sOpen.window);
    TTF_Quit();
    SDL_Quit();
    sOpen = {};
}

} // namespace bench
