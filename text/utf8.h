#pragma once

#include <cstddef>
#include <cstdint>

namespace kestro {

/// One step of decoding UTF-8.
struct Utf8Step {
    uint32_t codePoint;
    size_t length; ///< bytes that the code point takes, at least 1
};

/// The bits from the top of a byte down that are 1, before the first that is 0.
inline size_t leadingOnes(unsigned char byte) {
    return static_cast<size_t>(__builtin_clz(~(static_cast<unsigned>(byte) << 24)));
}

/// Decodes the code point at `text`, of which `available` (at least 1) bytes may be read.
///
/// A lead byte with two or more leading one bits takes that many bytes; what follows it is taken as it is.
/// A sequence cut off by the end of the text, and a lone continuation byte, count as one code point of one
/// byte with that byte as its value. So every text decodes to something, and nothing is read beyond it.
inline Utf8Step decodeUtf8(const char* text, size_t available) {
    const auto byteAt = [text](size_t at) -> uint32_t { return static_cast<unsigned char>(text[at]); };
    const uint32_t lead = byteAt(0);
    if (lead < 0x80)
        return {lead, 1};
    const size_t length = leadingOnes(static_cast<unsigned char>(lead));
    if (length < 2 || length > available)
        return {lead, 1};
    if (length == 3) // most of what is not ASCII
        return {(lead & 0x0F) << 12 | (byteAt(1) & 0x3F) << 6 | (byteAt(2) & 0x3F), 3};
    uint32_t codePoint = lead & (0xFFu >> length >> 1); // 0xFE and 0xFF keep nothing
    for (size_t i = 1; i < length; ++i)
        codePoint = codePoint << 6 | (byteAt(i) & 0x3F);
    return {codePoint, length};
}

/// The bytes that the code point at `text` claims, but not more than the `available` (at least 1). Where
/// decodeUtf8 takes a sequence that is cut off by the end one byte at a time, this takes all that is left.
size_t utf8WalkLength(const char* text, size_t available);

/// The number of code points in the `length` bytes at `text`.
size_t countUtf8(const char* text, size_t length);

/// The byte offset of the code point `index`; `length` when there are not that many.
size_t utf8Offset(const char* text, size_t length, size_t index);

} // namespace kestro
