#include "end_to_end/window_run.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

/// A device with a program for ".rom" files, a script: $0 is the file and $1 the folder of results.
class NavoraPlaceTest : public NavoraTest {
protected:
    NavoraPlaceTest() {
        mDevice.addFolder("mnt/UDISK/navora");
        mFolder.addFolder("sub/deeper");
        for (int i = 0; i < 9; ++i)
            mFolder.addFile("sub/deeper/" + std::to_string(i) + ".rom");
    }

    void setScript(const std::string& script) {
        mDevice.addFile("mnt/UDISK/navora/navora.json", R"({"programs": {"rom": ["sh", "-c", ")" + script +
                                                            R"(", "%f", ")" + mResults.path() + R"("]}})");
    }

    void setPlace(const std::string& text) { mDevice.addFile("mnt/UDISK/navora/place.json", text); }
    bool hasPlace() const { return fs::exists(mDevice.path("mnt/UDISK/navora/place.json")); }

    /// Presses the keys, the last of which starts the script, and ends the launcher by a signal once it has.
    void runAndEnd(const std::string& keys) {
        fs::remove(mResults.path("started"));
        Navora navora({"--keys", keys, "--device-root", mDevice.path(), mFolder.path()},
                      {"SDL_VIDEODRIVER=dummy"});
        EXPECT_TRUE(eventually([this] { return fs::exists(mResults.path("started")); }));
        navora.signal(SIGTERM);
        EXPECT_EQ(navora.wait(), 0) << navora.errors();
    }

    Picture deviceShot(const std::string& keys) {
        return shot(mFolder.path(), keys, {"--device-root", mDevice.path()});
    }

    /// What the launcher opens with by itself.
    Picture opened() {
        const std::string file = mResults.path("opened.bmp");
        const Outcome run = runNavora({"--shot", file, "--device-root", mDevice.path(), mFolder.path()});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.errors, "");
        mOutput = run.output;
        return readPicture(file).without(layout::clock);
    }

    Picture home() { return deviceShot(""); }

    SampleFolder mDevice;
    std::string mOutput;
};

static constexpr const char* sDeep = "a,a,down,a,down,down,down,down,down,down,down,down,up";

TEST_F(NavoraPlaceTest, OutlastsTheLauncherThatEndsWhileAProgramRuns) {
    setScript("touch $1/started; exec sleep 60");
    runAndEnd(std::string(sDeep) + ",a");
    EXPECT_EQ(opened(), deviceShot(sDeep));
}

TEST_F(NavoraPlaceTest, OutlastsTheLauncherThatEndsAfterwards) {
    setScript("touch $1/started");
    runAndEnd(std::string(sDeep) + ",a");
    EXPECT_EQ(opened(), deviceShot(sDeep));
}

TEST_F(NavoraPlaceTest, IsThatOfTheFolderThatIsShown) {
    setScript("touch $1/started; exec sleep 60");
    runAndEnd(std::string(sDeep) + ",a");
    SampleFolder other;
    const std::string file = mResults.path("other.bmp");
    EXPECT_EQ(runNavora({"--shot", file, "--device-root", mDevice.path(), other.path()}).exitCode, 0);
    EXPECT_EQ(readPicture(file).without(layout::clock), home());
}

TEST_F(NavoraPlaceTest, EndsWhereItsFolderHasGone) {
    setScript("touch $1/started; exec sleep 60");
    runAndEnd(std::string(sDeep) + ",a");
    fs::remove_all(mFolder.path("sub/deeper"));
    EXPECT_EQ(opened(), deviceShot("a"));
}

TEST_F(NavoraPlaceTest, ARunWithAPictureLeavesNone) {
    setScript(":");
    deviceShot(std::string(sDeep) + ",a");
    EXPECT_FALSE(hasPlace());
    EXPECT_EQ(opened(), home());
}

TEST_F(NavoraPlaceTest, LeavingFromTheHomePageIsKeptToo) {
    const std::vector<std::string> arguments{"--keys", "down,b", "--device-root", mDevice.path(),
                                             mFolder.path()};
    EXPECT_EQ(runNavora(arguments, {"SDL_VIDEODRIVER=dummy"}).exitCode, 0);
    EXPECT_TRUE(hasPlace());
    EXPECT_EQ(opened(), deviceShot("down"));
}

TEST_F(NavoraPlaceTest, TheDetailsAndTheSettingsAreOpenedAgain) {
    mFolder.addFile("a.txt");
    const std::string details =
        R"({"list": [{"page": "home"}, {"page": "details", "path": ")" + mFolder.path("a.txt") + "\"}]}";
    setPlace(details);
    EXPECT_EQ(opened().part(layout::facts), deviceShot("a,down,a").part(layout::facts));
    setPlace(R"({"list": [{"page": "home", "cursor": 4}, {"page": "settings", "cursor": 2, "first": 0}]})");
    EXPECT_EQ(opened(), deviceShot("up,a,down,down"));
}

