#include "end_to_end/navora_run.h"

#include <cJSON.h>
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>

using ::testing::ElementsAre;
using ::testing::EndsWith;

/// Every run of a test has the same device.
class NavoraSettingsTest : public NavoraTest {
protected:
    NavoraSettingsTest() { mDevice.addFolder("mnt/UDISK"); }

    Picture deviceShot(const std::string& keys, std::vector<std::string> moreOptions = {}) {
        moreOptions.insert(moreOptions.end(), {"--device-root", mDevice.path()});
        return shot(mFolder.path(), keys, moreOptions);
    }

    /// From the settings page on. The page is left at the end, as it always is.
    Picture settingsShot(const std::string& keys = "", const std::vector<std::string>& moreOptions = {}) {
        return deviceShot(keys.empty() ? "up,a" : "up,a," + keys, moreOptions);
    }

    /// A text or a number of the settings file; "" for what it has not.
    std::string saved(const std::string& key) const {
        std::ostringstream content;
        content << std::ifstream(mDevice.path("mnt/UDISK/system.json")).rdbuf();
        const std::unique_ptr<cJSON, void (*)(cJSON*)> root(cJSON_Parse(content.str().c_str()), cJSON_Delete);
        const cJSON* const item = cJSON_GetObjectItem(root.get(), key.c_str());
        if (cJSON_IsString(item))
            return item->valuestring;
        return cJSON_IsNumber(item) ? std::to_string(item->valueint) : "";
    }

    /// What a row is called, without its value.
    static Picture label(const Picture& page, int row) {
        return page.part({40, layout::list.y + row * layout::rowHeight, 680, layout::rowHeight});
    }

    static std::string downTo(int row) {
        std::string keys;
        for (int i = 0; i < row; ++i)
            keys += "down,";
        return keys;
    }

    SampleFolder mDevice;
};

static constexpr int rowCount = 7;

// From the settings page to rows of the pages below it.
static constexpr const char* sBrightness = "down,down,a,";
static constexpr const char* sClockForm = "down,down,down,down,a,";
static constexpr const char* sSwap = "down,down,down,down,down,a,up,";

TEST_F(NavoraSettingsTest, DownAndUpMoveTheCursorAndWrap) {
    EXPECT_EQ(cursorRow(settingsShot()), 0);
    EXPECT_EQ(cursorRow(settingsShot("down,down,up")), 1);
    EXPECT_EQ(cursorRow(settingsShot("up")), layout::rows - 1);
    EXPECT_EQ(settingsShot(downTo(rowCount - 1) + "down"), settingsShot());
}

TEST_F(NavoraSettingsTest, AChangeOfLanguageShowsAtOnceAndStays) {
    const Picture before = settingsShot();
    EXPECT_EQ(saved("language"), "en.lang");
    const Picture after = settingsShot("right");
    for (int row = 1; row < layout::rows; ++row)
        EXPECT_NE(label(after, row), label(before, row)) << row;
    EXPECT_NE(after.part(layout::title), before.part(layout::title));
    EXPECT_NE(after.part(layout::hints), before.part(layout::hints));
    const std::string language = saved("language");
    EXPECT_THAT(language, EndsWith(".lang"));
    EXPECT_NE(language, "en.lang");
    EXPECT_EQ(settingsShot(), after);
    EXPECT_EQ(shot(mFolder.path(), "up,a", {"--lang", language}), after);
    EXPECT_EQ(settingsShot("left"), before);
    EXPECT_EQ(saved("language"), "en.lang");
}

TEST_F(NavoraSettingsTest, AChangeOfLanguageReachesTheHomePage) {
    const Picture before = deviceShot("up");
    const Picture after = settingsShot("right,b");
    EXPECT_NE(rowText(after, 0), rowText(before, 0));
    EXPECT_NE(rowText(after, 1), rowText(before, 1));
    EXPECT_EQ(deviceShot("up"), after);
}

