#include "navora/folder.h"

#include <gtest/gtest.h>

#include <utility>

TEST(FolderTest, SizesHaveTwoDigitsAtLeastFromAThousandOn) {
    for (const auto& [bytes, text] : {std::pair<long long, const char*>{0, "0 B"},
                                      {1, "1 B"},
                                      {999, "999 B"},
                                      {1000, "1.0 kB"},
                                      {9949, "9.9 kB"},
                                      {9950, "10 kB"},
                                      {999'499, "999 kB"},
                                      {999'500, "1.0 MB"},
                                      {2'500'000'000, "2.5 GB"},
                                      {64'000'000'000'000, "64 TB"},
                                      {5'000'000'000'000'000, "5000 TB"}})
        EXPECT_EQ(navora::sizeText(bytes), text) << bytes;
}

TEST(FolderTest, AFileIsDescribedByItsEndingAndItsSize) {
    navora::Entry file{};
    file.size = 24'000;
    for (const auto& [name, text] :
         {std::pair{"page.png", "PNG, 24 kB"}, {"a.b.7z", "7Z, 24 kB"}, {"README", "24 kB"}}) {
        file.name = name;
        EXPECT_EQ(navora::describeFile(file), text);
    }
}
