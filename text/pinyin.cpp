#include "text/pinyin.h"

#include "core/load_order.h"
#include "text/pinyin_table.h"
#include "text/utf8.h"

#include <cstdlib>
#include <cstring>

std::map<unsigned int, const char*> gPinyinMap KESTRO_LOADED_PINYIN_MAP;

void InitPinYinMap() {
    gPinyinMap.clear();
    for (const kestro::PinyinRecord& record : kestro::pinyinRecords)
        gPinyinMap.emplace_hint(gPinyinMap.end(), record.codePoint, kestro::pinyinSyllables[record.syllable]);
}

static char initialOf(uint32_t codePoint) {
    if (codePoint < 128)
        return static_cast<char>(codePoint);
    const char*& syllable = gPinyinMap[codePoint];
    if (!syllable)
        syllable = ""; // so that nobody who walks the map meets a null
    return *syllable ? *syllable : ' ';
}

char* GetPinyinInitials2(const char* text) {
    if (!text)
        text = "";
    const size_t length = strlen(text);
    char* const initials = static_cast<char*>(calloc(kestro::countUtf8(text, length) + 1, 1));
    if (!initials)
        return nullptr;
    char* out = initials;
    for (size_t at = 0; at < length;) {
        const kestro::Utf8Step step = kestro::decodeUtf8(text + at, length - at);
        *out++ = initialOf(step.codePoint);
        at += step.length;
    }
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
