#include "text/utf8.h"

#include <algorithm>

namespace kestro {

static size_t leadingOnes(unsigned char byte) {
    size_t ones = 0;
    while (ones < 8 && (byte & (0x80u >> ones)))
        ++ones;
    return ones;
}

Utf8Step decodeUtf8(const char* text, size_t available) {
    const auto lead = static_cast<unsigned char>(*text);
    const size_t length = leadingOnes(lead);
    if (length < 2 || length > available)
        return {lead, 1};
    uint32_t codePoint = lead & (0xFFu >> length >> 1); // 0xFE and 0xFF keep nothing
    for (size_t i = 1; i < length; ++i)
        codePoint = codePoint << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    return {codePoint, length};
}

size_t utf8WalkLength(const char* text, size_t available) {
    const size_t claimed = std::max<size_t>(leadingOnes(static_cast<unsigned char>(*text)), 1);
    return std::min(claimed, available);
}

size_t countUtf8(const char* text, size_t length) {
    size_t count = 0;
    for (size_t at = 0; at < length; ++count)
        at += decodeUtf8(text + at, length - at).length;
    return count;
}

size_t utf8Offset(const char* text, size_t length, size_t index) {
    size_t at = 0;
    for (; at < length && index > 0; --index)
        at += decodeUtf8(text + at, length - at).length;
    return at;
}

} // namespace kestro
