// The formats whose size is written in digits.

#include "gfx/picture_size_formats.h"

#include <cctype>
#include <cstring>

static void skipLine(kestro::ByteReader& file) {
    for (uint32_t c = file.u8(); c != '\n' && c != '\r' && !file.ended();)
        c = file.u8();
}

/// Adds a digit to a number that stops growing at the largest.
static uint32_t withDigit(uint32_t number, uint32_t digit) {
    return static_cast<uint32_t>(std::min(uint64_t{number} * 10 + (digit - '0'), uint64_t{UINT32_MAX}));
}

/// The next number after white space, and the character behind it; 0 if something else comes.
static uint32_t readNumber(kestro::ByteReader& file, bool hasComments) {
    const auto isSpace = [](uint32_t c) { return isspace(static_cast<int>(c)) != 0; };
    const auto isDigit = [](uint32_t c) { return c >= '0' && c <= '9'; };
    uint32_t c = file.u8();
    while ((isSpace(c) || (hasComments && c == '#')) && !file.ended()) {
        if (c == '#')
            skipLine(file);
        c = file.u8();
    }
    if (c == '+')
        c = file.u8();
    uint32_t number = 0;
    for (; isDigit(c); c = file.u8())
        number = withDigit(number, c);
    return number;
}

/// Reads a line and tells whether it begins with `text`.
static bool lineBeginsWith(kestro::ByteReader& file, const char* text) {
    bool same = true;
    for (uint32_t c = file.u8(); c != '\n' && !file.ended(); c = file.u8())
        if (same && *text)
            same = c == static_cast<uint8_t>(*text++);
    return same && !*text;
}

namespace kestro {

PictureSize pnmSize(ByteReader& file) {
    file.seek(2);
    return {readNumber(file, true), readNumber(file, true)};
}

/// The size begins the first text in quotes.
PictureSize xpmSize(ByteReader& file) {
    file.seek(0);
    while (file.u8() != '"' && !file.ended()) {
    }
    return {readNumber(file, false), readNumber(file, false)};
}

PictureSize xvSize(ByteReader& file) {
    file.seek(0);
    while (!lineBeginsWith(file, "#END_OF_COMMENTS") && !file.ended()) {
    }
    return {readNumber(file, false), readNumber(file, false)};
}

} // namespace kestro
