#include "end_to_end/navora_run.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

using ::testing::HasSubstr;
using ::testing::Not;

/// Every run of a test has the same device.
class NavoraGameMenuTest : public NavoraTest {
protected:
    NavoraGameMenuTest() {
        mDevice.addFolder("mnt/UDISK");
        for (const char* name : {"a.txt", "b.txt", "c.txt"})
            mFolder.addFile(name);
    }

    Picture deviceShot(const std::string& keys) {
        return shot(mFolder.path(), keys, {"--device-root", mDevice.path()});
    }

    std::string state() const {
        std::ostringstream content;
        content << std::ifstream(mDevice.path("mnt/UDISK/navora/games.json")).rdbuf();
        return content.str();
    }

    std::string quoted(const std::string& name) const { return "\"" + mFolder.path(name) + "\""; }

    /// The row of the pop-up menu with the cursor, from 0; -1 for none.
    static int menuRow(const Picture& page) {
        for (int row = 0; row < 4; ++row)
            if (page.at(640, 200 + row * 80 + 73) == 0x0B503F)
                return row;
        return -1;
    }

    /// The text in a row of the pop-up menu without the cursor.
    static Picture menuText(const Picture& page, int row) {
        return page.part({400, 210 + row * 80, 470, 50});
    }

    /// The name in the row with the cursor.
    static Picture cursorText(const Picture& page) {
        return page.part({161, layout::list.y + cursorRow(page) * layout::rowHeight + 10, 500, 70});
    }

    SampleFolder mDevice;
};

TEST_F(NavoraGameMenuTest, XOpensItOnAGameAndBOrMenuClosesIt) {
    const Picture list = deviceShot("a,down");
    const Picture menu = deviceShot("a,down,x");
    EXPECT_EQ(menuRow(list), -1);
    EXPECT_EQ(menuRow(menu), 0);
    EXPECT_EQ(menuRow(deviceShot("a,down,x,down")), 1);
    EXPECT_EQ(deviceShot("a,down,x,b"), list);
    EXPECT_EQ(deviceShot("a,down,x,menu"), list);
    EXPECT_LT(menu.at(1000, 180) & 0xFF, list.at(1000, 180) & 0xFF) << "the page is darkened";
    EXPECT_EQ(state(), "") << "nothing was changed";
}

TEST_F(NavoraGameMenuTest, AFolderHasNone) {
    mFolder.addFolder("!folder");
    EXPECT_EQ(deviceShot("a,x"), deviceShot("a"));
}

TEST_F(NavoraGameMenuTest, AFavouriteAppearsOnItsPageAndGoesAgain) {
    const Picture none = deviceShot("down,a");
    const Picture add = deviceShot("a,down,x");
    deviceShot("a,down,x,down,a");
    EXPECT_THAT(state(), HasSubstr(quoted("b.txt")));
    const Picture one = deviceShot("down,a");
    EXPECT_EQ(cursorRow(one), 0);
    EXPECT_EQ(cursorText(one), cursorText(deviceShot("a,down")));
    EXPECT_NE(menuText(deviceShot("a,down,x"), 1), menuText(add, 1)) << "now it can be removed";
    EXPECT_EQ(menuText(deviceShot("a,x"), 1), menuText(add, 1)) << "another one cannot";
    EXPECT_EQ(deviceShot("down,a,x,down,a"), none) << "removed on the page itself";
    EXPECT_THAT(state(), Not(HasSubstr("b.txt")));
}

TEST_F(NavoraGameMenuTest, PlayAndDetailsOpenThemOverTheList) {
    EXPECT_EQ(deviceShot("a,down,x,down,down,a"), deviceShot("a,down,a"));
    EXPECT_EQ(deviceShot("a,down,x,down,down,a,b"), deviceShot("a,down"));
}

TEST_F(NavoraGameMenuTest, AGameThatIsStartedIsTheFirstOfTheRecents) {
    deviceShot("a,a,b,down,a");
    EXPECT_EQ(cursorText(deviceShot("down,down,a")), cursorText(deviceShot("a,down")));
    EXPECT_EQ(cursorText(deviceShot("down,down,a,down")), cursorText(deviceShot("a")));
    deviceShot("a,x,a");
    EXPECT_EQ(cursorText(deviceShot("down,down,a")), cursorText(deviceShot("a"))) << "by the menu too";
    deviceShot("a,down,down,x,down,down,a");
    EXPECT_THAT(state(), Not(HasSubstr("c.txt"))) << "to look at the details is not to start";
}

TEST_F(NavoraGameMenuTest, ARecentGameCanBeTakenFromTheList) {
    deviceShot("a,a,b,down,a,b,down,a");
    const Picture page = deviceShot("down,down,a,down,x,down,down,down,a");
    EXPECT_EQ(cursorRow(page), 1);
    EXPECT_THAT(state(), Not(HasSubstr("b.txt")));
    EXPECT_THAT(state(), HasSubstr(quoted("c.txt") + ", " + quoted("a.txt")));
    EXPECT_EQ(cursorRow(deviceShot("down,down,a,down,x,down,down,down,a")), 0) << "the last row went";
}

TEST_F(NavoraGameMenuTest, TheRecentsAreClearedOnlyWhenThatIsConfirmed) {
    deviceShot("a,a,b,down,a");
    const std::string before = state();
    for (const char* no : {"a", "b", "right,b", "x"})
        EXPECT_EQ(cursorRow(deviceShot(std::string("down,down,a,x,up,a,") + no)), 0) << no;
    EXPECT_EQ(state(), before);
    EXPECT_EQ(cursorRow(deviceShot("down,down,a,x,up,a,right,a")), -1);
    EXPECT_THAT(state(), Not(HasSubstr(".txt")));
}

TEST_F(NavoraGameMenuTest, AMarkShowsThatThereAreMoreRows) {
    deviceShot("a,a");
    const auto marked = [](const Picture& page, int y) { return page.at(640, y) == 0x36FFA0; };
    const Picture top = deviceShot("down,down,a,x");
    EXPECT_FALSE(marked(top, 190));
    EXPECT_TRUE(marked(top, 526));
    const Picture bottom = deviceShot("down,down,a,x,up");
    EXPECT_TRUE(marked(bottom, 190));
    EXPECT_FALSE(marked(bottom, 526));
    EXPECT_FALSE(marked(deviceShot("a,x"), 526)) << "all three fit";
}

TEST_F(NavoraGameMenuTest, AGameThatIsGoneIsNotShownButKept) {
    deviceShot("a,x,down,a,a,b,down,a");
    const std::string before = state();
    EXPECT_EQ(remove(mFolder.path("a.txt").c_str()), 0);
    EXPECT_EQ(cursorRow(deviceShot("down,a")), -1);
    EXPECT_EQ(cursorRow(deviceShot("down,down,a,down,down")), 0);
    EXPECT_EQ(state(), before);
    mFolder.addFile("a.txt");
    EXPECT_EQ(cursorRow(deviceShot("down,a")), 0);
}

TEST_F(NavoraGameMenuTest, AMalformedFileOfListsIsToldAndTheLauncherRuns) {
    mDevice.addFolder("mnt/UDISK/navora");
    mDevice.addFile("mnt/UDISK/navora/games.json", "{");
    const Outcome run = runNavora({"--device-root", mDevice.path(), "--keys", "down,a", "--shot",
                                   mResults.path("page.bmp"), mFolder.path()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "navora: " + mDevice.path("mnt/UDISK/navora/games.json") +
                              ": not JSON at line 1, column 2; it is not used\n");
}
