#include "gfx/text.h"

#include "core/out_of_memory.h"
#include "gfx/font_height.h"
#include "gfx/screen_internal.h"
#include "gfx/surface.h"
#include "gfx/surface_cache.h"
#include "gfx/surface_cache_internal.h"
#include "gfx/surface_internal.h"
#include "gfx/text_key.h"
#include "gfx/truncate_memo.h"
#include "text/utf8.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The rendered text, from the cache if it is there. A texture that cannot be made leaves a null entry,
/// which counts as a miss the next time.
static KestroSurface* renderedText(TTF_Font* font, const char* text, SDL_Color color, int shadow) {
    const std::string_view key = kestro::textKey(font, text, color, shadow);
    if (void* const cached = gTextSurfaceCache.find(key))
        return static_cast<KestroSurface*>(cached);
    SDL_Surface* const glyphs = TTF_RenderUTF8_Blended(font, text, color);
    if (!glyphs)
        return nullptr;
    return kestro::keepSurface(gTextSurfaceCache, key, kestro::surfaceOwning(glyphs));
}

static SDL_Rect placed(const SDL_Rect& rect, int width, int height, int align) {
    SDL_Rect place{rect.x, rect.y, width, height};
    const bool leftAligned = align == 0 || align == 3;
    const bool vertical = align == 1 || align == 3 || align == 4;
    if (align == 1)
        place.x += (rect.w - width) / 2;
    else if (!leftAligned)
        place.x += rect.w - width;
    if (vertical)
        place.y += (rect.h - height) / 2;
    return place;
}

int DrawString(TTF_Font* font, SDL_Rect rect, const char* text, SDL_Color color, int align, bool shadow,
               bool measureOnly) {
    if (!font || !text)
        return 0;
    KestroSurface* const main = renderedText(font, text, color, 0);
    if (!main)
        return 0;
    const int width = main->getWidth();
    SDL_Rect place = placed(rect, width, main->getHeight(), align);
    if (shadow) {
        // In the text's own colour, and drawn even when only measuring: both on purpose.
        SDL_Rect under{place.x + 1, place.y + 2, place.w, place.h};
        if (KestroSurface* const copy = renderedText(font, text, color, 1))
            copy->render(nullptr, &under, true, nullptr);
    }
    if (!measureOnly)
        main->render(nullptr, &place, true, nullptr);
    return width;
}

namespace {

/// A text cut into its lines.
class Lines {
public:
    Lines(const char* text, const char* separators) : mCopy(strdup(text), free) {
        if (!mCopy)
            return;
        kestro::unlessOutOfMemory("DrawStringLines", [&] { split(separators ? separators : ""); });
    }

    int count() const { return static_cast<int>(mLines.size()); }

    void draw(TTF_Font* font, const SDL_Rect& rect, int pitch, SDL_Color color, int align,
              bool shadow) const {
        SDL_Rect place{rect.x, rect.y, rect.w, pitch};
        for (const char* line : mLines) {
            DrawString(font, place, line, color, align, shadow, false);
            place.y += pitch;
        }
    }

private:
    std::unique_ptr<char, void (*)(void*)> mCopy;
    std::vector<const char*> mLines;

    void split(const char* separators) {
        char* rest = nullptr;
        for (char* line = strtok_r(mCopy.get(), separators, &rest); line;
             line = strtok_r(nullptr, separators, &rest))
            mLines.push_back(line);
    }
};

} // namespace

int DrawStringLines(TTF_Font* font, const SDL_Rect& rect, const char* text, const char* separators,
                    const SDL_Color& color, int align, bool shadow) {
    if (!font || !text)
        return 0;
    const Lines lines(text, separators);
    if (lines.count() == 0)
        return 0;
    // Four and five are both meant: more than four pixels between the lines, and else five.
    const int height = kestro::fontHeight(font);
    const int spread = rect.h / lines.count();
    lines.draw(font, rect, spread > height + 4 ? spread : height + 5, color, align, shadow);
    return 0;
}

int DrawStringLinesSpacing(TTF_Font* font, const SDL_Rect& rect, const char* text, const char* separators,
                           int spacing, const SDL_Color& color, int align, bool shadow) {
    if (!font || !text)
        return 0;
    Lines(text, separators).draw(font, rect, kestro::fontHeight(font) + spacing, color, align, shadow);
    return 0;
}

static int measuredTruncateLen(TTF_Font* font, std::string_view text, int width) {
    // The twenty pixels and the tenth that is left leave room for the ellipsis.
    const float limit = static_cast<float>((static_cast<int64_t>(width) - 20) * 9 / 10);
    float sum = 0.0f;
    int kept = 0;
    for (size_t at = 0; at < text.size(); ++kept) {
        if (limit <= sum)
            return kept;
        const kestro::Utf8Step step = kestro::decodeUtf8(text.data() + at, text.size() - at);
        int advance = 0;
        TTF_GlyphMetrics(font, static_cast<Uint16>(step.codePoint), nullptr, nullptr, nullptr, nullptr,
                         &advance);
        const double glyph = step.codePoint <= 128 ? advance + 1.7 : advance;
        sum = static_cast<float>(static_cast<double>(sum) + glyph);
        at += step.length;
    }
    return 0;
}

int getTruncateLen(TTF_Font* font, const char* text, int, int width) {
    if (!font || !text)
        return 0;
    const std::string_view label = text;
    const auto known = [&] { return kestro::knownTruncateLen(font, label, width); };
    int kept = kestro::unlessOutOfMemory(__func__, -1, known);
    if (kept < 0) {
        kept = measuredTruncateLen(font, label, width);
        kestro::unlessOutOfMemory(__func__, [&] { kestro::rememberTruncateLen(font, label, width, kept); });
    }
    return kept;
}
