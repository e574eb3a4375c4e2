#include "support/creation_log.h"

#include "support/real_function.h"
#include "support/texture_names.h"

#include <SDL.h>

#include <limits>

static bool sNoting = false;
static std::vector<std::string> sCalls;
static int sTexturesFromSurfaces = std::numeric_limits<int>::max();
static bool sRefusingTallWindows = false;

static void note(const std::string& call) {
    if (sNoting)
        sCalls.push_back(call);
}

static std::string shownSize(int w, int h) {
    return std::to_string(w) + "x" + std::to_string(h);
}

static std::string shownFlags(Uint32 flags) {
    std::string words;
    if (flags & SDL_RENDERER_ACCELERATED)
        words += " accelerated";
    if (flags & SDL_RENDERER_PRESENTVSYNC)
        words += " vsync";
    if (flags & ~uint32_t{SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC})
        words += " more";
    return words;
}

static std::string shownAccess(int access) {
    switch (access) {
    case SDL_TEXTUREACCESS_STATIC:
        return " static ";
    case SDL_TEXTUREACCESS_STREAMING:
        return " streaming ";
    case SDL_TEXTUREACCESS_TARGET:
        return " target ";
    default:
        return " unknown ";
    }
}

extern "C" SDL_Window* SDL_CreateWindow(const char* title, int x, int y, int w, int h, Uint32 flags) {
    static const auto real = REAL_FUNCTION(SDL_CreateWindow);
    const bool anywhere = x == static_cast<int>(SDL_WINDOWPOS_UNDEFINED) && x == y;
    note(std::string("window ") + title + " " + shownSize(w, h) + (anywhere ? " anywhere" : " somewhere") +
         (flags == SDL_WINDOW_SHOWN ? " shown" : " otherwise"));
    if (sRefusingTallWindows && h > w) {
        SDL_SetError("no tall windows in this test");
        return nullptr;
    }
    return real(title, x, y, w, h, flags);
}

extern "C" SDL_Renderer* SDL_CreateRenderer(SDL_Window* window, int index, Uint32 flags) {
    static const auto real = REAL_FUNCTION(SDL_CreateRenderer);
    note("renderer " + std::to_string(index) + shownFlags(flags));
    return real(window, index, flags);
}

extern "C" SDL_Texture* SDL_CreateTexture(SDL_Renderer* renderer, Uint32 format, int access, int w, int h) {
    static const auto real = REAL_FUNCTION(SDL_CreateTexture);
    const std::string name = SDL_GetPixelFormatName(format);
    const std::string prefix = "SDL_PIXELFORMAT_";
    note("texture " + shownSize(w, h) + shownAccess(access) +
         (name.rfind(prefix, 0) == 0 ? name.substr(prefix.size()) : name));
    return real(renderer, format, access, w, h);
}

extern "C" SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
    static const auto real = REAL_FUNCTION(SDL_CreateTextureFromSurface);
    note("texture from surface");
    if (sTexturesFromSurfaces == 0) {
        SDL_SetError("no more textures in this test");
        return nullptr;
    }
    --sTexturesFromSurfaces;
    SDL_Texture* const texture = real(renderer, surface);
    TextureNames::made(texture, surface);
    return texture;
}

extern "C" void SDL_DestroyTexture(SDL_Texture* texture) {
    static const auto real = REAL_FUNCTION(SDL_DestroyTexture);
    note("texture destroyed");
    real(texture);
}

extern "C" void SDL_DestroyRenderer(SDL_Renderer* renderer) {
    static const auto real = REAL_FUNCTION(SDL_DestroyRenderer);
    note("renderer destroyed");
    real(renderer);
}

extern "C" void SDL_DestroyWindow(SDL_Window* window) {
    static const auto real = REAL_FUNCTION(SDL_DestroyWindow);
    note("window destroyed");
    real(window);
}

CreationLog::CreationLog() {
    sCalls.clear();
    sNoting = true;
}

CreationLog::~CreationLog() {
    sRefusingTallWindows = false;
    sNoting = false;
    sTexturesFromSurfaces = std::numeric_limits<int>::max();
}

std::vector<std::string> CreationLog::take() {
    std::vector<std::string> calls;
    calls.swap(sCalls);
    return calls;
}

void CreationLog::refuseTallWindows() {
    sRefusingTallWindows = true;
}

void CreationLog::allowTexturesFromSurfaces(int more) {
    sTexturesFromSurfaces = more;
}
