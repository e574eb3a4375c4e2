#include "support/durability_log.h"
#include "support/failing_json_memory.h"
#include "support/saved_settings_test.h"
#include "system/system_state.h"

#include <cJSON.h>

#include <algorithm>

// Saving when memory runs out.

namespace {
class SaveWithoutMemoryTest : public SavedSettingsTest {};
} // namespace

TEST_F(SaveWithoutMemoryTest, ForOneOfTheFirstSixItemsLeavesTheFileEmpty) {
    for (int item = 1; item <= 6; ++item) {
        writeState("old");
        DurabilityLog log;
        {
            const FailingJsonMemory memory(1 + item, sizeof(cJSON)); // the first is the root's
            saveSystemState(&gTestHost, "/themes/dark/");
            ASSERT_TRUE(memory.failed());
        }
        EXPECT_EQ(readState(), "") << item;
        EXPECT_THAT(log.take(), testing::ElementsAre("sync")) << item;
    }
}

TEST_F(SaveWithoutMemoryTest, ForALaterItemLeavesOutOnlyThat) {
    const SettingPairs all = everything();
    for (size_t item = 7; item <= all.size(); ++item) {
        {
            const FailingJsonMemory memory(static_cast<int>(1 + item), sizeof(cJSON));
            saveSystemState(&gTestHost, "/themes/dark/");
            ASSERT_TRUE(memory.failed());
        }
        EXPECT_EQ(readState(), formatted(without(all, all[item - 1].first)));
    }
}

TEST_F(SaveWithoutMemoryTest, AnywhereLeavesTheFileEmptyOrWithoutOneKey) {
    size_t empty = 0;
    for (int piece = 1;; ++piece) {
        bool failed = false;
        {
            const FailingJsonMemory memory(piece);
            saveSystemState(&gTestHost, "/themes/dark/");
            failed = memory.failed();
        }
        if (!failed)
            break;
        const std::string text = readState();
        const auto lines = std::count(text.begin(), text.end(), '\n');
        empty += text.empty();
        // One line a key and two for the braces; the last piece may be one that cJSON can do without.
        EXPECT_TRUE(text.empty() || lines == 40 || lines == 41) << piece << "\n" << text;
    }
    EXPECT_GT(empty, 6u);
}

TEST_F(SaveWithoutMemoryTest, AnywhereWithTheJournalLeavesTheOldFileOrAllKeys) {
    setSettingsJournal(true);
    const std::string whole = formatted(everything());
    int kept = 0;
    for (bool failed = true; failed;) {
        writeState("old");
        {
            const FailingJsonMemory memory(++kept);
            saveSystemState(&gTestHost, "/themes/dark/");
            failed = memory.failed();
        }
        EXPECT_THAT(readState(), testing::AnyOf("old", whole)) << kept;
    }
    EXPECT_GT(kept, 70); // a name and a value for each key
    EXPECT_EQ(readState(), whole);
}

TEST_F(SaveWithoutMemoryTest, LeavesAnEmptyFileThatLoadsAsTheDefaults) {
    {
        const FailingJsonMemory memory(2, sizeof(cJSON));
        saveSystemState(&gTestHost, nullptr);
    }
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.table[0], 14);
    EXPECT_EQ(takeLog(), "system.json invalid size 0\n");
}