TEST_F(NavoraPlaceTest, AListOfGamesIsOpenedAgainAndTheCursorFollowsItsGame) {
    mDevice.addFile("mnt/UDISK/navora/games.json", R"({"recents": [")" + mFolder.path("sub/deeper/1.rom") +
                                                       R"(", ")" + mFolder.path("sub/deeper/2.rom") + "\"]}");
    setPlace(R"({"list": [{"page": "home", "cursor": 2},
                          {"page": "list", "list": "recents", "cursor": 0, "first": 0, "row": "2.rom"}]})");
    EXPECT_EQ(opened(), deviceShot("down,down,a,down"));
    setPlace(R"({"list": [{"page": "home", "cursor": 2}, {"page": "list", "list": "nonsense"}]})");
    EXPECT_EQ(opened(), deviceShot("down,down"));
}

TEST_F(NavoraPlaceTest, AListOfGamesIsKeptWhileAProgramRuns) {
    setScript("touch $1/started; exec sleep 60");
    runAndEnd("a,a,down,a,down,down,a");
    runAndEnd("down,down,a,a");
    EXPECT_EQ(opened(), deviceShot("down,down,a"));
}

/// The search for "1", with the second of the games that it finds.
static constexpr const char* sSearch = "r,down,down,down,down,right,right,right,a,right,right,right,down";

TEST_F(NavoraPlaceTest, ASearchIsKeptWhileAProgramRuns) {
    mFolder.addFile("sub/10.rom");
    mFolder.addFile("sub/12.rom");
    setScript(":");
    const std::string keys = sSearch;
    EXPECT_NE(deviceShot(keys), deviceShot(keys + ",down"));
    for (const char* next : {"", ",down", ",left", ",left,b", ",left,left,a", ",menu"})
        EXPECT_EQ(deviceShot(keys + ",a" + next), deviceShot(keys + next)) << next;
    EXPECT_EQ(deviceShot("r,right,right,right,right,right,right,a"),
              deviceShot("r,right,right,right,right,right,right"));
}

TEST_F(NavoraPlaceTest, ASearchOutlastsTheLauncher) {
    mFolder.addFile("sub/10.rom");
    mFolder.addFile("sub/12.rom");
    setScript("touch $1/started; exec sleep 60");
    runAndEnd(std::string(sSearch) + ",a");
    EXPECT_EQ(opened(), deviceShot(sSearch));
    mFolder.addFile("sub/01.rom");
    EXPECT_EQ(opened(), deviceShot(std::string(sSearch) + ",down")) << "the cursor follows its game";
}

TEST_F(NavoraPlaceTest, NonsenseInASearchDoesNoHarm) {
    const std::string base = R"({"list": [{"page": "search", "base": ")" + mFolder.path() + "\", ";
    for (const char* rest :
         {R"("key": "\u0001?\u65c5", "pad": 99, "inList": "x", "cursor": -7, "first": 1e300)",
          R"("key": 7, "pad": -1, "inList": 0, "row": "no such")", R"("pad": 1e300)"}) {
        setPlace(base + rest + "}]}");
        EXPECT_EQ(opened(), deviceShot("r")) << rest;
    }
    setPlace(base + R"("pad": 37, "key": "0 zZ"}]})");
    const std::string typed = "r,down,down,down,down,right,right,a,down,down,a,up,up,left,a"; // 0, space, Z
    EXPECT_EQ(opened().part({24, 90, 448, 64}), deviceShot(typed).part({24, 90, 448, 64}));
    setPlace(R"({"list": [{"page": "search", "base": "/etc"}]})");
    EXPECT_EQ(opened(), home());
}

TEST_F(NavoraPlaceTest, AMalformedOneIsPassedOverWithALineInTheLog) {
    const Picture first = home();
    const std::pair<const char*, const char*> texts[] = {
        {"{\n  \"list\": [}\n", "place ignored: line 2, column 12\n"},
        {"{}", "place ignored: no list\n"},
        {"[]", "place ignored: no list\n"},
        {R"({"list": 7})", "place ignored: no list\n"},
    };
    for (const auto& [text, line] : texts) {
        setPlace(text);
        EXPECT_EQ(opened(), first) << text;
        EXPECT_THAT(mOutput, HasSubstr(line));
    }
}

