#pragma once

#include <cstddef>
#include <cstdint>

namespace kestro {

/// One step of decoding UTF-8.
struct Utf8Step {
    uint32_t codePoint;
    size_t length; ///< bytes that the code point takes, at least 1
};

/// Decodes the code point at `text`, of which `available` (at least 1) bytes may be read.
///
/// A lead byte with two or more leading one bits takes that many bytes; what follows it is taken as it is.
/// A sequence cut off by the end of the text, and a lone continuation byte, count as one code point of one
/// byte with that byte as its value. So every text decodes to something, and nothing is read beyond it.
Utf8Step decodeUtf8(const char* text, size_t available);

/// The bytes that the code point at `text` claims, but not more than the `available` (at least 1). Where
/// decodeUtf8 takes a sequence that is cut off by the end one byte at a time, this takes all that is left.
size_t utf8WalkLength(const char* text, size_t available);

/// The number of code points in the `length` bytes at `text`.
size_t countUtf8(const char* text, size_t length);

/// The byte offset of the code point `index`; `length` when there are not that many.
size_t utf8Offset(const char* text, size_t length, size_t index);

} // namespace kestro
