#include "gfx/truncate_memo.h"

#include "core/hash_bytes.h"

#include <array>
#include <cstdint>
#include <string>

namespace {

constexpr size_t longestLabel = 1024; // bytes; what is longer is measured anew
constexpr size_t setCount = 64;       // a power of two
constexpr size_t waysPerSet = 4;
constexpr size_t fontCount = 16; // the skin has nine

/// What can be seen of a font quickly, and changes what it measures.
struct Look {
    std::array<int, 8> numbers{};
    std::string family;
    std::string style;
};

struct Font {
    TTF_Font* font = nullptr;
    uint32_t edition = 0; // another one for every font, and for a font that has changed
    Look look;
};

struct Answer {
    uint64_t hash = 0;
    uint32_t edition = 0; // 0 for none
    int width = 0;
    int kept = 0;
    std::string text;
};

struct Set {
    std::array<Answer, waysPerSet> answers;
    size_t next = 0; // is overwritten next
};

} // namespace

static struct {
    std::array<Font, fontCount> fonts;
    size_t nextFont = 0;
    uint32_t lastEdition = 0;
    std::array<Set, setCount> sets;
} sMemo;

static std::array<int, 8> numbersOf(TTF_Font* font) {
    int letter = 0;
    TTF_GlyphMetrics(font, 'M', nullptr, nullptr, nullptr, nullptr, &letter);
    return {
        TTF_FontHeight(font),   TTF_FontAscent(font),     TTF_FontDescent(font),    TTF_FontLineSkip(font),
        TTF_GetFontStyle(font), TTF_GetFontOutline(font), TTF_GetFontHinting(font), letter};
}

static const char* orEmpty(const char* text) {
    return text ? text : "";
}

static bool looksLike(TTF_Font* font, const Look& look) {
    return numbersOf(font) == look.numbers && look.family == orEmpty(TTF_FontFaceFamilyName(font)) &&
           look.style == orEmpty(TTF_FontFaceStyleName(font));
}

static Font& placeOf(TTF_Font* font) {
    for (Font& known : sMemo.fonts)
        if (known.font == font)
            return known;
    return sMemo.fonts[sMemo.nextFont++ % fontCount];
}

/// The number of the font as it looks now.
static uint32_t editionOf(TTF_Font* font) {
    Font& known = placeOf(font);
    if (known.font != font || !looksLike(font, known.look)) {
        known.font = nullptr; // should there be no memory for the names
        known.edition = ++sMemo.lastEdition;
        known.look = {numbersOf(font), orEmpty(TTF_FontFaceFamilyName(font)),
                      orEmpty(TTF_FontFaceStyleName(font))};
        known.font = font;
    }
    return known.edition;
}

namespace kestro {

int knownTruncateLen(TTF_Font* font, std::string_view text, int width) {
    if (text.size() > longestLabel)
        return -1;
    const uint32_t edition = editionOf(font);
    const uint64_t hash = hashBytes(text);
    for (const Answer& answer : sMemo.sets[hash % setCount].answers)
        if (answer.hash == hash && answer.edition == edition && answer.width == width && answer.text == text)
            return answer.kept;
    return -1;
}

void rememberTruncateLen(TTF_Font* font, std::string_view text, int width, int kept) {
    if (text.size() > longestLabel)
        return;
    const uint64_t hash = hashBytes(text);
    Set& set = sMemo.sets[hash % setCount];
    Answer& answer = set.answers[set.next++ % waysPerSet];
    answer.edition = 0; // should there be no memory for the others
    answer.text.assign(text);
    answer.hash = hash;
    answer.width = width;
    answer.kept = kept;
    answer.edition = editionOf(font);
}

void forgetTruncateLens() {
    for (Font& known : sMemo.fonts)
        known.font = nullptr;
}

} // namespace kestro
