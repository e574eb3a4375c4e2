#include "support/durability_log.h"
#include "support/opened_paths.h"
#include "support/saved_settings_test.h"
#include "system/clock_settings.h"
#include "system/current_language.h"
#include "system/system_state.h"

#include <cstdlib>
#include <filesystem>

namespace {
class SaveSystemStateTest : public SavedSettingsTest {};
} // namespace

TEST_F(SaveSystemStateTest, WritesEveryKeyInOrder) {
    EXPECT_EQ(saved("/themes/dark/"), formatted(everything()));
}

TEST_F(SaveSystemStateTest, LeavesOutAThemeThatIsNull) {
    EXPECT_EQ(saved(nullptr), formatted(without(everything(), "theme")));
}

TEST_F(SaveSystemStateTest, WritesAThemeThatDoesNotExistOrIsEmpty) {
    EXPECT_THAT(saved("/gone/"), testing::HasSubstr("\"theme\":\t\"/gone/\""));
    EXPECT_THAT(saved(""), testing::HasSubstr("\"theme\":\t\"\""));
}

TEST_F(SaveSystemStateTest, LeavesOutAStoreUrlThatIsNotSet) {
    free(gStoreUrl);
    gStoreUrl = nullptr;
    EXPECT_EQ(saved("/themes/dark/"), formatted(without(everything(), "storeurl")));
}

TEST_F(SaveSystemStateTest, LeavesOutATimeZoneThatIsEmpty) {
    setTimeZone("");
    EXPECT_EQ(saved("/themes/dark/"), formatted(without(everything(), "timezone")));
}

TEST_F(SaveSystemStateTest, WritesEnglishWhenNoLanguageIsSet) {
    setSystemLanguage("");
    EXPECT_THAT(saved(), testing::HasSubstr("\"language\":\t\"en.lang\""));
}

TEST_F(SaveSystemStateTest, WritesMuteAsOneOrZero) {
    for (const auto& [value, written] :
         std::vector<std::pair<int, std::string>>{{0, "0"}, {1, "1"}, {2, "1"}, {-1, "1"}}) {
        gTestHost.table[3] = value;
        EXPECT_THAT(saved(), testing::HasSubstr("\"mute\":\t" + written + ",")) << value;
    }
}

TEST_F(SaveSystemStateTest, WritesOtherPlacesOfTheTableAsTheyAre) {
    gTestHost.table[14] = -5;
    gTestHost.table[13] = 2147483647;
    gTestHost.table[10] = -2147483647 - 1;
    const std::string text = saved();
    EXPECT_THAT(text, testing::HasSubstr("\"wifi\":\t-5,"));
    EXPECT_THAT(text, testing::HasSubstr("\"dimtime\":\t2147483647,"));
    EXPECT_THAT(text, testing::HasSubstr("\"ledvalue\":\t-2147483648,"));
}

TEST_F(SaveSystemStateTest, EscapesTexts) {
    EXPECT_THAT(saved("/a \"b\"\\\n\x01/\xE4\xB8\xAD/"),
                testing::HasSubstr("\"theme\":\t\"/a \\\"b\\\"\\\\\\n\\u0001/\xE4\xB8\xAD/\""));
}

TEST_F(SaveSystemStateTest, DropsWhatTheFileHeld) {
    writeState(R"({"theme": "/old/", "vol": 1, "vol.es.lang": 2, "mine": "yours"})");
    EXPECT_EQ(saved(nullptr), formatted(without(everything(), "theme")));
}

TEST_F(SaveSystemStateTest, ReadsTheTableThatTheCallerNames) {
    TestHost other;
    other.table[0] = 9;
    saveSystemState(&other, nullptr);
    EXPECT_THAT(readState(), testing::HasSubstr("\"vol\":\t9,"));
    EXPECT_TRUE(gTestHost.reads.empty());
}

TEST_F(SaveSystemStateTest, ReadsOnlyThePlacesOfTheTableThatHaveAKey) {
    saved();
    EXPECT_THAT(gTestHost.reads,
                testing::UnorderedElementsAre(0, 1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 19));
}

TEST_F(SaveSystemStateTest, ChangesNothingButTheFile) {
    saved("/themes/dark/");
    EXPECT_TRUE(gTestHost.stores.empty());
    EXPECT_STREQ(gStoreUrl, "http://store/");
    EXPECT_STREQ(getTimeZone(), "Asia/Tokyo");
}

TEST_F(SaveSystemStateTest, SyncsOnceAtTheEnd) {
    std::string atSync;
    DurabilityLog log([&](const std::string&) { atSync = readState(); });
    saved();
    EXPECT_THAT(log.take(), testing::ElementsAre("sync"));
    EXPECT_EQ(atSync, readState());
    EXPECT_FALSE(atSync.empty());
}

TEST_F(SaveSystemStateTest, WritesOneFileAndNothingBesideIt) {
    OpenedPaths paths;
    saveSystemState(&gTestHost, nullptr);
    EXPECT_THAT(paths.take(), testing::ElementsAre(statePath()));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(onDevice("/mnt/UDISK")), {}), 1);
}

TEST_F(SaveSystemStateTest, PassesOverAFileThatCannotBeOpened) {
    std::filesystem::remove(onDevice("/mnt/UDISK"));
    DurabilityLog log;
    saveSystemState(&gTestHost, "/themes/dark/");
    EXPECT_FALSE(std::filesystem::exists(onDevice("/mnt/UDISK")));
    EXPECT_THAT(log.take(), testing::IsEmpty()) << "nothing to sync";
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SaveSystemStateTest, LeavesAFileThatMayNotBeWrittenAsItIs) {
    writeState("old");
    {
        OpenedPaths paths;
        paths.refuse(statePath());
        saveSystemState(&gTestHost, nullptr);
    }
    EXPECT_EQ(readState(), "old");
}

TEST_F(SaveSystemStateTest, PassesOverAFolderInTheFilesPlace) {
    std::filesystem::create_directory(statePath());
    saveSystemState(&gTestHost, nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(statePath()));
}

TEST_F(SaveSystemStateTest, BearsAMediumThatIsFull) {
    std::filesystem::create_symlink("/dev/full", statePath());
    DurabilityLog log;
    saveSystemState(&gTestHost, nullptr);
    EXPECT_THAT(log.take(), testing::ElementsAre("sync"));
}
