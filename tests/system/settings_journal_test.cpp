#include "support/durability_log.h"
#include "support/opened_paths.h"
#include "support/settings_test.h"
#include "system/system_state.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

class JournalTest : public SettingsTest {
protected:
    void SetUp() override {
        SettingsTest::SetUp();
        setSettingsJournal(true);
    }

    std::string copyPath() const { return statePath() + ".new"; }
    void writeCopy(const std::string& json) const {
        fs::remove(copyPath());
        writeFile(copyPath(), json);
    }

    /// The volume of the settings that a device would find here after a power cut.
    int volumeAfterRestart() {
        gTestHost.table[0] = -99;
        loadSystemState(&gTestHost, nullptr);
        return gTestHost.table[0];
    }

    void saveVolume(int volume) const {
        gTestHost.table[0] = volume;
        saveSystemState(&gTestHost, nullptr);
    }

    std::string tookCopy() const { return statePath() + " is unusable, use " + copyPath() + "\n"; }
    std::string cannotWriteCopy() const {
        return "can not write " + copyPath() + ", " + statePath() + " stays as it is\n";
    }
};

} // namespace

TEST_F(JournalTest, SaveWritesTheCopyFirstAndRemovesItAtTheEnd) {
    saveVolume(3);
    const std::string old = readState();
    std::vector<std::pair<std::string, std::string>> moments;
    DurabilityLog log([&](const std::string&) { moments.emplace_back(readState(), readFile(copyPath())); });
    saveVolume(4);
    const std::string now = readState();

    EXPECT_THAT(log.take(), testing::ElementsAre("fsync system.json.new", "fsync UDISK", "fsync system.json",
                                                 "unlink system.json.new", "fsync UDISK", "sync"));
    using Pair = std::pair<std::string, std::string>;
    EXPECT_EQ(moments,
              (std::vector<Pair>{{old, now}, {old, now}, {now, now}, {now, now}, {now, ""}, {now, ""}}));
    EXPECT_FALSE(fs::exists(copyPath()));
}

TEST_F(JournalTest, SaveWritesTheSameFileAsWithoutTheJournal) {
    saveVolume(3);
    const std::string with = readState();
    setSettingsJournal(false);
    saveVolume(3);
    EXPECT_EQ(readState(), with);
}

TEST_F(JournalTest, SavingOneItemIsProtectedAlikeButEndsWithoutASync) {
    writeState(R"({"vol": 3})");
    const std::string old = readState();
    std::vector<std::pair<std::string, std::string>> moments;
    DurabilityLog log([&](const std::string&) { moments.emplace_back(readState(), readFile(copyPath())); });
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), 0);
    const std::string now = "{\n\t\"vol\":\t4\n}";

    EXPECT_THAT(log.take(), testing::ElementsAre("fsync system.json.new", "fsync UDISK", "fsync system.json",
                                                 "unlink system.json.new", "fsync UDISK"));
    using Pair = std::pair<std::string, std::string>;
    EXPECT_EQ(moments, (std::vector<Pair>{{old, now}, {old, now}, {now, now}, {now, now}, {now, ""}}));
    EXPECT_EQ(takeLog(), "write " + now + " to " + statePath() + "\n");
    EXPECT_FALSE(fs::exists(copyPath()));
}

TEST_F(JournalTest, SavingOneItemCreatesAFileToo) {
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), 0);
    EXPECT_EQ(readState(), "{\n\t\"vol\":\t4\n}");
    EXPECT_FALSE(fs::exists(copyPath()));
    takeLog();
}

TEST_F(JournalTest, OffNothingIsSyncedAndNoCopyIsMade) {
    setSettingsJournal(false);
    DurabilityLog log;
    OpenedPaths paths;
    saveVolume(3);
    EXPECT_THAT(log.take(), testing::ElementsAre("sync"));
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), 0);
    EXPECT_THAT(log.take(), testing::IsEmpty());
    EXPECT_THAT(paths.take(), testing::Each(statePath()));
    takeLog();
}

TEST_F(JournalTest, OffACopyThatLiesThereIsNeitherReadNorRemoved) {
    setSettingsJournal(false);
    writeCopy(R"({"vol": 9})");
    EXPECT_EQ(volumeAfterRestart(), 14);
    saveVolume(3);
    EXPECT_EQ(volumeAfterRestart(), 3);
    EXPECT_EQ(readFile(copyPath()), R"({"vol": 9})");
}

TEST_F(JournalTest, LoadTakesAUsableFileAndIgnoresTheCopy) {
    writeState(R"({"vol": 3})");
    writeCopy(R"({"vol": 9})");
    EXPECT_EQ(volumeAfterRestart(), 3);
}

TEST_F(JournalTest, LoadTakesTheCopyOfAnEmptyFile) {
    writeState("");
    writeCopy(R"({"vol": 9})");
    EXPECT_EQ(volumeAfterRestart(), 9);
    EXPECT_EQ(takeLog(), "system.json invalid size 0\n" + tookCopy());
}

TEST_F(JournalTest, LoadTakesTheCopyOfAFileThatWasCut) {
    writeState(R"({"vol": 3)");
    writeCopy(R"({"vol": 9})");
    EXPECT_EQ(volumeAfterRestart(), 9);
    EXPECT_EQ(takeLog(), tookCopy());
}

TEST_F(JournalTest, LoadTakesTheCopyOfAFileThatIsMissing) {
    writeCopy(R"({"vol": 9})");
    EXPECT_EQ(volumeAfterRestart(), 9);
    EXPECT_EQ(takeLog(), tookCopy());
}

