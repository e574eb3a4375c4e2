#include "hostkit/settings.h"

#include "core/host.h"
#include "hostkit/key_table.h"
#include "hostkit/session.h"
#include "hostkit/theme.h"
#include "support/kestro_test.h"
#include "system/current_language.h"

#include <filesystem>

using testing::HasSubstr;
using testing::Not;

/// What a session keeps of the owner's settings, and what it shows.
class SettingsKeptTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        std::filesystem::create_symlink(TEST_FONT, "regular.ttf");
        std::filesystem::create_directories("dusk/skin");
        writeFile(settingsFile(), R"({"language": "es.lang", "theme": ")" + folder() + R"(/dusk/"})");
        mOptions.hidden = true;
    }

    void TearDown() override {
        hostkit::removeKeyTable(hostkit::keyTableName());
        hostkit::useTheme("");
        setSystemLanguage("en.lang");
        takeLog();
        KestroTest::TearDown();
    }

    std::string settingsFile() const { return onDevice("/mnt/UDISK/system.json"); }

    /// The settings file after a save.
    std::string saved() const {
        hostkit::saveSettings();
        return readFile(settingsFile());
    }

    static std::string language(const std::string& file) { return "\"language\":\t\"" + file + '"'; }
    std::string theme(const std::string& name) const { return "\"theme\":\t\"" + folder() + name + '"'; }

    hostkit::SessionOptions mOptions;
};

TEST_F(SettingsKeptTest, TheOwnersChoicesAreSaved) {
    const hostkit::Session session(mOptions);
    EXPECT_THAT(saved(), AllOf(HasSubstr(language("es.lang")), HasSubstr(theme("/dusk/"))));
    hostkit::changeLanguage("ko.lang");
    hostkit::changeTheme("");
    SetKeyShm(gShmInfo, 1, 7);
    EXPECT_THAT(saved(), AllOf(HasSubstr(language("ko.lang")), Not(HasSubstr("\"theme\"")),
                               HasSubstr("\"brightness\":\t7")));
}

TEST_F(SettingsKeptTest, TheLanguageAndThemeOfThisRunAreShownButNotSaved) {
    mOptions.language = "jp.lang";
    mOptions.theme = folder() + "/other";
    const hostkit::Session session(mOptions);
    EXPECT_THAT(saved(), AllOf(HasSubstr(language("es.lang")), HasSubstr(theme("/dusk/"))));
    EXPECT_STREQ(getSystemLanguage(), "jp.lang");
    EXPECT_EQ(gThemePath, folder() + "/other/");
}

TEST_F(SettingsKeptTest, WhatTheOwnerChoosesTakesThePlaceOfThisRuns) {
    mOptions.language = "jp.lang";
    mOptions.theme = folder() + "/other";
    const hostkit::Session session(mOptions);
    hostkit::changeLanguage("ko.lang");
    hostkit::changeTheme(folder() + "/other");
    EXPECT_THAT(saved(), AllOf(HasSubstr(language("ko.lang")), HasSubstr(theme("/other/"))));
    EXPECT_STREQ(getSystemLanguage(), "ko.lang");
}

TEST_F(SettingsKeptTest, TheNextSessionKnowsNothingOfTheLanguageOfThisOne) {
    mOptions.language = "jp.lang";
    { const hostkit::Session session(mOptions); }
    writeFile(settingsFile(), R"({"language": "ch.lang"})");
    mOptions.language.clear();
    const hostkit::Session session(mOptions);
    EXPECT_STREQ(getSystemLanguage(), "ch.lang");
    EXPECT_THAT(saved(), HasSubstr(language("ch.lang")));
}
