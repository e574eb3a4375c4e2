#include "support/texture_names.h"

#include "gfx/surface_cache.h"
#include "support/real_function.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <map>

static bool sNaming = false;
static std::map<SDL_Surface*, std::string> sTexts; // rendered, but not made into textures yet
static std::map<SDL_Texture*, std::string> sNames;

extern "C" SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, const char* text, SDL_Color color) {
    static const auto real = REAL_FUNCTION(TTF_RenderUTF8_Blended);
    SDL_Surface* const rendered = real(font, text, color);
    if (sNaming && rendered) {
        char shown[16];
        snprintf(shown, sizeof shown, "#%02X%02X%02X%02X", color.r, color.g, color.b, color.a);
        sTexts[rendered] = "\"" + std::string(text) + "\" " + shown;
    }
    return rendered;
}

void TextureNames::made(SDL_Texture* texture, SDL_Surface* surface) {
    sNames.erase(texture); // of a texture that was at this address before
    if (const auto text = sTexts.find(surface); text != sTexts.end()) {
        sNames[texture] = text->second;
        sTexts.erase(text);
    }
}

TextureNames::TextureNames() {
    gTextSurfaceCache.clear();
    sTexts.clear();
    sNames.clear();
    sNaming = true;
}

TextureNames::~TextureNames() {
    sNaming = false;
    sTexts.clear();
    sNames.clear();
}

void TextureNames::name(KestroSurface* picture, const std::string& name) {
    if (const auto* const textured = dynamic_cast<SDL2KestroSurface*>(picture))
        sNames[textured->getTexture()] = "'" + name + "'";
}

std::string TextureNames::of(SDL_Texture* texture) {
    const auto found = sNames.find(texture);
    return sNaming && found != sNames.end() ? found->second : "copy";
}
