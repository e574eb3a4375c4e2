#include "support/drawing_log.h"

#include "support/real_function.h"
#include "support/texture_names.h"

#include <SDL.h>

#include <cstdio>

static bool sNoting = false;
static std::vector<std::string> sCalls;
static std::vector<SDL_BlendMode> sBlending;

static std::string shown(const SDL_Rect* rect) {
    if (!rect)
        return "all";
    char text[64];
    snprintf(text, sizeof text, "%d,%d %dx%d", rect->x, rect->y, rect->w, rect->h);
    return text;
}

static std::string shownColor(SDL_Renderer* renderer) {
    SDL_Color color{};
    SDL_GetRenderDrawColor(renderer, &color.r, &color.g, &color.b, &color.a);
    char text[16];
    snprintf(text, sizeof text, "#%02X%02X%02X%02X", color.r, color.g, color.b, color.a);
    return text;
}

static std::string shownBlending(SDL_Renderer* renderer) {
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    SDL_GetRenderDrawBlendMode(renderer, &mode);
    switch (mode) {
    case SDL_BLENDMODE_NONE:
        return "replace";
    case SDL_BLENDMODE_BLEND:
        return "blend";
    case SDL_BLENDMODE_ADD:
        return "add";
    case SDL_BLENDMODE_MOD:
        return "mod";
    default:
        return "otherwise";
    }
}

static void note(SDL_Renderer* renderer, const std::string& call) {
    sCalls.push_back(call + (SDL_GetRenderTarget(renderer) ? " on T" : " on W"));
}

extern "C" int SDL_RenderCopy(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* src,
                              const SDL_Rect* dst) {
    static const auto real = REAL_FUNCTION(SDL_RenderCopy);
    if (sNoting) { // a text that is not wanted takes memory too, which a test may count
        sBlending.push_back(SDL_BLENDMODE_INVALID);
        SDL_GetTextureBlendMode(texture, &sBlending.back());
        note(renderer, TextureNames::of(texture) + " " + shown(src) + " -> " + shown(dst));
    }
    return real(renderer, texture, src, dst);
}

extern "C" int SDL_RenderCopyEx(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* src,
                                const SDL_Rect* dst, double angle, const SDL_Point* center,
                                SDL_RendererFlip flip) {
    static const auto real = REAL_FUNCTION(SDL_RenderCopyEx);
    char turn[32];
    snprintf(turn, sizeof turn, "turn %g ", angle);
    if (sNoting)
        note(renderer, turn + shown(src) + " -> " + shown(dst) + (center ? " round a point" : "") +
                           (flip == SDL_FLIP_NONE ? "" : " flipped"));
    return real(renderer, texture, src, dst, angle, center, flip);
}

extern "C" int SDL_RenderFillRect(SDL_Renderer* renderer, const SDL_Rect* rect) {
    static const auto real = REAL_FUNCTION(SDL_RenderFillRect);
    if (sNoting)
        note(renderer, "fill " + shown(rect) + " " + shownColor(renderer) + " " + shownBlending(renderer));
    return real(renderer, rect);
}

extern "C" int SDL_RenderClear(SDL_Renderer* renderer) {
    static const auto real = REAL_FUNCTION(SDL_RenderClear);
    if (sNoting)
        note(renderer, "clear " + shownColor(renderer));
    return real(renderer);
}

extern "C" void SDL_RenderPresent(SDL_Renderer* renderer) {
    static const auto real = REAL_FUNCTION(SDL_RenderPresent);
    if (sNoting)
        sCalls.push_back("present");
    real(renderer);
}

DrawingLog::DrawingLog() {
    sCalls.clear();
    sBlending.clear();
    sNoting = true;
}

DrawingLog::~DrawingLog() {
    sNoting = false;
}

std::vector<std::string> DrawingLog::take() {
    std::vector<std::string> calls;
    calls.swap(sCalls);
    return calls;
}

std::vector<SDL_BlendMode> DrawingLog::takeBlending() {
    std::vector<SDL_BlendMode> blending;
    blending.swap(sBlending);
    return blending;
}
