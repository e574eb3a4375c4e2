#include "gfx/text_key.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

// Written by hand: every text on a page asks for its key in every frame, and printing takes longer than all
// that follows it.

static constexpr size_t longestTail = 64;

static char* putText(char* to, std::string_view text) {
    memcpy(to, text.data(), text.size());
    return to + text.size();
}

/// As "%p" prints it.
static char* putAddress(char* to, const void* address) {
    auto rest = reinterpret_cast<uintptr_t>(address);
    if (rest == 0)
        return putText(to, "(nil)");
    char digits[2 * sizeof rest];
    size_t count = 0;
    for (; rest > 0; rest >>= 4)
        digits[count++] = "0123456789abcdef"[rest & 15];
    to = putText(to, "0x");
    while (count > 0)
        *to++ = digits[--count];
    return to;
}

static char* putByte(char* to, Uint8 byte) {
    static constexpr char digits[] = "0123456789ABCDEF";
    *to++ = '_';
    *to++ = digits[byte >> 4];
    *to++ = digits[byte & 15];
    return to;
}

std::string_view kestro::textKey(const TTF_Font* font, const char* text, SDL_Color color, int shadow) {
    static constexpr size_t longest = 2047; // bytes
    static char key[longest + longestTail];
    char* end = putText(key, {text, strnlen(text, longest)});
    *end++ = '_';
    end = putAddress(end, font);
    for (const Uint8 byte : {color.r, color.g, color.b, color.a})
        end = putByte(end, byte);
    end = putText(end, "_shadow");
    *end++ = shadow ? '1' : '0';
    return {key, std::min(static_cast<size_t>(end - key), longest)};
}
