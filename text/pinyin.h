#pragma once

#include "core/export.h"

#include <map>

/// The reading of Chinese characters: pinyin syllable with tone digit by code point, such as "zhong1" for
/// U+4E2D. Empty at load. Looking up a character that is not in it adds it with an empty syllable. The
/// syllables live for ever. A host may add and take out readings at any time; one that it puts in the place
/// of another counts for characters that were not looked up yet, until entries come or go. Not locked: main
/// thread.
extern KESTRO_API std::map<unsigned int, const char*> gPinyinMap;

/// Fills gPinyinMap with the 25360 characters that the library knows, and with nothing else. Readings are
/// those of Unicode's Unihan database (kMandarin). The host calls it once, before it searches; again is
/// harmless. Main thread.
KESTRO_API void InitPinYinMap();

/// The initials of `text` (UTF-8), one byte for every code point: an ASCII character itself, for a Chinese
/// one the first letter of its reading, a space for any other. The caller frees the result with `free`; null
/// when there is no memory. Null counts as "". Main thread.
KESTRO_API char* GetPinyinInitials2(const char* text);

/// Looks for `key` in `initials`, which are those of `text`, whatever the case. Returns 0 when found, and
/// then sets `*matchStart` to where the match begins in `text` and `*matchLen` to its length in bytes;
/// otherwise, and for any null argument, -1, and leaves both alone. Only the first match counts. A key with
/// more bytes than the text has from there on matches to the end of the text. Any thread.
KESTRO_API int PinyinStrstr(const char* text, const char* initials, const char* key, const char** matchStart,
                            int* matchLen);
