#include "text/pinyin.h"

#include "core/load_order.h"
#include "core/out_of_memory.h"
#include "text/pinyin_table.h"
#include "text/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

using Readings = std::map<unsigned int, const char*>;

Readings gPinyinMap KESTRO_LOADED_PINYIN_MAP;

namespace {

/// The initials that were found in gPinyinMap, so that it is searched once for each character. A reading that
/// a host puts in the place of another is seen when entries come or go, or with the next InitPinYinMap.
class FoundInitials {
public:
    void forget() {
        memset(mInitials, 0, sizeof mInitials);
        noteMap();
    }

    /// Forgets if the map is not what it was.
    void check() {
        if (mSize != gPinyinMap.size() || mFirst != firstOf(gPinyinMap))
            forget();
    }

    char of(uint32_t codePoint) {
        const char known = codePoint < sizeof mInitials ? mInitials[codePoint] : '\0';
        if (known)
            return known;
        // Without memory to note that a character has no reading it has none.
        return kestro::unlessOutOfMemory("GetPinyinInitials2", ' ', [=] { return search(codePoint); });
    }

private:
    char mInitials[0x10000]; // of nearly all that names are made of
    size_t mSize;
    const Readings::value_type* mFirst;

    static const Readings::value_type* firstOf(const Readings& readings) {
        return readings.empty() ? nullptr : &*readings.begin();
    }

    void noteMap() {
        mSize = gPinyinMap.size();
        mFirst = firstOf(gPinyinMap);
    }

    char search(uint32_t codePoint) {
        const char*& syllable = gPinyinMap[codePoint];
        if (!syllable)
            syllable = ""; // so that nobody who walks the map meets a null
        noteMap();
        const char initial = *syllable ? *syllable : ' ';
        if (codePoint < sizeof mInitials)
            mInitials[codePoint] = initial;
        return initial;
    }
};

FoundInitials sFound;

} // namespace

static const char* syllableOf(const kestro::PinyinRecord& record) {
    return kestro::pinyinSyllables[record.syllable];
}

/// Where the last record of the table would stand among the others, all of which ascend.
static size_t placeOfLast() {
    const kestro::PinyinRecord* const last = std::end(kestro::pinyinRecords) - 1;
    const auto isBelow = [](const auto& a, const auto& b) { return a.codePoint < b.codePoint; };
    const auto* const place = std::lower_bound(kestro::pinyinRecords, last, *last, isBelow);
    return static_cast<size_t>(place - kestro::pinyinRecords);
}

/// Walks from both ends at once, which the processor does almost as fast as from one.
static bool isFilled() {
    constexpr size_t size = std::size(kestro::pinyinRecords);
    if (gPinyinMap.size() != size)
        return false;
    const size_t place = placeOfLast();
    const auto isRecord = [place](const Readings::value_type& entry, size_t index) {
        const size_t at = index < place ? index : index == place ? size - 1 : index - 1;
        const kestro::PinyinRecord& record = kestro::pinyinRecords[at];
        return entry.first == record.codePoint && entry.second == syllableOf(record);
    };
    auto first = gPinyinMap.begin();
    auto last = std::prev(gPinyinMap.end());
    for (size_t i = 0; i <= size / 2; ++i, ++first, --last)
        if (!isRecord(*first, i) || !isRecord(*last, size - 1 - i))
            return false;
    return true;
}

void InitPinYinMap() {
    sFound.forget();
    if (isFilled())
        return;
    gPinyinMap.clear();
    kestro::unlessOutOfMemory(__func__, [] {
        for (const kestro::PinyinRecord& record : kestro::pinyinRecords)
            gPinyinMap.emplace_hint(gPinyinMap.end(), record.codePoint, syllableOf(record));
    });
}

/// Copies ASCII characters to `out`, eight at a time, up to the first eight bytes with another among them.
/// Returns how many.
static size_t copyAscii(const char* text, size_t length, char* out) {
    constexpr uint64_t topBits = 0x8080808080808080;
    uint64_t eight;
    size_t at = 0;
    for (; length - at >= sizeof eight; at += sizeof eight) {
        memcpy(&eight, text + at, sizeof eight);
        if (eight & topBits)
            break;
        memcpy(out + at, &eight, sizeof eight);
    }
    return at;
}

char* GetPinyinInitials2(const char* text) {
    if (!text)
        text = "";
    const size_t length = strlen(text);
    char* const initials = static_cast<char*>(malloc(length + 1)); // a byte too many for some
    if (!initials)
        return nullptr;
    sFound.check();
    char* out = initials;
    for (size_t at = 0; at < length;) {
        const kestro::Utf8Step step = kestro::decodeUtf8(text + at, length - at);
        at += step.length;
        if (step.codePoint >= 128) {
            *out++ = sFound.of(step.codePoint);
            continue;
        }
        *out++ = static_cast<char>(step.codePoint);
        const size_t copied = copyAscii(text + at, length - at, out);
        at += copied;
        out += copied;
    }
    *out = 0;
    return initials;
}

/// The bytes of the `count` code points at `text`, of which `length` bytes remain.
static size_t walk(const char* text, size_t length, size_t count) {
    size_t at = 0;
    for (; count > 0 && at < length; --count)
        at += kestro::utf8WalkLength(text + at, length - at);
    return at;
}

int PinyinStrstr(const char* text, const char* initials, const char* key, const char** matchStart,
                 int* matchLen) {
    if (!text || !initials || !key || !matchStart || !matchLen)
        return -1;
    const char* const found = strcasestr(initials, key);
    if (!found)
        return -1;
    const size_t length = strlen(text);
    const auto index = static_cast<size_t>(found - initials);
    if (index >= kestro::countUtf8(text, length))
        return -1;
    const size_t start = kestro::utf8Offset(text, length, index);
    // The bytes that remain are compared with the key's bytes, not with the match's: a short name that
    // ends in Chinese is matched to its end.
    const size_t rest = length - start;
    const size_t keyLength = strlen(key);
    *matchStart = text + start;
    *matchLen = static_cast<int>(keyLength > rest ? rest : walk(text + start, rest, keyLength));
    return 0;
}
