#include "support/file_browser_test.h"

#include <climits>

class FileBrowserKeysTest : public FileBrowserTest {};

TEST_F(FileBrowserKeysTest, BGoesUpWithoutSwapAndAWithIt) {
    for (const int swap : {0, 1}) {
        open("base/a/b");
        gTestHost.table[19] = swap;
        menu->restored.clear();
        EXPECT_EQ(press(swap ? 1 : 2), 26);
        EXPECT_STREQ(menu->getCurrentDir(), "base/a");
        EXPECT_THAT(menu->restored, testing::ElementsAre("0 0 4"));
        EXPECT_THAT(takeLog(), testing::StartsWith("loaddir base/a 5\nparentdir base/a return "));
        EXPECT_EQ(press(swap ? 1 : 2), 26);
        EXPECT_STREQ(menu->getCurrentDir(), "base");
        EXPECT_EQ(press(swap ? 1 : 2), 1002);
        EXPECT_STREQ(menu->getCurrentDir(), "base");
        takeLog();
    }
}

TEST_F(FileBrowserKeysTest, AtTheBaseUpLeavesTheListUntouched) {
    open();
    menu->setCursor(2);
    menu->draw();
    menu->restored.clear();
    EXPECT_EQ(press(2), 1002);
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(menu->getListNum(), 4);
    EXPECT_EQ(menu->getCursor(), 2);
    EXPECT_TRUE(menu->restored.empty());
}

TEST_F(FileBrowserKeysTest, BeforeAnyFolderIsLoadedUpLeaves) {
    menu = std::make_unique<OpenFileBrowser>("base", nullptr, nullptr, nullptr, 6, 0);
    EXPECT_EQ(press(2), 1002);
    takeLog();
}

TEST_F(FileBrowserKeysTest, TheConfirmingKeyRunsTheRowsAction) {
    for (const int swap : {0, 1}) {
        open();
        gTestHost.table[19] = swap;
        menu->setCursor(rowOf("file"));
        EXPECT_EQ(press(swap ? 2 : 1), 40);
        EXPECT_THAT(takeLog(), testing::StartsWith("file dowork 0x"));
    }
}

TEST_F(FileBrowserKeysTest, AResultThatIsTheConfirmingCodeIsSwallowed) {
    for (const int swap : {0, 1}) {
        open("base/a");
        gTestHost.table[19] = swap;
        menu->setCursor(rowOf("1"));
        fileResult = swap ? 2 : 1;
        menu->restored.clear();
        EXPECT_EQ(press(swap ? 2 : 1), 26);
        EXPECT_STREQ(menu->getCurrentDir(), "base/a");
        EXPECT_TRUE(menu->restored.empty());
        takeLog();
    }
}

TEST_F(FileBrowserKeysTest, AResultThatIsTheBackCodeGoesUp) {
    for (const int swap : {0, 1}) {
        open("base/a");
        gTestHost.table[19] = swap;
        menu->setCursor(rowOf("1"));
        fileResult = swap ? 1 : 2;
        EXPECT_EQ(press(swap ? 2 : 1), 26);
        EXPECT_STREQ(menu->getCurrentDir(), "base");
        takeLog();
    }
}

TEST_F(FileBrowserKeysTest, ARowWithoutActionGivesMinusOneUnchanged) {
    gTestHost.fileHandler = [](const char* name, const char*, int) {
        return new TextMenuItem(name, nullptr, nullptr, false);
    };
    for (const int swap : {0, 1}) {
        open("base/a");
        gTestHost.table[19] = swap;
        EXPECT_EQ(press(swap ? 2 : 1), -1);
        EXPECT_STREQ(menu->getCurrentDir(), "base/a");
    }
}

TEST_F(FileBrowserKeysTest, OtherResultsComeBackUnchanged) {
    open("base/a");
    menu->setCursor(rowOf("1"));
    for (const int result : {0, 3, 25, 27, 1002, 1003, INT_MAX}) {
        fileResult = result;
        EXPECT_EQ(press(1), result);
    }
    for (const int code : {0, 4, 7, 8, 9, 10, 11, 25, 42, 43, 1003, 1008, -5})
        EXPECT_EQ(press(code), code);
    menu->setWrap(false);
    menu->setCursor(0);
    EXPECT_EQ(press(5), 1008);
    EXPECT_EQ(press(6), 6);
    EXPECT_EQ(menu->getCursor(), 1);
    EXPECT_EQ(press(3), 0);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
    takeLog();
}

TEST_F(FileBrowserKeysTest, APathThatEndsInTwoDotsGoesUp) {
    for (const char* const path : {"base/a/..", "..", "../", "base/a/../", "whatever..", "whatever../"}) {
        open("base/a");
        EXPECT_EQ(press(26, path), 26);
        EXPECT_STREQ(menu->getCurrentDir(), "base") << path;
        EXPECT_THAT(takeLog(), testing::MatchesRegex("change dir " + std::string(path) +
                                                     "\nloaddir base 4\nparentdir base return 0x[0-9a-f]+\n"
                                                     "change dir return 26\n"));
        EXPECT_EQ(press(26, path), 26); // at the base it stays there
        EXPECT_STREQ(menu->getCurrentDir(), "base") << path;
        EXPECT_EQ(takeLog(),
                  "change dir " + std::string(path) + "\nfound menu for base\nchange dir return 26\n");
    }
}

TEST_F(FileBrowserKeysTest, ShortPathsAreTakenAsTheyAre) {
    for (const char* const path : {"", ".", "/", "a", "./", "a.", ".a", "./."}) {
        open();
        EXPECT_EQ(press(26, path), 26);
        EXPECT_STREQ(menu->getCurrentDir(), path);
        takeLog();
    }
}

TEST_F(FileBrowserKeysTest, AResultOf26WithoutItsEventChangesNothing) {
    open("base/a");
    menu->setCursor(rowOf("1"));
    fileResult = 26;
    menu->restored.clear();
    EXPECT_EQ(press(1), 26);
    EXPECT_EQ(press(1, "base/many"), 26); // the event of a key that happens to carry a path
    SDL_Event key{}; // of the keyboard, with 26 and no pointer where a user event has its code and its path
    key.type = SDL_KEYUP;
    key.key.state = 26;
    key.key.keysym.sym = SDLK_SPACE;
    ASSERT_EQ(key.user.code, 26);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    SDL_PushEvent(&key);
    EXPECT_EQ(menu->eventHandling(), 26);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
    EXPECT_TRUE(menu->restored.empty());
    EXPECT_THAT(takeLog(), testing::Not(testing::HasSubstr("change dir")));
}

TEST_F(FileBrowserKeysTest, A26WithoutPathChangesNothing) {
    open("base/a");
    EXPECT_EQ(press(26, nullptr), 26);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
    EXPECT_EQ(takeLog(), "");
}

TEST_F(FileBrowserKeysTest, OtherKindsOfUserEventsAreNoKeys) {
    open("base/a");
    pressCode(26, "base/many", SDL_USEREVENT + 1);
    EXPECT_EQ(menu->eventHandling(), 0);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
}

TEST_F(FileBrowserKeysTest, ThePathMayLieInTheBrowserItself) {
    open("base/a/b");
    EXPECT_EQ(press(26, menu->getCurrentDir()), 26);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a/b");
    takeLog();
}