TEST_F(NavoraSettingsTest, RightComesByEveryLanguageAndBackToTheFirst) {
    std::set<std::string> languages;
    do {
        settingsShot("right");
    } while (languages.insert(saved("language")).second);
    EXPECT_THAT(languages, ElementsAre("ch.lang", "en.lang", "es.lang", "jp.lang", "ko.lang", "pt.lang"));
}

TEST_F(NavoraSettingsTest, TheLanguageOfTheCommandLineWins) {
    mDevice.addFile("mnt/UDISK/system.json", R"({"language": "es.lang"})");
    EXPECT_EQ(deviceShot("a", {"--lang", "ch.lang"}), shot(mFolder.path(), "a", {"--lang", "ch.lang"}));
    EXPECT_EQ(deviceShot("a"), shot(mFolder.path(), "a", {"--lang", "es.lang"}));
    EXPECT_NE(deviceShot("a"), deviceShot("a", {"--lang", "ch.lang"}));
}

TEST_F(NavoraSettingsTest, TheLanguageOfTheCommandLineIsForThatRunOnly) {
    settingsShot(sBrightness + std::string("right"), {"--lang", "ch.lang"});
    EXPECT_EQ(saved("language"), "en.lang");
    EXPECT_EQ(saved("brightness"), "7");
    mDevice.addFile("mnt/UDISK/system.json", R"({"language": "es.lang"})");
    const Picture page = settingsShot("down,b,a", {"--lang", "ch.lang"});
    EXPECT_EQ(saved("language"), "es.lang");
    EXPECT_EQ(page.part(layout::title), settingsShot("", {"--lang", "ch.lang"}).part(layout::title))
        << "saving leaves it in force";
}

TEST_F(NavoraSettingsTest, TheLanguageOfTheCommandLineIsSavedOnceTheOwnerChoosesIt) {
    mDevice.addFile("mnt/UDISK/system.json", R"({"language": "es.lang"})");
    settingsShot("right,left", {"--lang", "ch.lang"});
    EXPECT_EQ(saved("language"), "ch.lang");
    settingsShot("right", {"--lang", "es.lang"});
    EXPECT_NE(saved("language"), "ch.lang");
    EXPECT_NE(saved("language"), "es.lang");
}

TEST_F(NavoraSettingsTest, AChangedNumberIsSavedAndStays) {
    const Picture changed = settingsShot(sBrightness + std::string("right"));
    EXPECT_EQ(saved("brightness"), "7");
    EXPECT_EQ(settingsShot("down,down,a"), changed);
    EXPECT_NE(settingsShot(sBrightness + std::string("left,left")), changed);
    EXPECT_EQ(saved("brightness"), "5");
}

TEST_F(NavoraSettingsTest, ANumberStopsAtItsEnds) {
    settingsShot(sBrightness + std::string("right,right,right,right,right"));
    EXPECT_EQ(saved("brightness"), "10");
    settingsShot(sBrightness + std::string("left,left,left,left,left,left,left,left,left,left,left"));
    EXPECT_EQ(saved("brightness"), "0");
}

TEST_F(NavoraSettingsTest, ASwitchIsSavedAndStays) {
    const std::string clockRow = sClockForm;
    const Picture off = settingsShot(clockRow + "a");
    EXPECT_EQ(saved("24hourclock"), "0");
    EXPECT_EQ(settingsShot(clockRow + "up,down"), off);
    EXPECT_NE(settingsShot(clockRow + "right"), off);
    EXPECT_EQ(saved("24hourclock"), "1");
}

TEST_F(NavoraSettingsTest, NothingIsSavedBeforeThePageIsOpened) {
    deviceShot("a,b,down");
    EXPECT_EQ(saved("brightness"), "");
    deviceShot("up,a,b");
    EXPECT_EQ(saved("brightness"), "6");
}

