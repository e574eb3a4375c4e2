#include "navora/text_search.h"

#include <cstring>

namespace navora {

static char inSmall(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

void TextSearch::add(const std::string& text) {
    for (const char* at = text.c_str(); *at; ++at)
        mTexts += inSmall(*at);
    mTexts += '\0';
    mEnds.push_back(mTexts.size());
}

void TextSearch::clear() {
    mTexts.clear();
    mEnds.clear();
}

std::vector<size_t> TextSearch::find(const std::string& key) const {
    std::string wanted;
    for (const char c : key)
        wanted += inSmall(c);
    std::vector<size_t> found;
    size_t number = 0;
    size_t begin = 0;
    while (begin < mTexts.size()) {
        const void* const match =
            memmem(mTexts.data() + begin, mTexts.size() - begin, wanted.data(), wanted.size());
        if (!match)
            break;
        const auto at = static_cast<size_t>(static_cast<const char*>(match) - mTexts.data());
        while (mEnds[number] <= at)
            ++number;
        found.push_back(number);
        begin = mEnds[number]; // each text once
    }
    return found;
}

} // namespace navora
