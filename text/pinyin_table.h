#pragma once

#include <cstdint>

namespace kestro {

/// The reading of one character. Packed, and by index, so that the table needs no relocation at load.
struct PinyinRecord {
    uint32_t codePoint : 21;
    uint32_t syllable : 11; ///< index into pinyinSyllables
};

/// Syllables in lower-case letters with a tone digit, 5 for the neutral tone; v stands for ü.
extern const char pinyinSyllables[1326][8];

/// In ascending order of code points, except that the last record belongs further up.
extern const PinyinRecord pinyinRecords[25360];

} // namespace kestro
