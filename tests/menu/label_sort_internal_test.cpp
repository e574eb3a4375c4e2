#include "menu/label_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <random>
#include <string>

namespace {

struct Label {
    uint32_t rank;
    std::string text;
};

std::vector<uint32_t> sorted(const std::vector<Label>& labels) {
    kestro::LabelSort sort(labels.size());
    for (const Label& label : labels)
        sort.add(label.rank, kestro::LabelSort::Label(label.text.c_str()));
    return sort.sorted();
}

/// The same with every label compared as a whole.
std::vector<uint32_t> plainlySorted(const std::vector<Label>& labels) {
    std::vector<uint32_t> numbers(labels.size());
    std::iota(numbers.begin(), numbers.end(), 0);
    std::stable_sort(numbers.begin(), numbers.end(), [&](uint32_t a, uint32_t b) {
        if (labels[a].rank != labels[b].rank)
            return labels[a].rank < labels[b].rank;
        return strcmp(labels[a].text.c_str(), labels[b].text.c_str()) < 0;
    });
    return numbers;
}

/// Labels that share beginnings and differ anywhere, or not at all.
class RandomLabels {
public:
    std::vector<Label> make() {
        std::vector<std::string> beginnings(1 + below(4));
        for (std::string& beginning : beginnings)
            beginning = text(below(20));
        const uint32_t ranks = 1 + below(4);
        const size_t longest = 1 + below(20);
        std::vector<Label> labels(below(4) ? below(40) : below(2000));
        for (Label& label : labels) {
            label.rank = below(ranks) * below(2) * 0x1234567;
            label.text = beginnings[below(beginnings.size())] + text(below(longest));
        }
        return labels;
    }

private:
    std::mt19937 mRandom{31};

    uint32_t below(size_t end) { return static_cast<uint32_t>(mRandom() % end); }

    std::string text(size_t length) {
        std::string made;
        const uint32_t variety = 1 + below(255);
        for (; length > 0; --length)
            made += static_cast<char>(1 + below(variety));
        return made;
    }
};

} // namespace

TEST(LabelSortTest, NothingIsNoTrouble) {
    EXPECT_TRUE(sorted({}).empty());
    EXPECT_EQ(sorted({{7, ""}}), (std::vector<uint32_t>{0}));
}

TEST(LabelSortTest, RanksCountFirstThenBytesThenTheOrderOfComing) {
    EXPECT_EQ(sorted({{1, "a"}, {0, "b"}, {0, "\xFF"}, {0, "B"}, {0, "b"}, {0, ""}}),
              (std::vector<uint32_t>{5, 3, 1, 4, 2, 0}));
}

TEST(LabelSortTest, LabelsMayDifferBeyondTheirFirstBytes) {
    const std::string same(100, 'x');
    EXPECT_EQ(sorted({{0, same + "b"}, {0, same}, {0, same + "a"}, {0, same.substr(1)}, {0, same + "a"}}),
              (std::vector<uint32_t>{3, 1, 2, 4, 0}));
    EXPECT_EQ(sorted({{0, "12345678"}, {0, "1234567"}, {0, "123456789"}, {0, "12345678"}}),
              (std::vector<uint32_t>{1, 0, 3, 2}));
}

TEST(LabelSortTest, VeryLongLabelsThatAreAlikeStayInTheirOrder) {
    const std::vector<Label> labels(300, {0, std::string(20'000, 'y')});
    EXPECT_EQ(sorted(labels), plainlySorted(labels));
}

TEST(LabelSortTest, TheOrderOf2000RandomListsIsThatOfComparingWholeLabels) {
    RandomLabels random;
    for (int round = 0; round < 2000; ++round) {
        const std::vector<Label> labels = random.make();
        ASSERT_EQ(sorted(labels), plainlySorted(labels)) << "round " << round;
    }
}
