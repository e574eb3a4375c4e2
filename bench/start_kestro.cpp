#include "bench/start_kestro.h"

#include "gfx/screen.h"
#include "shell/skin.h"

#include <SDL.h>
#include <SDL_ttf.h>

namespace bench {

static bool sStarted = false;

static bool isSkinWhole() {
    return gNavFont && gNavFontIcon && gListFontTxt && gListFontSubtxt && gStatFont && gMenuFont &&
           gPopupFontTitle && gPopupFontTxt && gPopupFontBtn && gIconVideo && gIconFolder && gBackground &&
           gIconBack && gIconMenu && gIconA && gIconB && gBackgroundFloat;
}

bool startKestro() {
    sStarted = true;
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0 || !ScreenInit(1280, 720, 32, 0))
        return false;
    init_shared_skin();
    if (!isSkinWhole() || gBackground->render(nullptr, nullptr, true, nullptr) != 0)
        return false;
    ScreenUpdateAndFlip();
    return true;
}

void endKestro() {
    if (!sStarted)
        return;
    uninit_shared_skin();
    ScreenUninit();
    TTF_Quit();
    SDL_Quit();
    sStarted = false;
}

} // namespace bench
