#include "support/durability_log.h"
#include "support/failing_json_memory.h"
#include "support/opened_paths.h"
#include "support/settings_test.h"
#include "system/current_language.h"
#include "system/system_state.h"

#include <cJSON.h>

#include <filesystem>

namespace {

class SaveOneItemTest : public SettingsTest {
protected:
    std::string cannotSave(const std::string& key) const {
        return "parse json " + statePath() + " fail while save " + key + "\n";
    }
    std::string wrote(const std::string& text) const { return "write " + text + " to " + statePath() + "\n"; }

    /// The file after the key was set in a file of this text. Its log line must be there.
    std::string changed(const std::string& json, const char* key, int value) {
        writeState(json);
        EXPECT_EQ(saveOneItemInSystemState(key, value), 0);
        const std::string text = readState();
        EXPECT_EQ(takeLog(), wrote(text));
        return text;
    }
};

} // namespace

TEST_F(SaveOneItemTest, CreatesAFileWithOnlyThatKey) {
    EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), 0);
    EXPECT_EQ(readState(), "{\n\t\"dimtime\":\t60\n}");
    EXPECT_EQ(takeLog(), wrote("{\n\t\"dimtime\":\t60\n}"));
}

TEST_F(SaveOneItemTest, MovesTheKeyToTheEndAndKeepsTheOthers) {
    EXPECT_EQ(changed(R"({"dimtime": 5, "vol": 3, "mine": "yours"})", "dimtime", 60),
              "{\n\t\"vol\":\t3,\n\t\"mine\":\t\"yours\",\n\t\"dimtime\":\t60\n}");
}

TEST_F(SaveOneItemTest, AddsAKeyThatWasNotThere) {
    EXPECT_EQ(changed(R"({"vol": 3})", "dimtime", -60), "{\n\t\"vol\":\t3,\n\t\"dimtime\":\t-60\n}");
}

TEST_F(SaveOneItemTest, ReplacesAnItemOfAnotherType) {
    EXPECT_EQ(changed(R"({"dimtime": {"a": [1]}, "vol": 3})", "dimtime", 1),
              "{\n\t\"vol\":\t3,\n\t\"dimtime\":\t1\n}");
}

TEST_F(SaveOneItemTest, FindsTheKeyWithoutRegardToCaseAndWritesItAsGiven) {
    EXPECT_EQ(changed(R"({"DIMTIME": 5, "vol": 3})", "DimTime", 60),
              "{\n\t\"vol\":\t3,\n\t\"DimTime\":\t60\n}");
}

TEST_F(SaveOneItemTest, RemovesTheVariantOfTheCurrentLanguage) {
    setSystemLanguage("es.lang");
    EXPECT_EQ(changed(R"({"dimtime.es.lang": 5, "dimtime.ch.lang": 6})", "dimtime", 60),
              "{\n\t\"dimtime.ch.lang\":\t6,\n\t\"dimtime\":\t60\n}");
}

TEST_F(SaveOneItemTest, BesideAVariantTheOldPlainItemStaysFirstAndWins) {
    EXPECT_EQ(changed(R"({"dimtime": 5, "dimtime.en.lang": 6})", "dimtime", 60),
              "{\n\t\"dimtime\":\t5,\n\t\"dimtime\":\t60\n}");
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.table[13], 5);
}

TEST_F(SaveOneItemTest, RemovesOnlyTheFirstOfEqualNames) {
    EXPECT_EQ(changed(R"({"dimtime": 5, "dimtime": 6})", "dimtime", 60),
              "{\n\t\"dimtime\":\t6,\n\t\"dimtime\":\t60\n}");
}

TEST_F(SaveOneItemTest, TakesAnyKeyAndAnyValue) {
    EXPECT_EQ(changed("{}", "mine", 2147483647), "{\n\t\"mine\":\t2147483647\n}");
    EXPECT_EQ(changed("{}", "mine", -2147483647 - 1), "{\n\t\"mine\":\t-2147483648\n}");
    EXPECT_EQ(changed("{}", "", 1), "{\n\t\"\":\t1\n}");
    const std::string longKey(500, 'k');
    EXPECT_EQ(changed("{}", longKey.c_str(), 1), "{\n\t\"" + longKey + "\":\t1\n}");
}

