/// Loaded before the launcher (LD_PRELOAD), this notes what its last frame is made of, in the file that the
/// environment variable KESTRO_DRAWN_FRAME names. One line for each thing drawn, in order, with tabs between:
/// "picture", "text" or "other"; the picture's name, or the text; x, y, width and height in pixels. The file
/// that KESTRO_DRAWN_PICTURE names, if it is set, gets every frame as a picture, one in the place of the
/// other.
///
/// The library's own calls of its exported functions, and of SDL's, come by here: so the rectangles are those
/// that the code really uses.
#include "gfx/image.h"

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <map>
#include <string>

/// The function that one in this file has taken the place of. It may be called while static objects of other
/// libraries are still being made.
template <typename Function>
static Function* realFunction(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Kept to the end of the process, since pictures are drawn and released in exit handlers too.
static struct Notes {
    std::map<SDL_Surface*, std::string> texts; // rendered, but not made into textures yet
    std::map<SDL_Texture*, std::string> names; // "picture\tNAME" or "text\tTEXT"
    std::string frame;                         // as far as it is drawn
    std::string lastFrame;
}& sNotes = *new Notes;

/// A picture that is no theme's has no name. Without dynamic_cast, whose type information the launcher's
/// child processes lack.
static KestroSurface* named(KestroSurface* picture, const char* name) {
    auto* const textured = static_cast<SDL2KestroSurface*>(picture);
    if (textured && name && *name)
        sNotes.names[textured->getTexture()] = std::string("picture\t") + name;
    return picture;
}

KestroSurface* LoadKestroSurface(const char* themeDir, const char* defaultDir, const char* name) {
    static auto* const real = realFunction(&LoadKestroSurface, "_Z17LoadKestroSurfacePKcS0_S0_");
    return named(real(themeDir, defaultDir, name), name);
}

KestroSurface* LoadKestroSurfaceSpecSized(const char* path, int width, int height, const char* name,
                                          bool useTheme, bool keepRatio) {
    static auto* const real =
        realFunction(&LoadKestroSurfaceSpecSized, "_Z26LoadKestroSurfaceSpecSizedPKciiS0_bb");
    return named(real(path, width, height, name, useTheme, keepRatio), name);
}

extern "C" SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, const char* text, SDL_Color color) {
    static auto* const real = realFunction(&TTF_RenderUTF8_Blended, "TTF_RenderUTF8_Blended");
    SDL_Surface* const rendered = real(font, text, color);
    sNotes.texts[rendered] = std::string("text\t") + text;
    return rendered;
}

extern "C" SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
    static auto* const real = realFunction(&SDL_CreateTextureFromSurface, "SDL_CreateTextureFromSurface");
    SDL_Texture* const texture = real(renderer, surface);
    sNotes.names.erase(texture); // of a texture that was at this address before
    if (const auto text = sNotes.texts.find(surface); text != sNotes.texts.end()) {
        sNotes.names[texture] = text->second;
        sNotes.texts.erase(text);
    }
    return texture;
}

extern "C" int SDL_RenderCopy(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* src,
                              const SDL_Rect* dst) {
    static auto* const real = realFunction(&SDL_RenderCopy, "SDL_RenderCopy");
    SDL_Rect whole{}; // which is what a null rectangle stands for
    SDL_RenderGetViewport(renderer, &whole);
    const SDL_Rect& to = dst ? *dst : whole;
    const auto name = sNotes.names.find(texture);
    char place[64];
    snprintf(place, sizeof place, "\t%d\t%d\t%d\t%d\n", to.x, to.y, to.w, to.h);
    sNotes.frame += (name == sNotes.names.end() ? "other\t" : name->second) + place;
    return real(renderer, texture, src, dst);
}

static void writePicture(SDL_Renderer* renderer) {
    const char* const path = getenv("KESTRO_DRAWN_PICTURE");
    SDL_Rect screen{};
    SDL_RenderGetViewport(renderer, &screen);
    SDL_Surface* const pixels = path ? create_surface(screen.w, screen.h) : nullptr;
    if (!pixels)
        return;
    SDL_RenderReadPixels(renderer, nullptr, pixels->format->format, pixels->pixels, pixels->pitch);
    IMG_SavePNG(pixels, path);
    SDL_FreeSurface(pixels);
}

extern "C" void SDL_RenderPresent(SDL_Renderer* renderer) {
    static auto* const real = realFunction(&SDL_RenderPresent, "SDL_RenderPresent");
    writePicture(renderer);
    real(renderer);
    sNotes.lastFrame.swap(sNotes.frame);
    sNotes.frame.clear();
}

/// At the end of the process. Its child processes have drawn nothing, and write nothing.
__attribute__((destructor)) static void writeLastFrame() {
    const char* const path = getenv("KESTRO_DRAWN_FRAME");
    if (!path || sNotes.lastFrame.empty())
        return;
    FILE* const file = fopen(path, "w");
    if (!file)
        return;
    fputs(sNotes.lastFrame.c_str(), file);
    fclose(file);
}
