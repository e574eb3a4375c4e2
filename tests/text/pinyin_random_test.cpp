#include "support/guarded_text.h"
#include "text/pinyin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <random>
#include <strings.h>

// Random bytes for a text, against a second, slow reading of the rules.

namespace {

using Bytes = std::string;

int ones(char byte) {
    int count = 0;
    for (int bit = 7; bit >= 0 && (byte >> bit & 1); --bit)
        ++count;
    return count;
}

/// The value and length of the character at `at`.
std::pair<unsigned, size_t> characterAt(const Bytes& text, size_t at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const auto length = static_cast<size_t>(ones(text[at]));
    if (length < 2 || at + length > text.size())
        return {lead, 1};
    unsigned long long value = length >= 7 ? 0u : lead % (1u << (7 - length));
    for (size_t i = 1; i < length; ++i)
        value = value * 64 + static_cast<unsigned char>(text[at + i]) % 64;
    return {static_cast<unsigned>(value), length};
}

std::vector<size_t> starts(const Bytes& text) {
    std::vector<size_t> all;
    for (size_t at = 0; at < text.size(); at += characterAt(text, at).second)
        all.push_back(at);
    return all;
}

Bytes initialsOf(const Bytes& text) {
    Bytes initials;
    for (const size_t at : starts(text)) {
        const unsigned value = characterAt(text, at).first;
        const auto found = gPinyinMap.find(value);
        const bool known = found != gPinyinMap.end() && *found->second;
        initials += value < 128 ? static_cast<char>(value) : known ? *found->second : ' ';
    }
    return initials;
}

/// The length of a match of `key` that begins at the byte `start`.
size_t matchLength(const Bytes& text, size_t start, const Bytes& key) {
    if (start + key.size() > text.size())
        return text.size() - start;
    size_t at = start;
    for (size_t i = 0; i < key.size() && at < text.size(); ++i)
        at = std::min(text.size(), at + static_cast<size_t>(std::max(1, ones(text[at]))));
    return at - start;
}

class PinyinRandomTest : public testing::Test {
protected:
    std::mt19937 random{20'000};

    void SetUp() override { InitPinYinMap(); }
    void TearDown() override { gPinyinMap.clear(); }

    size_t below(size_t end) { return std::uniform_int_distribution<size_t>(0, end - 1)(random); }

    /// Bytes of all values, with lead bytes, letters and whole Chinese characters often enough.
    Bytes randomText(size_t longest) {
        Bytes text;
        for (size_t pieces = below(longest + 1); pieces > 0; --pieces)
            switch (below(4)) {
            case 0:
                text += static_cast<char>(1 + below(255));
                break;
            case 1:
                text += static_cast<char>(0xC0 + below(0x40));
                break;
            case 2:
                text += static_cast<char>('a' + below(3));
                break;
            default:
                text += below(2) ? "\u4E2D" : "\u8D85";
            }
        return text;
    }

    Bytes randomKey(const Bytes& initials) {
        if (initials.empty() || below(4) == 0)
            return randomText(3);
        const size_t from = below(initials.size());
        return initials.substr(from, below(6));
    }
};

} // namespace

TEST_F(PinyinRandomTest, InitialsOf10000TextsAreRightAndNothingIsReadBeyond) {
    for (int round = 0; round < 10'000; ++round) {
        const Bytes text = randomText(20);
        const GuardedText guarded(text);
        char* const made = GetPinyinInitials2(guarded.text());
        const Bytes wanted = initialsOf(text);
        // A character of value 0 makes a byte that ends the C string.
        ASSERT_EQ(Bytes(made, wanted.size()), wanted) << testing::PrintToString(text);
        ASSERT_EQ(made[wanted.size()], 0);
        free(made);
    }
}

TEST_F(PinyinRandomTest, MatchesIn10000TextsAreRightAndNothingIsReadBeyond) {
    int found = 0;
    for (int round = 0; round < 10'000; ++round) {
        const Bytes text = randomText(20);
        const Bytes initials = below(5) ? initialsOf(text).c_str() : randomText(20);
        const Bytes key = randomKey(initials);
        const GuardedText guardedText(text), guardedInitials(initials), guardedKey(key);
        const char* start = nullptr;
        int length = -77;
        const int result =
            PinyinStrstr(guardedText.text(), guardedInitials.text(), guardedKey.text(), &start, &length);

        const char* const match = strcasestr(initials.c_str(), key.c_str());
        const std::vector<size_t> characters = starts(text);
        const auto index = static_cast<size_t>(match ? match - initials.c_str() : -1);
        if (!match || index >= characters.size()) {
            ASSERT_EQ(result, -1);
            ASSERT_EQ(start, nullptr);
            ASSERT_EQ(length, -77);
            continue;
        }
        ++found;
        ASSERT_EQ(result, 0) << testing::PrintToString(text) << testing::PrintToString(key);
        ASSERT_EQ(start - guardedText.text(), static_cast<long>(characters[index]));
        ASSERT_EQ(static_cast<size_t>(length), matchLength(text, characters[index], key));
    }
    EXPECT_GT(found, 5000) << "the keys are well chosen";
}
