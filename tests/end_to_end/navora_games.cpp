#include "end_to_end/navora_run.h"

class NavoraGamesTest : public NavoraTest {
protected:
    void addFiles(int count) {
        for (int i = 0; i < count; ++i)
            mFolder.addFile("file " + std::to_string(100 + i));
    }
};

TEST_F(NavoraGamesTest, DownAndUpMoveTheCursorAndWrap) {
    addFiles(3);
    EXPECT_EQ(cursorRow(gamesShot(mFolder.path())), 0);
    EXPECT_EQ(cursorRow(gamesShot(mFolder.path(), "down")), 1);
    EXPECT_EQ(cursorRow(gamesShot(mFolder.path(), "down,down,up")), 1);
    EXPECT_EQ(cursorRow(gamesShot(mFolder.path(), "up")), 2);
    EXPECT_EQ(gamesShot(mFolder.path(), "down,down,down"), gamesShot(mFolder.path()));
}

TEST_F(NavoraGamesTest, TheRowsScrollWithTheCursor) {
    addFiles(8);
    const Picture last = gamesShot(mFolder.path(), "up");
    EXPECT_EQ(cursorRow(last), layout::rows - 1);
    EXPECT_EQ(last, gamesShot(mFolder.path(), "down,down,down,down,down,down,down"));
    EXPECT_EQ(cursorRow(gamesShot(mFolder.path(), "up,up,up")), 3);
}

TEST_F(NavoraGamesTest, TheCounterFollowsTheCursor) {
    addFiles(12);
    const Picture first = plainGamesShot(mFolder.path()).part(layout::counter);
    const Picture third = plainGamesShot(mFolder.path(), "down,down").part(layout::counter);
    EXPECT_GT(first.colors(), 10);
    EXPECT_NE(first, third);
    SampleFolder other;
    for (char name = 'a'; name < 'a' + 12; ++name)
        other.addFile(std::string(1, name));
    EXPECT_EQ(third, plainGamesShot(other.path(), "down,down").part(layout::counter));
    other.addFile("z");
    EXPECT_NE(third, plainGamesShot(other.path(), "down,down").part(layout::counter));
}

TEST_F(NavoraGamesTest, FoldersComeFirstAndThenNamesByTheirBytes) {
    for (const char* name : {"Bb", "cc", "aa", ".hidden"})
        mFolder.addFile(name);
    mFolder.addFolder("zz");
    mFolder.addFolder(".hidden too");
    EXPECT_EQ(cursorRow(gamesShot(mFolder.path(), "up")), 3);
    const Picture page = plainGamesShot(mFolder.path(), "up"); // the bar is on a row that is not looked at
    int row = 0;
    for (const char* name : {"zz", "Bb", "aa"}) {
        SampleFolder alone;
        alone.addFile(name);
        alone.addFile("zzz"); // for the bar
        EXPECT_EQ(rowText(page, row++), rowText(plainGamesShot(alone.path(), "up"), 0)) << name;
    }
}

TEST_F(NavoraGamesTest, AEntersAFolderAndBComesBack) {
    mFolder.addFolder("a");
    mFolder.addFolder("b/c");
    mFolder.addFile("b/d");
    const Picture outside = gamesShot(mFolder.path());
    EXPECT_EQ(rowText(plainGamesShot(mFolder.path(), "down,a"), 2),
              rowText(plainGamesShot(mFolder.path("b")), 1));
    EXPECT_EQ(gamesShot(mFolder.path(), "down,a").part(layout::title),
              gamesShot(mFolder.path("b")).part(layout::title));
    EXPECT_NE(gamesShot(mFolder.path(), "down,a").part(layout::title), outside.part(layout::title));
    EXPECT_EQ(gamesShot(mFolder.path(), "down,a,b"), outside);
    EXPECT_EQ(gamesShot(mFolder.path(), "down,a,down,a,b,b"), outside);
}

TEST_F(NavoraGamesTest, TheFirstRowOfAFolderInsideIsTheWayUp) {
    mFolder.addFolder("!a");
    mFolder.addFolder("!a/!b");
    mFolder.addFile("c");
    const Picture inside = plainGamesShot(mFolder.path(), "a,down");
    EXPECT_EQ(cursorRow(gamesShot(mFolder.path(), "a,up")), 1);
    EXPECT_GT(rowText(inside, 0).colors(), 10);
    EXPECT_NE(rowText(inside, 0), rowText(plainGamesShot(mFolder.path(), "down"), 0));
    EXPECT_EQ(gamesShot(mFolder.path(), "a,a"), gamesShot(mFolder.path()));
    EXPECT_EQ(gamesShot(mFolder.path(), "a,down,a,a"), gamesShot(mFolder.path(), "a"));
    EXPECT_EQ(gamesShot(mFolder.path(), "a,down,a,a,a"), gamesShot(mFolder.path()));
}

