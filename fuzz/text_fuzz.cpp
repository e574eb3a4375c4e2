// UTF-8 and pinyin: the first line is a title, the second what is searched in it.
#include "fuzz/support/device.h"
#include "text/pinyin.h"
#include "text/utf8.h"

#include <cstddef>
#include <cstdlib>

static void walk(const std::string& text) {
    const size_t count = kestro::countUtf8(text.c_str(), text.size());
    for (size_t index = 0; index <= count + 1; ++index)
        if (kestro::utf8Offset(text.c_str(), text.size(), index) > text.size())
            abort();
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool ready = (InitPinYinMap(), true);
    (void)ready;
    const std::string text = fuzz::textOf(data, size);
    const std::string title = text.substr(0, text.find('\n'));
    const std::string key = title.size() < text.size() ? text.substr(title.size() + 1) : "";
    walk(title);
    char* const initials = GetPinyinInitials2(title.c_str());
    const char* start = nullptr;
    int length = 0;
    const bool found = PinyinStrstr(title.c_str(), initials, key.c_str(), &start, &length) == 0;
    const std::ptrdiff_t place = found ? start - title.c_str() : 0;
    const auto end = static_cast<std::ptrdiff_t>(title.size());
    if (place < 0 || length < 0 || place + length > end)
        abort();
    free(initials);
    return 0;
}
