#include "text/utf8.h"

#include <algorithm>

namespace kestro {

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
