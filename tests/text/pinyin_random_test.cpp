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

using Readings = std::map<unsigned, const char*>;

/// The initials by these readings, to which the characters are added that are not in them.
Bytes initialsOf(const Bytes& text, Readings& readings) {
    Bytes initials;
    for (const size_t at : starts(text)) {
        const unsigned value = characterAt(text, at).first;
        if (value < 128)
            initials += static_cast<char>(value);
        else if (const char* const syllable = readings.try_emplace(value, "").first->second)
            initials += *syllable ? *syllable : ' ';
        else
            initials += ' ';
    }
    return initials;
}

/// The same characters with the same syllables.
bool alike(const Readings& a, const Readings& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.first == y.first && strcmp(x.second ? x.second : "", y.second ? y.second : "") == 0;
    });
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

    /// A character of which most have no reading, but some do.
    unsigned randomCharacter() { return static_cast<unsigned>(below(3) ? below(0x3500) : below(0x2A000)); }

    /// Takes some readings out, puts others in or in the place of others. What a host replaces is seen when
    /// entries come or go, so one of them always comes.
    void changeReadings() {
        for (size_t times = below(4); times > 0; --times) {
            gPinyinMap.erase(randomCharacter());
            gPinyinMap[randomCharacter()] = below(3) ? "x1" : "";
            gPinyinMap.begin()->second = "y2";
            gPinyinMap.rbegin()->second = below(5) ? "w3" : nullptr;
        }
        for (unsigned next = 0xE000; gPinyinMap.size() == mSizeBefore; ++next)
            gPinyinMap.emplace(next, "");
        if (below(20) == 0)
            gPinyinMap.clear();
        else if (below(20) == 0)
            InitPinYinMap();
        mSizeBefore = gPinyinMap.size();
    }
    size_t mSizeBefore = 0;

    Bytes randomKey(const Bytes& initials) {
        if (initials.empty() || below(4) == 0)
            return randomText(3);
        const size_t from = below(initials.size());
        return initials.substr(from, below(6));
    }
};

} // namespace

TEST_F(PinyinRandomTest, InitialsOf10000TextsAreRightAndNothingIsReadBeyond) {
    Readings readings = gPinyinMap;
    for (int round = 0; round < 10'000; ++round) {
        const Bytes text = randomText(20);
        const GuardedText guarded(text);
        char* const made = GetPinyinInitials2(guarded.text());
        const Bytes wanted = initialsOf(text, readings);
        // A character of value 0 makes a byte that ends the C string.
        ASSERT_EQ(Bytes(made, wanted.size()), wanted) << testing::PrintToString(text);
        ASSERT_EQ(made[wanted.size()], 0);
        free(made);
    }
    EXPECT_TRUE(alike(gPinyinMap, readings)) << "it has grown by the unknown characters alone";
}

TEST_F(PinyinRandomTest, InitialsFollowWhatAHostMakesOfTheReadings) {
    for (int round = 0; round < 200; ++round) {
        changeReadings();
        Readings readings = gPinyinMap;
        for (int again = 0; again < 3; ++again) {
            const Bytes text = randomText(20);
            char* const made = GetPinyinInitials2(text.c_str());
            const Bytes wanted = initialsOf(text, readings);
            ASSERT_EQ(Bytes(made, wanted.size()), wanted) << round << testing::PrintToString(text);
            free(made);
        }
        ASSERT_TRUE(alike(gPinyinMap, readings)) << round;
        mSizeBefore = gPinyinMap.size();
    }
}

TEST_F(PinyinRandomTest, FillingAgainMendsWhateverAHostMadeOfTheReadings) {
    const Readings filled = gPinyinMap;
    for (int round = 0; round < 80; ++round) {
        changeReadings();
        const auto place = gPinyinMap.lower_bound(randomCharacter());
        if (below(2) && place != gPinyinMap.end())
            place->second = "z4";
        InitPinYinMap();
        ASSERT_EQ(gPinyinMap, filled) << round;
        if (below(2)) { // one out, another in, or only another syllable
            gPinyinMap.erase(std::next(gPinyinMap.begin(), static_cast<long>(below(25'000))));
            gPinyinMap[0xE000 + static_cast<unsigned>(below(100))] = "q1";
        } else {
            std::next(gPinyinMap.begin(), static_cast<long>(below(25'360)))->second = "q1";
        }
        InitPinYinMap();
        ASSERT_EQ(gPinyinMap, filled) << round;
    }
}

TEST_F(PinyinRandomTest, MatchesIn10000TextsAreRightAndNothingIsReadBeyond) {
    Readings readings = gPinyinMap;
    int found = 0;
    for (int round = 0; round < 10'000; ++round) {
        const Bytes text = randomText(20);
        const Bytes initials = below(5) ? initialsOf(text, readings).c_str() : randomText(20);
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