TEST_F(NavoraSettingsTest, APowerCutWhileTheyAreSavedLeavesThem) {
    const Picture page = settingsShot("right");
    std::filesystem::rename(mDevice.path("mnt/UDISK/system.json"), mDevice.path("mnt/UDISK/system.json.new"));
    mDevice.addFile("mnt/UDISK/system.json");
    EXPECT_EQ(settingsShot(), page);
    EXPECT_FALSE(std::filesystem::exists(mDevice.path("mnt/UDISK/system.json.new"))) << "saved again";
}

TEST_F(NavoraSettingsTest, AChangeOfThemeShowsAtOnceAndStays) {
    const Picture before = settingsShot("down");
    EXPECT_EQ(saved("theme"), "");
    const Picture after = settingsShot("down,right");
    EXPECT_NE(after.at(5, 5), before.at(5, 5));
    EXPECT_NE(after.part(layout::hints), before.part(layout::hints));
    EXPECT_EQ(cursorRow(after), -1) << "the bar has the other theme's colour";
    EXPECT_THAT(saved("theme"), EndsWith("/themes/dusk/"));
    EXPECT_EQ(settingsShot("down"), after);
    EXPECT_EQ(settingsShot("down,right"), before);
    EXPECT_EQ(saved("theme"), "");
}

TEST_F(NavoraSettingsTest, AChangeOfThemeReachesTheOtherPages) {
    const Picture home = settingsShot("down,right,b");
    EXPECT_EQ(home, deviceShot("up"));
    EXPECT_EQ(cursorRow(home), -1);
    settingsShot("down,right");
    EXPECT_EQ(cursorRow(deviceShot("up")), layout::homeRows - 1);
}

TEST_F(NavoraSettingsTest, TheThemeOfTheCommandLineWins) {
    settingsShot("down,right");
    const std::string dusk = saved("theme");
    SampleFolder theme;
    theme.addFolder("skin");
    theme.addPicture("skin/bg.png", 1280, 720, 0x4080C0);
    EXPECT_EQ(deviceShot("a", {"--theme", theme.path()}).at(5, 5), 0x4080C0u);
    EXPECT_EQ(deviceShot("a"), shot(mFolder.path(), "a", {"--theme", dusk}));
}

TEST_F(NavoraSettingsTest, TheThemeOfTheCommandLineIsForThatRunOnly) {
    const std::vector<std::string> ownTheme = {"--theme", mFolder.path()};
    settingsShot(sBrightness + std::string("right"), ownTheme);
    EXPECT_EQ(saved("theme"), "");
    EXPECT_EQ(saved("brightness"), "7");
    settingsShot("down,right");
    const std::string dusk = saved("theme");
    settingsShot("", ownTheme);
    EXPECT_EQ(saved("theme"), dusk);
}

TEST_F(NavoraSettingsTest, TheThemeOfTheCommandLineIsSavedOnceTheOwnerChoosesIt) {
    const std::vector<std::string> ownTheme = {"--theme", mFolder.path()};
    settingsShot("down,right,left", ownTheme);
    EXPECT_EQ(saved("theme"), mFolder.path() + "/");
    settingsShot("down,right", ownTheme);
    EXPECT_EQ(saved("theme"), "") << "the default theme comes after it";
}

TEST_F(NavoraSettingsTest, AThemeFromElsewhereIsShownByItsFoldersName) {
    for (const char* folder : {"one/mine", "other/mine", "one/yours"})
        mFolder.addFolder(folder);
    const Picture inDefault = settingsShot("down");
    const Picture mine = settingsShot("down", {"--theme", mFolder.path("one/mine")});
    EXPECT_NE(mine, inDefault);
    EXPECT_EQ(mine, settingsShot("down", {"--theme", mFolder.path("other/mine") + "/"}));
    EXPECT_NE(mine, settingsShot("down", {"--theme", mFolder.path("one/yours")}));
    EXPECT_EQ(label(mine, 1), label(inDefault, 1));
    mDevice.addFile("mnt/UDISK/system.json", R"({"theme": ")" + mFolder.path("one/mine") + R"("})");
    EXPECT_EQ(settingsShot("down"), mine) << "the owner's too";
}