TEST_F(NavoraPlaceTest, NonsenseInsideDoesNoHarm) {
    const Picture first = home();
    for (const char* pages :
         {"7, null, [], {}", R"({"page": 7})", R"({"page": "no such"})", R"({"page": "details"})",
          R"({"page": "details", "path": "/no/such"})", R"({"page": "details", "path": "/"})",
          R"({"page": "games"})", R"({"page": "games", "base": "/", "folder": "/etc"})",
          R"({"page": "home", "cursor": -7})",
          R"({"page": "home", "cursor": 0, "first": 99, "row": "no such"})"}) {
        setPlace(R"({"list": [)" + std::string(pages) + "]}");
        EXPECT_EQ(opened(), first) << pages;
        EXPECT_THAT(mOutput, Not(HasSubstr("place ignored")));
    }
    for (const std::string folder : {"/etc", "..", "", "/sub/../..", "/sub/deeper/0.rom", "sub"}) {
        setPlace(R"({"list": [{"page": "games", "base": ")" + mFolder.path() + R"(", "folder": ")" +
                 mFolder.path() + folder + R"(", "cursor": 1e300, "first": -1e300}]})");
        EXPECT_EQ(opened(), deviceShot("a")) << folder;
    }
}

/// The card with the games goes while the launcher shows it.
class NavoraCardTest : public NavoraPlaceTest {
protected:
    Picture cardShot(const std::string& keys, const std::string& language = "en.lang") {
        mFolder.addFolder("card/b");
        mFolder.addFile("card/a.rom");
        return shot(mFolder.path("card"), keys, {"--device-root", mDevice.path(), "--lang", language});
    }
};

TEST_F(NavoraCardTest, AMessageTellsItOnTheHomePage) {
    setScript("rm -r ${0%%/*}");
    const Picture firstPage = cardShot("").without(layout::clock);
    const Picture message = cardShot("a,down,a,down");
    constexpr SDL_Rect panel{340, 145, 600, 430};
    EXPECT_NE(message.part(panel), firstPage.part(panel));
    EXPECT_NE(cardShot("a,down,a,down", "ch.lang").part(panel), message.part(panel));
    EXPECT_EQ(cardShot("a,down,a,down,a").without(layout::clock), firstPage);
    EXPECT_EQ(cardShot("a,down,a,down,b").without(layout::clock), firstPage);
}

class NavoraCardInWindowTest : public NavoraOnX {};

TEST_F(NavoraCardInWindowTest, AnEmptyFolderInItsPlaceIsNotTheCard) {
    mFolder.addFolder("card");
    mFolder.addFile("card/a.rom");
    const Picture list = shot(mFolder.path("card"), "a");
    const Picture home = shot(mFolder.path("card"));
    const XDisplay display("1280x720");
    const Navora navora({"--keys", "a", mFolder.path("card")},
                        {display.environment(), "ASAN_OPTIONS=detect_leaks=0"});
    ASSERT_TRUE(comesToShow(display, list));
    fs::rename(mFolder.path("card"), mFolder.path("elsewhere"));
    mFolder.addFolder("card");
    constexpr SDL_Rect panel{340, 145, 600, 430};
    EXPECT_TRUE(eventually([&] {
        const Picture screen = display.capture();
        return screen.part(panel) != home.part(panel) && screen.part(panel) != list.part(panel) &&
               cursorRow(screen) == -1;
    }));
    EXPECT_EQ(display.press("space"), 0);
    EXPECT_TRUE(comesToShow(display, home));
}

class NavoraLoadingTest : public NavoraOnX {};

TEST_F(NavoraLoadingTest, IsSaidWhileALargeFolderIsRead) {
    mFolder.addFolder("sub");
    for (int i = 0; i < 3000; ++i)
        mFolder.addFile("sub/" + std::to_string(i) + ".rom");
    const XDisplay display("1280x720");
    const Navora navora({"--keys", "a,a", mFolder.path()},
                        {display.environment(), "LD_PRELOAD=" SLOW_FOLDER,
                         "ASAN_OPTIONS=detect_leaks=0:verify_asan_link_order=0"});
    constexpr SDL_Rect text{540, 330, 200, 70};
    constexpr SDL_Rect elsewhere{20, 600, 1240, 40}; // the last row, were it there
    const Picture bare = [] {
        SampleFolder empty;
        const std::string file = empty.path("a.bmp");
        SampleFolder games;
        runNavora({"--shot", file, "--keys", "a", games.path()});
        return readPicture(file);
    }();
    EXPECT_TRUE(eventually([&] {
        const Picture screen = display.capture();
        return screen.width == 1280 && looksLike(screen.part(elsewhere), bare.part(elsewhere), tolerance) &&
               screen.part(text) != bare.part(text) && screen.part(text).colors() > 10 &&
               cursorRow(screen) == -1;
    }));
    EXPECT_TRUE(eventually([&] { return cursorRow(display.capture()) == 0; }));
    EXPECT_TRUE(eventually([&] { return display.capture().part(layout::counter).colors() > 10; }));
}
