#include "text/pinyin_table.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

using kestro::pinyinRecords;
using kestro::pinyinSyllables;

TEST(PinyinTable, Has25360Records) {
    EXPECT_EQ(std::size(pinyinRecords), 25360u);
}

TEST(PinyinTable, AscendsButForItsLastRecord) {
    for (size_t i = 1; i + 1 < std::size(pinyinRecords); ++i)
        ASSERT_LT(pinyinRecords[i - 1].codePoint, pinyinRecords[i].codePoint) << i;
    EXPECT_EQ(pinyinRecords[0].codePoint, 0x3400u);
    EXPECT_EQ(pinyinRecords[25358].codePoint, 0x29707u);
    EXPECT_EQ(pinyinRecords[25359].codePoint, 0x55EFu);
    EXPECT_STREQ(pinyinSyllables[pinyinRecords[25359].syllable], "en1");
}

TEST(PinyinTable, HasEachCharacterOnce) {
    std::set<unsigned> characters;
    for (const kestro::PinyinRecord& record : pinyinRecords)
        EXPECT_TRUE(characters.insert(record.codePoint).second) << std::hex << record.codePoint;
}

TEST(PinyinTable, NamesOnlySyllablesThatThereAre) {
    for (const kestro::PinyinRecord& record : pinyinRecords)
        ASSERT_LT(record.syllable, std::size(pinyinSyllables));
}

TEST(PinyinTable, HasEachSyllableOnce) {
    std::set<std::string> syllables(std::begin(pinyinSyllables), std::end(pinyinSyllables));
    EXPECT_EQ(syllables.size(), std::size(pinyinSyllables));
}
