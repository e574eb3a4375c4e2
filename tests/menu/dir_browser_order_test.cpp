#include "support/dir_test.h"
#include "support/entry_repeater.h"

#include "system/language.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <random>

/// Rows come out as if each had been inserted alone, in the order in which the folder gives its entries.
class DirOrderTest : public DirTest {
protected:
    /// The rows in the order in which they were made.
    std::vector<TextMenuItem*> made;

    /// Reads a folder of `count` entries with rows that `maker` makes.
    std::vector<void*> read(int count, const std::function<TextMenuItem*()>& maker) {
        made.clear();
        make({"base/file"});
        const EntryRepeater repeater(count);
        onEntry = [&](const char*, const char*, int) {
            made.push_back(maker());
            return made.back();
        };
        const std::vector<void*> rows = *browser.LoadDir("base", nullptr);
        onEntry = nullptr;
        takeLog();
        return rows;
    }

    static TextMenuItem* row(const std::string& label) { return plainRow(label.c_str()); }

    static TextMenuItem* row(const std::string& label, uint32_t group) {
        return new TextMenuItem(label.c_str(), nullptr, new GroupAction(group), true);
    }

    static bool goesBefore(TextMenuItem* added, TextMenuItem* there) {
        if (added->getAction() && there->getAction()) {
            const uint32_t difference = there->getAction()->sortGroup - added->getAction()->sortGroup;
            if (difference != 0)
                return (difference & 0x80000000) != 0;
        }
        return strcmp(added->getLabel().c_str(), there->getLabel().c_str()) <= 0;
    }

    /// One by one.
    std::vector<void*> inserted() const {
        std::vector<void*> rows;
        for (TextMenuItem* added : made) {
            size_t at = 0;
            while (at < rows.size() && !goesBefore(added, static_cast<TextMenuItem*>(rows[at])))
                ++at;
            rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(at), added);
        }
        return rows;
    }

    /// Reads rows of the labels and groups (-1 for no action) in this order.
    std::vector<std::string> orderOf(const std::vector<std::pair<std::string, int64_t>>& rows) {
        size_t next = 0;
        const std::vector<void*> ordered = read(static_cast<int>(rows.size()), [&] {
            const auto& [label, group] = rows[next++];
            return group < 0 ? row(label) : row(label, static_cast<uint32_t>(group));
        });
        return labels(&ordered);
    }
};

using testing::ElementsAre;

TEST_F(DirOrderTest, HigherGroupsComeFirst) {
    EXPECT_THAT(orderOf({{"a", 1}, {"b", 3}, {"c", 2}, {"d", 3}, {"e", 1}}),
                ElementsAre("b", "d", "c", "a", "e"));
}

TEST_F(DirOrderTest, WithinAGroupLabelsAreInByteOrder) {
    EXPECT_THAT(orderOf({{"a", 7}, {"B", 7}, {"Z", 7}, {"b", 7}, {"中", 7}, {"é", 7}, {"", 7}, {"1", 7}}),
                ElementsAre("", "1", "B", "Z", "a", "b", "é", "中"));
    EXPECT_THAT(orderOf({{"a", -1}, {"B", -1}, {"b", -1}}), ElementsAre("B", "a", "b"));
}

TEST_F(DirOrderTest, OfTheSameLabelTheNewestComesFirst) {
    const std::vector<void*> rows = read(4, [] { return row("same", 1); });
    EXPECT_EQ(rows, (std::vector<void*>{made[3], made[2], made[1], made[0]}));
    const std::vector<void*> without = read(3, [] { return row("same"); });
    EXPECT_EQ(without, (std::vector<void*>{made[2], made[1], made[0]}));
}

TEST_F(DirOrderTest, GroupsAreComparedByTheirSignedDifference) {
    EXPECT_THAT(orderOf({{"a", 0}, {"b", 0x7FFFFFFF}}), ElementsAre("b", "a"));
    EXPECT_THAT(orderOf({{"a", 0}, {"b", 0xFFFFFFFF}}), ElementsAre("a", "b"));
    EXPECT_THAT(orderOf({{"a", 0xFFFFFFFE}, {"b", 0xFFFFFFFF}}), ElementsAre("b", "a"));
    // Half way round the difference is negative from both sides: the newer row goes before.
    EXPECT_THAT(orderOf({{"a", 0}, {"b", 0x80000000}}), ElementsAre("b", "a"));
    EXPECT_THAT(orderOf({{"a", 0x80000000}, {"b", 0}}), ElementsAre("b", "a"));
}

