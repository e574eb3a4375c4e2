#include "shell/skin.h"
#include "support/opened_paths.h"
#include "support/settings_test.h"
#include "system/current_language.h"
#include "system/system_state.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

class ThemeInfoTest : public SettingsTest {
protected:
    /// What the caller's pointer becomes: the theme, "(null)", or "(kept)".
    static std::string loaded() {
        char kept[] = "(kept)";
        char* theme = kept;
        EXPECT_EQ(loadThemeInfo(&theme), 0);
        const std::string result = theme ? theme : "(null)";
        if (theme != kept)
            free(theme);
        return result;
    }

    std::string loadedFrom(const std::string& json) const {
        writeState(json);
        return loaded();
    }
};

} // namespace

TEST_F(ThemeInfoTest, IsACopyOfAnExistingPath) {
    fs::create_directory("dark");
    EXPECT_EQ(loadedFrom(R"({"theme": "dark/"})"), "dark/");
    EXPECT_EQ(loadedFrom(R"({"theme": ")" + folder() + R"(/dark/"})"), folder() + "/dark/");
    writeFile("file", "");
    EXPECT_EQ(loadedFrom(R"({"theme": "file"})"), "file");
}

TEST_F(ThemeInfoTest, IsNullForAPathThatDoesNotExist) {
    EXPECT_EQ(loadedFrom(R"({"theme": "/gone/for/good/"})"), "(null)");
    EXPECT_EQ(loadedFrom(R"({"theme": ""})"), "(null)");
}

TEST_F(ThemeInfoTest, IsNullWhenItIsNoText) {
    for (const std::string& value : notStrings)
        EXPECT_EQ(loadedFrom(R"({"theme": )" + value + "}"), "(null)") << value;
}

TEST_F(ThemeInfoTest, IsNullWhenTheFileNamesNone) {
    for (const char* json : {"{}", R"({"vol": 3})", "[]", R"(["theme", "."])", "5", "null", "\"theme\""})
        EXPECT_EQ(loadedFrom(json), "(null)") << json;
}

TEST_F(ThemeInfoTest, StaysWithoutAFile) {
    EXPECT_EQ(loaded(), "(kept)");
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ThemeInfoTest, StaysWhenTheFileCannotBeRead) {
    EXPECT_EQ(loadedFrom(""), "(kept)");
    EXPECT_EQ(takeLog(), "system.json invalid size 0\n");
    EXPECT_EQ(loadedFrom(R"({"theme": "."})" + std::string(131072, ' ')), "(kept)");
    EXPECT_EQ(takeLog(), "system.json invalid size 131086\n");
    fs::remove(statePath());
    fs::create_directory(statePath());
    EXPECT_EQ(loaded(), "(kept)");
    EXPECT_EQ(takeLog(), "system.json invalid size -1\n");
}

TEST_F(ThemeInfoTest, StaysWhenTheFileCannotBeParsed) {
    EXPECT_EQ(loadedFrom(R"({"theme": ".")"), "(kept)");
    EXPECT_EQ(loadedFrom("hello"), "(kept)");
    EXPECT_EQ(loadedFrom(std::string(10'000, '[')), "(kept)");
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ThemeInfoTest, IsThatOfTheCurrentLanguage) {
    fs::create_directory("dark");
    const char json[] = R"({"theme": ".", "theme.ch.lang": "dark"})";
    EXPECT_EQ(loadedFrom(json), ".");
    setSystemLanguage("ch.lang");
    EXPECT_EQ(loadedFrom(json), "dark");
}

TEST_F(ThemeInfoTest, NobodyNeedsToTakeIt) {
    EXPECT_EQ(loadThemeInfo(nullptr), 0);
    writeState(R"({"theme": "/theme/that/nobody/asks/for"})");
    OpenedPaths paths;
    EXPECT_EQ(loadThemeInfo(nullptr), 0);
    EXPECT_THAT(paths.take(), testing::ElementsAre(statePath()));
    writeState("{");
    EXPECT_EQ(loadThemeInfo(nullptr), 0);
}

TEST_F(ThemeInfoTest, IsLookedForInTheSettingsFileOnly) {
    writeState(R"({"theme": "./dark"})");
    OpenedPaths paths;
    loaded();
    EXPECT_THAT(paths.take(), testing::ElementsAre(statePath(), "./dark"));
}

namespace {

/// The journal's side copy of the settings file names a theme.
class ThemeInfoJournalTest : public ThemeInfoTest {
protected:
    void SetUp() override {
        ThemeInfoTest::SetUp();
        fs::create_directory("dark");
        writeFile(statePath() + ".new", R"({"theme": "dark"})");
        setSettingsJournal(true);
    }

    std::string tookCopy() const { return statePath() + " is unusable, use " + statePath() + ".new\n"; }
};

} // namespace

TEST_F(ThemeInfoJournalTest, IsThatOfTheCopyWhenTheFileIsUnusable) {
    EXPECT_EQ(loaded(), "dark") << "no file";
    EXPECT_EQ(takeLog(), tookCopy());
    EXPECT_EQ(loadedFrom(R"({"theme": ".")"), "dark");
    EXPECT_EQ(takeLog(), tookCopy());
    EXPECT_EQ(loadedFrom(""), "dark");
    EXPECT_EQ(takeLog(), "system.json invalid size 0\n" + tookCopy());
}

TEST_F(ThemeInfoJournalTest, IsThatOfAUsableFile) {
    EXPECT_EQ(loadedFrom(R"({"theme": "."})"), ".");
    EXPECT_EQ(loadedFrom("{}"), "(null)") << "names none";
}

TEST_F(ThemeInfoJournalTest, StaysWhenTheCopyIsUnusableToo) {
    writeFile(statePath() + ".new", "{");
    EXPECT_EQ(loaded(), "(kept)");
}

TEST_F(ThemeInfoJournalTest, IsNotThatOfTheCopyWithoutTheJournal) {
    setSettingsJournal(false);
    OpenedPaths paths;
    EXPECT_EQ(loaded(), "(kept)");
    EXPECT_THAT(paths.take(), testing::ElementsAre(statePath()));
}