TEST_F(SaveOneItemTest, AppendsToAnArray) {
    EXPECT_EQ(changed("[1, 2]", "dimtime", 60), "[1, 2, 60]");
}

TEST_F(SaveOneItemTest, BearsAFileThatIsOneValue) {
    EXPECT_EQ(changed("5", "dimtime", 60), "5");
    EXPECT_EQ(changed("null", "dimtime", 60), "null");
}

TEST_F(SaveOneItemTest, DoesNotSync) {
    DurabilityLog log;
    EXPECT_EQ(changed("{}", "dimtime", 60), "{\n\t\"dimtime\":\t60\n}");
    EXPECT_THAT(log.take(), testing::IsEmpty());
}

TEST_F(SaveOneItemTest, OpensTheFileTwiceAndNothingElse) {
    writeState("{}");
    OpenedPaths paths;
    saveOneItemInSystemState("dimtime", 60);
    EXPECT_THAT(paths.take(), testing::ElementsAre(statePath(), statePath()));
    takeLog();
}

TEST_F(SaveOneItemTest, FailsOnAnEmptyFile) {
    writeState("");
    EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), -1);
    EXPECT_EQ(takeLog(), "system.json invalid size 0\n" + cannotSave("dimtime"));
    EXPECT_EQ(readState(), "");
}

TEST_F(SaveOneItemTest, FailsOnAFileOfOverTheLargestSize) {
    const std::string json = "{}" + std::string(131070, ' ');
    writeState(json);
    EXPECT_EQ(saveOneItemInSystemState("vol", 6), -1);
    EXPECT_EQ(takeLog(), "system.json invalid size 131072\n" + cannotSave("vol"));
    EXPECT_EQ(readState(), json);
}

TEST_F(SaveOneItemTest, FailsOnWhatCannotBeParsedAndLeavesIt) {
    for (const std::string& json : {std::string("{"), std::string("hello"), std::string(10'000, '[')}) {
        writeState(json);
        EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), -1);
        EXPECT_EQ(takeLog(), cannotSave("dimtime"));
        EXPECT_EQ(readState(), json);
    }
}

TEST_F(SaveOneItemTest, FailsOnAFolderInTheFilesPlace) {
    std::filesystem::create_directory(statePath());
    EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), -1);
    EXPECT_EQ(takeLog(), "system.json invalid size -1\n" + cannotSave("dimtime"));
}

TEST_F(SaveOneItemTest, FailsWhenTheFileCannotBeWritten) {
    std::filesystem::remove(onDevice("/mnt/UDISK"));
    EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), -1);
    EXPECT_EQ(takeLog(), "open " + statePath() + " fail\n");
}

TEST_F(SaveOneItemTest, FailsWithoutAKey) {
    writeState("{}");
    EXPECT_EQ(saveOneItemInSystemState(nullptr, 60), -1);
    EXPECT_EQ(readState(), "{}");
}

TEST_F(SaveOneItemTest, FailsWithoutMemoryForANewObject) {
    {
        const FailingJsonMemory memory(1, sizeof(cJSON));
        EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), -1);
        EXPECT_TRUE(memory.failed());
    }
    EXPECT_EQ(takeLog(), cannotSave("dimtime"));
    EXPECT_FALSE(std::filesystem::exists(statePath()));
}

TEST_F(SaveOneItemTest, FailsWithoutMemoryToParse) {
    writeState(R"({"vol": 3})");
    {
        const FailingJsonMemory memory(2, sizeof(cJSON));
        EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), -1);
        EXPECT_TRUE(memory.failed());
    }
    EXPECT_EQ(takeLog(), cannotSave("dimtime"));
    EXPECT_EQ(readState(), R"({"vol": 3})");
}

TEST_F(SaveOneItemTest, LeavesAnEmptyFileWithoutMemoryForTheText) {
    constexpr size_t firstPrintBuffer = 256; // bytes that cJSON starts to print into
    writeState(R"({"vol": 3})");
    {
        const FailingJsonMemory memory(1, firstPrintBuffer);
        EXPECT_EQ(saveOneItemInSystemState("dimtime", 60), 0);
        EXPECT_TRUE(memory.failed());
    }
    EXPECT_EQ(takeLog(), "") << "only what was printed is logged";
    EXPECT_EQ(readState(), "");
}
