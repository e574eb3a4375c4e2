#include "end_to_end/sample_folder.h"
#include "navora/game_lists.h"
#include "navora/json_file.h"
#include "navora/state_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

using navora::GameLists;
using navora::stateFile;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

class GameListsTest : public ::testing::Test {
protected:
    SampleFolder mFolder;
    std::string mFile = mFolder.path("state/games.json");

    void writeFile(const std::string& content) {
        mFolder.addFolder("state");
        mFolder.addFile("state/games.json", content);
    }

    static std::string contentOf(const std::string& file) {
        std::ostringstream content;
        content << std::ifstream(file).rdbuf();
        return content.str();
    }

    /// What is said about `content` when it is read.
    std::string complaintAbout(const std::string& content) {
        writeFile(content);
        CaptureStderr();
        const GameLists lists(mFile);
        EXPECT_THAT(lists.favourites(), IsEmpty());
        EXPECT_THAT(lists.recents(), IsEmpty());
        return GetCapturedStderr();
    }
};

TEST_F(GameListsTest, StartEmptyAndSilentWithoutAFile) {
    CaptureStderr();
    const GameLists lists(mFile);
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_THAT(lists.favourites(), IsEmpty());
    EXPECT_THAT(lists.recents(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(mFile)) << "reading writes nothing";
}

TEST_F(GameListsTest, AreThereAgainAfterARestart) {
    {
        GameLists lists(mFile);
        lists.setFavourite("/b", true);
        lists.setFavourite("/a \"q\"\n旅\xFF", true);
        lists.noteStarted("/c");
        lists.noteStarted("/d");
    }
    const GameLists lists(mFile);
    EXPECT_THAT(lists.favourites(), ElementsAre("/b", "/a \"q\"\n旅\xFF"));
    EXPECT_THAT(lists.recents(), ElementsAre("/d", "/c"));
    EXPECT_TRUE(lists.isFavourite("/b"));
    EXPECT_FALSE(lists.isFavourite("/c"));
    EXPECT_FALSE(std::filesystem::exists(mFile + ".new"));
}

TEST_F(GameListsTest, AFavouriteIsThereOnceAndCanBeTakenAway) {
    GameLists lists(mFile);
    lists.setFavourite("/a", true);
    const unsigned version = lists.version();
    lists.setFavourite("/a", true);
    EXPECT_EQ(lists.version(), version);
    EXPECT_THAT(lists.favourites(), ElementsAre("/a"));
    lists.setFavourite("/a", false);
    EXPECT_NE(lists.version(), version);
    EXPECT_THAT(GameLists(mFile).favourites(), IsEmpty());
}

TEST_F(GameListsTest, AGameThatIsStartedAgainMovesToTheHead) {
    GameLists lists(mFile);
    for (const char* path : {"/a", "/b", "/c", "/a"})
        lists.noteStarted(path);
    EXPECT_THAT(lists.recents(), ElementsAre("/a", "/c", "/b"));
    lists.removeRecent("/c");
    lists.removeRecent("/never");
    EXPECT_THAT(GameLists(mFile).recents(), ElementsAre("/a", "/b"));
}

TEST_F(GameListsTest, ClearingTheRecentsLeavesTheFavourites) {
    GameLists lists(mFile);
    lists.setFavourite("/a", true);
    lists.noteStarted("/a");
    lists.clearRecents();
    const GameLists again(mFile);
    EXPECT_THAT(again.recents(), IsEmpty());
    EXPECT_THAT(again.favourites(), ElementsAre("/a"));
}

TEST_F(GameListsTest, HaveLimits) {
    std::string many;
    for (size_t i = 0; i < GameLists::mostFavourites + 10; ++i)
        many += (i ? ",\"/" : "\"/") + std::to_string(i) + "\"";
    writeFile("{\"favourites\": [" + many + "], \"recents\": [" + many + "]}");
    GameLists lists(mFile);
    EXPECT_EQ(lists.favourites().size(), 1000u);
    EXPECT_EQ(lists.recents().size(), 50u);
    lists.setFavourite("/one more", true);
    EXPECT_FALSE(lists.isFavourite("/one more"));
    EXPECT_EQ(lists.favourites().size(), 1000u);
    lists.noteStarted("/one more");
    EXPECT_EQ(lists.recents().size(), 50u);
    EXPECT_EQ(lists.recents().front(), "/one more");
    EXPECT_EQ(lists.recents().back(), "/48");
}

TEST_F(GameListsTest, WhatIsNoPathIsPassedOver) {
    writeFile(R"({"favourites": ["/a", 1, null, "relative", "", ["/x"], "/a", "/b"], "recents": "/c"})");
    const GameLists lists(mFile);
    EXPECT_THAT(lists.favourites(), ElementsAre("/a", "/b"));
    EXPECT_THAT(lists.recents(), IsEmpty());
    for (const char* other : {"[]", "1", "null", "{\"favourites\": {\"a\": \"/a\"}}"})
        EXPECT_EQ(complaintAbout(other), "") << other;
}

TEST_F(GameListsTest, AMalformedFileIsNamedWithThePlaceAndKeptBeside) {
    const std::string broken = "{\n  \"favourites\": [\"/a\",]\n}";
    EXPECT_EQ(complaintAbout(broken),
              "navora: " + mFile + ": not JSON at line 2, column 23; it is not used\n");
    EXPECT_EQ(contentOf(mFile + ".broken"), broken);
    EXPECT_FALSE(std::filesystem::exists(mFile));
    EXPECT_EQ(complaintAbout(""), "navora: " + mFile + ": not JSON at line 1, column 1; it is not used\n");
    EXPECT_EQ(complaintAbout("{}x"), "navora: " + mFile + ": not JSON at line 1, column 3; it is not used\n");
}

TEST_F(GameListsTest, AHugeFileIsNotRead) {
    EXPECT_EQ(complaintAbout(std::string(8'000'001, ' ')),
              "navora: " + mFile + ": too long; it is not used\n");
}

TEST_F(GameListsTest, AFileThatCannotBeReadIsLeftAlone) {
    std::filesystem::create_directories(mFile + "/in the way");
    CaptureStderr();
    GameLists lists(mFile);
    EXPECT_EQ(GetCapturedStderr(), "navora: " + mFile + ": Is a directory\n");
    lists.noteStarted("/a");
    EXPECT_THAT(lists.recents(), ElementsAre("/a"));
    EXPECT_TRUE(std::filesystem::exists(mFile + "/in the way"));
    EXPECT_FALSE(std::filesystem::exists(mFile + ".broken"));
}

TEST_F(GameListsTest, WithoutAFileTheyLastUntilTheEndInSilence) {
    CaptureStderr();
    GameLists lists("");
    lists.noteStarted("/a");
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_THAT(lists.recents(), ElementsAre("/a"));
}

TEST_F(GameListsTest, WhereNothingCanBeWrittenTheyLastUntilTheEnd) {
    mFolder.addFile("state");
    CaptureStderr();
    GameLists lists(mFile);
    lists.noteStarted("/a");
    EXPECT_THAT(GetCapturedStderr(), ::testing::HasSubstr("cannot be written: "));
    EXPECT_THAT(lists.recents(), ElementsAre("/a"));
}

/// Puts environment variables back at its end.
class StateFileTest : public ::testing::Test {
protected:
    ~StateFileTest() override {
        unsetenv("KESTRO_DEVICE_ROOT");
        unsetenv("XDG_DATA_HOME");
        setenv("HOME", mHome.c_str(), 1);
    }

    std::string mHome = getenv("HOME") ? getenv("HOME") : "";
};

TEST_F(StateFileTest, IsOnTheDeviceOrBelowTheFolderThatStandsForIt) {
    setenv("KESTRO_DEVICE_ROOT", "/device", 1);
    EXPECT_EQ(stateFile("a.json"), "/device/mnt/UDISK/navora/a.json");
    setenv("KESTRO_DEVICE_ROOT", "", 1);
    const bool onDevice = std::filesystem::exists("/mnt/UDISK");
    EXPECT_EQ(stateFile("a.json"), onDevice ? "/mnt/UDISK/navora/a.json" : "");
}

TEST_F(StateFileTest, TheUsersDataAreWhereTheVariableSaysElseInTheHomeFolder) {
    setenv("HOME", "/home/me", 1);
    setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(navora::userDataFolder(), "/data/navora");
    setenv("XDG_DATA_HOME", "relative", 1);
    EXPECT_EQ(navora::userDataFolder(), "/home/me/.local/share/navora");
    unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(navora::userDataFolder(), "/home/me/.local/share/navora");
    unsetenv("HOME");
    EXPECT_EQ(navora::userDataFolder(), "");
}