TEST_F(NavoraSettingsTest, AThemeOfTheListIsFoundInItByAnyPath) {
    const Picture inDefault = settingsShot("down");
    EXPECT_EQ(settingsShot("down,right", {"--theme", NAVORA_RUN_FOLDER "/themes/../themes/dusk/"}), inDefault)
        << "the default theme comes after it";
}

TEST_F(NavoraSettingsTest, EveryPartHasAPageOfItsOwn) {
    const Picture overview = settingsShot();
    std::vector<Picture> titles{overview.part(layout::title)};
    for (int row = 2; row < rowCount; ++row) {
        const Picture page = settingsShot(downTo(row) + "a");
        for (const Picture& other : titles)
            EXPECT_NE(page.part(layout::title), other) << row;
        titles.push_back(page.part(layout::title));
        for (const char* back : {"b", "b,a,b"})
            EXPECT_EQ(settingsShot(downTo(row) + "a," + back), settingsShot(downTo(row) + "left")) << row;
        EXPECT_NE(settingsShot(downTo(row) + "a", {"--lang", "ch.lang"}).part(layout::title), titles.back());
    }
}

TEST_F(NavoraSettingsTest, SoundTheTimeToDimAndTheTimeZoneAreKept) {
    settingsShot("down,down,down,a,left,left,down,a");
    EXPECT_EQ(saved("vol"), "12");
    EXPECT_EQ(saved("enablekeytone"), "0");
    const Picture never = settingsShot("down,down,a,up,left,left,left,left,left,left,left,left,left,left");
    EXPECT_EQ(saved("dimtime"), "0");
    constexpr SDL_Rect value{720, layout::list.y + 4 * layout::rowHeight, 520, layout::rowHeight};
    EXPECT_NE(never.part(value), settingsShot("down,down,a,up,right").part(value));
    EXPECT_EQ(saved("dimtime"), "30");
    const std::string zone = saved("timezone");
    settingsShot(std::string(sClockForm) + "down,right");
    EXPECT_NE(saved("timezone"), zone);
}

TEST_F(NavoraSettingsTest, OnlyWhatLeadsFurtherCanBeOpened) {
    const Picture value = settingsShot("down");
    const Picture link = settingsShot("down,down");
    EXPECT_EQ(settingsShot("down,a"), value);
    EXPECT_EQ(settingsShot("down,down,left,right"), link);
}

TEST_F(NavoraSettingsTest, WithAAndBSwappedBConfirmsAndAGoesBack) {
    mFolder.addFile("one.txt");
    const Picture games = deviceShot("a");
    const Picture details = deviceShot("a,a");
    settingsShot(std::string(sSwap) + "a");
    EXPECT_EQ(saved("bconfirm"), "1");
    EXPECT_EQ(deviceShot("b").part(layout::list), games.part(layout::list));
    EXPECT_NE(deviceShot("b").part(layout::hints), games.part(layout::hints));
    EXPECT_EQ(deviceShot("b,b").part(layout::details), details.part(layout::details));
    EXPECT_EQ(deviceShot("b,b,a").part(layout::list), games.part(layout::list));
    EXPECT_EQ(cursorRow(deviceShot("up,b,down,down,a")), layout::homeRows - 1) << "back on the home page";
    const Outcome run =
        runNavora({"--keys", "a", "--device-root", mDevice.path()}, {"SDL_VIDEODRIVER=dummy"});
    EXPECT_EQ(run.exitCode, 0);
}

TEST_F(NavoraSettingsTest, TheSwapOfAAndBCountsFromTheNextKeyOn) {
    settingsShot(std::string(sSwap) + "a,b");
    EXPECT_EQ(saved("bconfirm"), "0");
    const Picture home = settingsShot(std::string(sSwap) + "a,a,a");
    EXPECT_EQ(saved("bconfirm"), "1");
    EXPECT_EQ(home.part(layout::title), deviceShot("up").part(layout::title));
}