TEST_F(DirOrderTest, RowsWithoutActionCompareByLabelWithAll) {
    EXPECT_THAT(orderOf({{"m", 1}, {"a", 0}, {"k", -1}, {"z", 5}}), ElementsAre("k", "z", "m", "a"));
    EXPECT_THAT(orderOf({{"k", -1}, {"m", 1}, {"a", 2}}), ElementsAre("a", "k", "m"));
    EXPECT_THAT(orderOf({{"b", -1}, {"c", 1}, {"a", 0}, {"d", 2}}), ElementsAre("d", "a", "b", "c"));
}

TEST_F(DirOrderTest, AWordThatStandsInForALabelIsWhatIsCompared) {
    int next = 0;
    const std::vector<void*> rows = read(4, [&next] {
        static const struct {
            const char* label;
            int id;
        } given[] = {{"P", 0}, {"", 4}, {"N", 4}, {"", -1}}; // word 4 is OPEN
        TextMenuItem* const item = row(given[next].label);
        item->setLabelId(given[next++].id);
        return item;
    });
    EXPECT_THAT(labels(&rows), ElementsAre("", "N", "OPEN", "P"));
}

/// Random rows, by how their groups are chosen.
class DirRandomOrderTest : public DirOrderTest,
                           public testing::WithParamInterface<std::pair<bool, std::vector<uint32_t>>> {};

TEST_P(DirRandomOrderTest, IsThatOfInsertingOneByOne) {
    const auto& [someWithout, groups] = GetParam();
    std::mt19937 random(99);
    const auto pick = [&random](size_t count) { return random() % count; };
    static const char* const names[] = {"", "a", "b", "B", "ab", "ba", "中", "中a", "\xFF", "zz", "Z"};
    for (int round = 0; round < 150; ++round) {
        const size_t variety = 1 + pick(std::size(names));
        const int count = 2 + static_cast<int>(pick(round % 10 == 0 ? 300 : 30));
        const std::vector<void*> rows = read(count, [&, groupsOf = &groups, plain = someWithout] {
            const std::string label = names[pick(variety)];
            const bool hasAction = !groupsOf->empty() && !(plain && pick(3) == 0);
            return hasAction ? row(label, (*groupsOf)[pick(groupsOf->size())]) : row(label);
        });
        ASSERT_EQ(rows.size(), static_cast<size_t>(count));
        ASSERT_EQ(rows, inserted()) << "round " << round;
    }
}

using Groups = std::vector<uint32_t>;

INSTANTIATE_TEST_SUITE_P(Groups, DirRandomOrderTest,
                         testing::Values(std::pair(false, Groups{}), std::pair(false, Groups{5}),
                                         std::pair(true, Groups{5}), std::pair(false, Groups{0, 1, 2, 3}),
                                         std::pair(true, Groups{0, 1, 2, 3}),
                                         std::pair(false, Groups{0, 0x7FFFFFFF}),
                                         std::pair(false, Groups{0, 0x80000000}),
                                         std::pair(false, Groups{0, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF}),
                                         std::pair(true, Groups{0, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF}),
                                         std::pair(false, Groups{0x7FFFFFFF, 0x80000000, 0x80000001})));

TEST_F(DirOrderTest, AFullFolderIsOrderedToo) {
    std::mt19937 random(7);
    const auto label = [&random] { return std::to_string(random() % 5000); };
    const std::vector<void*> sortable =
        read(20000, [&] { return row(label(), static_cast<uint32_t>(random() % 3)); });
    ASSERT_EQ(sortable.size(), 20000u);
    for (size_t i = 1; i < sortable.size(); ++i)
        ASSERT_FALSE(goesBefore(static_cast<TextMenuItem*>(sortable[i]),
                                static_cast<TextMenuItem*>(sortable[i - 1])) &&
                     !goesBefore(static_cast<TextMenuItem*>(sortable[i - 1]),
                                 static_cast<TextMenuItem*>(sortable[i])));
    const std::vector<void*> mixed = read(20000, [&] {
        return random() % 2 ? row(label()) : row(label(), static_cast<uint32_t>(random() % 3));
    });
    EXPECT_EQ(mixed.size(), 20000u);
}

TEST_F(DirOrderTest, TenTimesTheRowsDoNotTakeAHundredTimesAsLong) {
    // In ascending order, which is the slowest for rows that are inserted one by one.
    const auto cpuTime = [this](int count) {
        int next = 100000;
        const std::clock_t begin = std::clock();
        read(count, [&] { return row(std::to_string(next++), 1); });
        return static_cast<double>(std::clock() - begin);
    };
    const double few = std::max({cpuTime(2000), cpuTime(2000), cpuTime(2000)});
    EXPECT_LT(cpuTime(20000), 40 * few);
}
