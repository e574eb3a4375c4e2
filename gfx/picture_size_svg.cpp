#include "gfx/picture_size_formats.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The first characters of a word; what is longer than all that is looked for is cut.
struct Word {
    char text[64] = {};
    size_t length = 0;

    void add(char c) {
        if (length < sizeof text - 1)
            text[length++] = c;
    }
    bool is(const char* other) const { return strcmp(text, other) == 0; }
};

/// The characters of one tag, cut up as the decoder does it: a tag ends at the first '>', even in quotes.
class Tag {
public:
    /// Goes to the tag that comes next in the file.
    explicit Tag(kestro::ByteReader& file) : mFile(file) {
        while (file.u8() != '<' && !file.ended()) {
        }
        next();
    }

    /// The character at hand, 0 at the end of the tag.
    char at() const { return mAt; }

    void next() {
        if (mEnded)
            return;
        const auto c = static_cast<char>(mFile.u8());
        mEnded = c == '>' || mFile.ended();
        mAt = mEnded ? '\0' : c;
    }

    template <typename Condition>
    void skipWhile(Condition condition) {
        while (!mEnded && condition(mAt))
            next();
    }

    template <typename Condition>
    Word readWhile(Condition condition) {
        Word word;
        for (; !mEnded && condition(mAt); next())
            word.add(mAt);
        return word;
    }

private:
    kestro::ByteReader& mFile;
    char mAt = '\0';
    bool mEnded = false;
};

/// What one <svg> tag says, in pixels; 0 for what it does not say.
struct Claims {
    double width = 0;
    double height = 0;
    double viewWidth = 0;
    double viewHeight = 0;
};

} // namespace

static double readNumber(Tag& tag) {
    const Word digits = tag.readWhile([](char c) { return c && strchr("0123456789+-.eE", c); });
    return strtod(digits.text, nullptr);
}

/// A length in pixels; 0 for shares of the whole, which itself is not known.
static double readLength(Tag& tag) {
    static constexpr struct {
        const char* name;
        double pixels;
    } units[] = {{"pt", 96 / 72.0}, {"pc", 16}, {"mm", 96 / 25.4}, {"cm", 96 / 2.54}, {"in", 96}, {"%", 0}};
    const double number = readNumber(tag);
    const Word unit = tag.readWhile([](char c) { return c == '%' || (c >= 'a' && c <= 'z'); });
    for (const auto& known : units)
        if (unit.is(known.name))
            return number * known.pixels;
    return number;
}

static void readViewBox(Tag& tag, Claims& claims) {
    const auto skipSeparators = [&tag] {
        tag.skipWhile([](char c) { return isSpace(c) || c == ',' || c == '%'; });
    };
    for (int i = 0; i < 2; ++i) {
        readNumber(tag);
        skipSeparators();
    }
    claims.viewWidth = readNumber(tag);
    skipSeparators();
    claims.viewHeight = readNumber(tag);
}

/// Reads the attributes of a tag from behind its name.
static Claims readClaims(Tag& tag) {
    Claims claims;
    while (tag.at()) {
        tag.skipWhile(isSpace);
        const Word name = tag.readWhile([](char c) { return !isSpace(c) && c != '='; });
        tag.skipWhile([](char c) { return c != '"' && c != '\''; });
        const char quote = tag.at();
        tag.next();
        if (name.is("width"))
            claims.width = readLength(tag);
        else if (name.is("height"))
            claims.height = readLength(tag);
        else if (name.is("viewBox"))
            readViewBox(tag, claims);
        tag.skipWhile([quote](char c) { return c != quote; });
        tag.next();
    }
    return claims;
}

static uint32_t wholePixels(double length) {
    return static_cast<uint32_t>(std::min(std::max(std::ceil(length), 0.0), double{UINT32_MAX}));
}

namespace kestro {

/// Covers every <svg> tag, as the last one decides. A picture without a claim takes the size of its shapes,
/// which is known only after decoding.
PictureSize svgSize(ByteReader& file) {
    PictureSize size;
    file.seek(0);
    while (!file.ended()) {
        Tag tag(file);
        tag.skipWhile(isSpace);
        const bool isPicture = tag.readWhile([](char c) { return !isSpace(c); }).is("svg");
        const Claims claims = readClaims(tag);
        if (!isPicture)
            continue;
        size = larger(size, {wholePixels(claims.width > 0 ? claims.width : claims.viewWidth),
                             wholePixels(claims.height > 0 ? claims.height : claims.viewHeight)});
    }
    return size;
}

} // namespace kestro
