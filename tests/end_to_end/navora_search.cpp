#include "end_to_end/navora_run.h"

#include <algorithm>

class NavoraSearchTest : public NavoraTest {
protected:
    static constexpr SDL_Rect found{500, 80, 760, 576};
    static constexpr SDL_Rect keyLine{24, 90, 448, 64};
    static constexpr uint32_t highlight = 0x36FFA0;

    /// The search page after `keys`, with nothing behind the rows.
    Picture searchShot(const std::string& keys) {
        SampleFolder theme;
        theme.addFolder("skin");
        theme.addPicture("skin/bg.png", 1280, 720, 0);
        return shot(mFolder.path(), keys.empty() ? "r" : "r," + keys, {"--theme", theme.path()});
    }

    /// Keys that go from A to a letter or a digit of the pad and press it.
    static std::string typed(char letter) {
        const int index = letter <= '9' ? 26 + letter - '0' : letter - 'A';
        std::string keys;
        for (int row = 0; row < index / 6; ++row)
            keys += "down,";
        for (int column = 0; column < index % 6; ++column)
            keys += "right,";
        return keys + "a";
    }

    /// How many rows are shown at the right.
    static int foundRows(const Picture& page) {
        int count = 0;
        for (int row = 0; row < layout::rows; ++row)
            count += page.at(1200, layout::list.y + row * layout::rowHeight + 40) != 0 ? 1 : 0;
        return count;
    }

    static bool hasHighlight(const Picture& page, int row) {
        const Picture text = page.part({588, layout::list.y + row * layout::rowHeight, 640, 96});
        return std::count(text.pixels.begin(), text.pixels.end(), highlight) > 0;
    }

    /// The cursor's row among the games; -1 while the letters have it.
    static int foundCursor(const Picture& page) {
        for (int row = 0; row < layout::rows; ++row)
            if (page.at(1200, layout::list.y + row * layout::rowHeight + 88) == 0x0B503F)
                return row;
        return -1;
    }
};

TEST_F(NavoraSearchTest, IsReachedFromItsRowAndByTheRightShoulder) {
    mFolder.addFile("one.txt");
    EXPECT_EQ(shot(mFolder.path(), "down,down,down,a"), shot(mFolder.path(), "r"));
    EXPECT_EQ(shot(mFolder.path(), "r,b"), shot(mFolder.path()));
    EXPECT_EQ(shot(mFolder.path(), "r,a,menu"), shot(mFolder.path()));
}

TEST_F(NavoraSearchTest, LooksThroughAllFoldersButNotTheHiddenOnes) {
    mFolder.addFile("one.txt");
    mFolder.addFolder("in/deeper");
    mFolder.addFile("in/deeper/two.txt");
    mFolder.addFolder(".hidden");
    mFolder.addFile(".hidden/three.txt");
    mFolder.addFile(".four.txt");
    EXPECT_EQ(foundRows(searchShot("")), 2);
    EXPECT_EQ(foundRows(searchShot(typed('W'))), 1);
}

TEST_F(NavoraSearchTest, FindsAsYouTypeAndHighlightsTheMatch) {
    for (const char* name : {"Alpha.txt", "alps.txt", "Beta.txt"})
        mFolder.addFile(name);
    const Picture all = searchShot("");
    EXPECT_EQ(foundRows(all), 3);
    EXPECT_FALSE(hasHighlight(all, 0));
    const Picture one = searchShot("a,down,right,right,right,right,right,a"); // A and L
    EXPECT_EQ(foundRows(one), 2);
    EXPECT_TRUE(hasHighlight(one, 0));
    EXPECT_TRUE(hasHighlight(one, 1));
    EXPECT_NE(one.part(keyLine), all.part(keyLine));
    EXPECT_EQ(foundRows(searchShot(typed('B'))), 1);
    const Picture none = searchShot(typed('9'));
    EXPECT_EQ(foundRows(none), 0);
    EXPECT_GT(none.part({680, 330, 400, 70}).colors(), 10) << "says that there is no match";
}