TEST_F(JournalTest, LoadGivesTheDefaultsWhenNeitherIsUsable) {
    for (const char* copy : {"", "{", "hello"}) {
        writeState("{");
        writeCopy(copy);
        EXPECT_EQ(volumeAfterRestart(), 14);
        const std::string log = takeLog();
        EXPECT_THAT(log, testing::Not(testing::HasSubstr("is unusable"))) << copy;
    }
}

TEST_F(JournalTest, LoadFromTheCopyTakesTheThemeToo) {
    writeState("");
    writeCopy(R"({"theme": "."})");
    char* theme = nullptr;
    loadSystemState(&gTestHost, &theme);
    EXPECT_STREQ(theme, ".");
    free(theme);
    takeLog();
}

TEST_F(JournalTest, SaveWithoutACopyLeavesTheFileUntouched) {
    writeState(R"({"vol": 3})");
    OpenedPaths paths;
    paths.refuse(copyPath());
    saveVolume(4);
    EXPECT_EQ(readState(), R"({"vol": 3})");
    EXPECT_EQ(takeLog(), cannotWriteCopy());
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), -1);
    EXPECT_EQ(readState(), R"({"vol": 3})");
    EXPECT_EQ(takeLog(), cannotWriteCopy());
}

TEST_F(JournalTest, SaveOnAFullMediumLeavesTheFileUntouched) {
    writeState(R"({"vol": 3})");
    fs::create_symlink("/dev/full", copyPath());
    saveVolume(4);
    EXPECT_EQ(takeLog(), cannotWriteCopy());
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), -1);
    EXPECT_EQ(takeLog(), cannotWriteCopy());
    EXPECT_EQ(readState(), R"({"vol": 3})");
}

TEST_F(JournalTest, SaveWithACopyThatCannotBeSyncedLeavesTheFileUntouched) {
    writeState(R"({"vol": 3})");
    DurabilityLog log;
    log.failSync();
    saveVolume(4);
    EXPECT_EQ(takeLog(), cannotWriteCopy());
    EXPECT_EQ(readState(), R"({"vol": 3})");
}

TEST_F(JournalTest, CopyStaysWhenTheFileCannotBeWritten) {
    fs::create_symlink("/dev/full", statePath());
    saveVolume(4);
    EXPECT_TRUE(fs::exists(copyPath()));
    EXPECT_EQ(volumeAfterRestart(), 4);
    EXPECT_THAT(takeLog(), testing::EndsWith(tookCopy()));
}

TEST_F(JournalTest, CopyStaysWhenTheFileCannotBeSynced) {
    int syncs = 0;
    DurabilityLog* running = nullptr;
    DurabilityLog log([&](const std::string& step) {
        if (step == "fsync system.json" && ++syncs == 1)
            running->failSync();
    });
    running = &log;
    saveVolume(4);
    EXPECT_EQ(syncs, 1);
    EXPECT_TRUE(fs::exists(copyPath()));
}

TEST_F(JournalTest, CopyStaysWhenTheFileCannotBeOpened) {
    writeState("{");
    OpenedPaths paths;
    paths.refuse(statePath());
    saveVolume(4);
    EXPECT_TRUE(fs::exists(copyPath()));
}

TEST_F(JournalTest, CopyThatIsAllThereIsStaysUsableWhenTheFileCannotBeOpened) {
    writeCopy(R"({"vol": 9})");
    {
        OpenedPaths paths;
        paths.refuse(statePath());
        saveVolume(4);
    }
    EXPECT_EQ(volumeAfterRestart(), 4);
    EXPECT_THAT(takeLog(), testing::EndsWith(tookCopy()));
}

TEST_F(JournalTest, SavesWhereTheFolderCannotBeOpenedToSyncIt) {
    DurabilityLog log;
    OpenedPaths paths;
    paths.refuse(statePath().substr(0, statePath().rfind('/') + 1));
    saveVolume(4);
    EXPECT_THAT(log.take(), testing::Not(testing::Contains("fsync UDISK")));
    EXPECT_FALSE(fs::exists(copyPath()));
    EXPECT_EQ(volumeAfterRestart(), 4);
}

TEST_F(JournalTest, NextSaveRemovesACopyThatWasLeft) {
    writeState("{");
    writeCopy(R"({"vol": 9})");
    EXPECT_EQ(volumeAfterRestart(), 9);
    saveVolume(8);
    EXPECT_FALSE(fs::exists(copyPath()));
    EXPECT_EQ(volumeAfterRestart(), 8);
    takeLog();
}

TEST_F(JournalTest, SavingOneItemTakesTheCopyOfAnUnusableFile) {
    writeState("{");
    writeCopy(R"({"keymap": 1})");
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), 0);
    EXPECT_EQ(readState(), "{\n\t\"keymap\":\t1,\n\t\"vol\":\t4\n}");
    EXPECT_THAT(takeLog(), testing::StartsWith(tookCopy()));
}

TEST_F(JournalTest, SavingOneItemTakesTheCopyOfAMissingFile) {
    writeCopy(R"({"keymap": 1})");
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), 0);
    EXPECT_EQ(readState(), "{\n\t\"keymap\":\t1,\n\t\"vol\":\t4\n}");
    EXPECT_THAT(takeLog(), testing::StartsWith(tookCopy()));
}

TEST_F(JournalTest, SavingOneItemFailsWhenNeitherIsUsable) {
    writeState("{");
    writeCopy("[");
    EXPECT_EQ(saveOneItemInSystemState("vol", 4), -1);
    EXPECT_EQ(takeLog(), "parse json " + statePath() + " fail while save vol\n");
    EXPECT_EQ(readState(), "{");
}