TEST_F(NavoraGamesTest, BInTheFirstFolderAndMenuAnywhereReturnToTheHomePage) {
    mFolder.addFolder("a/b");
    const Picture home = shot(mFolder.path());
    for (const char* keys : {"b", "menu", "a,menu", "a,down,a,menu"})
        EXPECT_EQ(gamesShot(mFolder.path(), keys), home) << keys;
}

TEST_F(NavoraGamesTest, TheOtherKeysDoNothing) {
    addFiles(12);
    EXPECT_EQ(gamesShot(mFolder.path(), "down,left,right,right,y,start,select,l,r"),
              gamesShot(mFolder.path(), "down"));
}

TEST_F(NavoraGamesTest, AnEmptyFolderSaysSo) {
    const SDL_Rect middle{400, 330, 480, 70};
    const Picture page = plainGamesShot(mFolder.path());
    EXPECT_EQ(cursorRow(page), -1);
    EXPECT_GT(page.part(middle).colors(), 10);
    EXPECT_EQ(plainGamesShot(mFolder.path(), "up,down,left,right,a"), page);
    mFolder.addFile("a");
    EXPECT_EQ(plainGamesShot(mFolder.path()).part(middle).colors(), 1);
}

TEST_F(NavoraGamesTest, AnEmptyFolderSaysSoInTheLanguageOfTheSettings) {
    EXPECT_NE(gamesShot(mFolder.path(), "", {"--lang", "ch.lang"}).part(layout::list),
              gamesShot(mFolder.path()).part(layout::list));
}

TEST_F(NavoraGamesTest, EveryScriptHasItsGlyphs) {
    for (const auto& [one, other] : std::vector<std::pair<std::string, std::string>>{
             {"一", "二"}, {"ほ", "ぞ"}, {"달", "빛"}, {"é", "Ż"}}) {
        SampleFolder folder;
        for (const std::string& name : {std::string("0"), one, other})
            folder.addFile(name);
        const Picture page = plainGamesShot(folder.path()); // the bar is on the first row
        EXPECT_NE(rowText(page, 1), rowText(page, 2)) << one << ": boxes instead of letters?";
        EXPECT_GT(rowText(page, 1).colors(), 10) << one;
    }
}

TEST_F(NavoraGamesTest, ALongNameIsCutWithinItsRow) {
    const SDL_Rect end{1258, layout::list.y, 22, layout::list.h};
    for (const char* name : {"a", "b", "c"})
        mFolder.addFile(name);
    SampleFolder longNames;
    longNames.addFile("a");
    longNames.addFile("a" + std::string(200, 'W'));
    longNames.addFile("b 超级小球超级小球超级小球超级小球超级小球超级小球超级小球超级小球超级小球超级小球");
    const Picture page = plainGamesShot(longNames.path());
    EXPECT_EQ(page.part(end), plainGamesShot(mFolder.path()).part(end));
    for (int row = 1; row < 3; ++row)
        EXPECT_GT(page.part({1020, layout::list.y + row * layout::rowHeight, 108, 90}).colors(), 10) << row;
}

TEST_F(NavoraGamesTest, ALongTitleIsCutBeforeTheClock) {
    constexpr SDL_Rect edge{800, 0, 480, 80};
    constexpr SDL_Rect before{680, 0, 100, 80};
    mFolder.addFile("a");
    const Picture shortTitle = gamesShot(mFolder.path(), "a");
    for (const std::string piece : {"W", "超"}) {
        SampleFolder longNames;
        std::string name;
        while (name.size() < 200)
            name += piece;
        longNames.addFolder(name);
        longNames.addFile(name + "z");
        for (const char* keys : {"a", "down,a"}) { // the folder's list, the file's details
            const Picture page = gamesShot(longNames.path(), keys);
            EXPECT_EQ(page.part(edge), shortTitle.part(edge)) << piece << keys;
            EXPECT_NE(page.part(before), shortTitle.part(before)) << piece << keys;
        }
    }
}