TEST_F(NavoraSearchTest, ChineseNamesAreFoundByTheInitialsOfTheirReading) {
    mFolder.addFile("超级小球.txt"); // chao ji xiao qiu
    mFolder.addFile("abc.txt");
    const Picture page = searchShot(typed('J'));
    EXPECT_EQ(foundRows(page), 1);
    EXPECT_TRUE(hasHighlight(page, 0));
    EXPECT_EQ(foundRows(searchShot(typed('C'))), 2);
}

TEST_F(NavoraSearchTest, ExtensionsDoNotCount) {
    mFolder.addFile("one.txt");
    EXPECT_EQ(foundRows(searchShot(typed('T'))), 0);
    EXPECT_EQ(foundRows(searchShot(typed('E'))), 1);
}

TEST_F(NavoraSearchTest, BAndTheDeleteKeyTakeTheLastLetterAway) {
    mFolder.addFile("aab.txt");
    mFolder.addFile("b.txt");
    const Picture one = searchShot("a");
    EXPECT_EQ(searchShot("a,a,b"), one);
    EXPECT_EQ(searchShot("a,b"), searchShot(""));
    const std::string toDelete = "up,right";
    EXPECT_EQ(searchShot("a,a," + toDelete + ",a").part(found), one.part(found));
    EXPECT_EQ(searchShot("a,a," + toDelete + ",a").part(keyLine), one.part(keyLine));
    EXPECT_EQ(searchShot(toDelete + ",a,a"), searchShot(toDelete)) << "with nothing to delete it stays";
}

TEST_F(NavoraSearchTest, ASpaceIsALetterToo) {
    mFolder.addFile("a b.txt");
    mFolder.addFile("ab.txt");
    EXPECT_EQ(foundRows(searchShot("a")), 2);
    EXPECT_EQ(foundRows(searchShot("a,up,a")), 1);
}

TEST_F(NavoraSearchTest, RightGoesToTheGamesAndLeftOrBComesBack) {
    mFolder.addFile("a.txt");
    mFolder.addFile("b.txt");
    const std::string across = "right,right,right,right,right,right";
    EXPECT_EQ(foundCursor(searchShot("right,right,right,right,right")), -1);
    EXPECT_EQ(foundCursor(searchShot(across)), 0);
    EXPECT_EQ(foundCursor(searchShot(across + ",down")), 1);
    EXPECT_EQ(searchShot(across + ",left"), searchShot("right,right,right,right,right"));
    EXPECT_EQ(searchShot(across + ",b"), searchShot("right,right,right,right,right"));
}

TEST_F(NavoraSearchTest, WithoutAnyGameTheLettersKeepTheCursor) {
    const Picture page = searchShot("right,right,right,right,right,right,right");
    EXPECT_EQ(page, searchShot("right,right,right,right,right"));
}

TEST_F(NavoraSearchTest, AGameThatWasFoundIsOpenedLikeAnyOther) {
    mFolder.addFile("a.txt");
    const std::string across = "right,right,right,right,right,right";
    EXPECT_EQ(shot(mFolder.path(), "r," + across + ",a"), gamesShot(mFolder.path(), "a"));
    EXPECT_NE(searchShot(across + ",x"), searchShot(across)) << "the pop-up menu";
    EXPECT_EQ(searchShot(across + ",x,b"), searchShot(across));
    EXPECT_EQ(searchShot(across + ",a,b"), searchShot(across));
}

TEST_F(NavoraSearchTest, TheLengthOfWhatIsTypedHasALimit) {
    mFolder.addFile("b.txt");
    std::string keys;
    for (int i = 0; i < 24; ++i)
        keys += "a,";
    EXPECT_EQ(searchShot(keys + "a,a,a"), searchShot(keys + "up,down"));
}
