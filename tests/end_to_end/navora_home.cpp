#include "end_to_end/navora_run.h"

#include <gmock/gmock.h>

#include <algorithm>

using ::testing::HasSubstr;

class NavoraHomeTest : public NavoraTest {
protected:
    Picture homeShot(const std::string& keys = "", const std::vector<std::string>& moreOptions = {}) {
        return shot(mFolder.path(), keys, moreOptions);
    }
};

TEST_F(NavoraHomeTest, HasARowForEveryPageAndTheCursorWraps) {
    std::string down;
    for (int row = 0; row < layout::homeRows; ++row, down += "down,")
        EXPECT_EQ(cursorRow(homeShot(down + "left")), row);
    EXPECT_EQ(homeShot(down + "left"), homeShot());
    EXPECT_EQ(cursorRow(homeShot("up")), layout::homeRows - 1);
    EXPECT_NE(rowText(homeShot("down"), 0), rowText(homeShot(), 1));
}

TEST_F(NavoraHomeTest, TellsTheTime) {
    EXPECT_GT(timedShot(mFolder.path(), "").part({1000, 20, 119, 40}).colors(), 30);
}

TEST_F(NavoraHomeTest, AOpensThePageUnderTheCursorAndBComesBack) {
    std::vector<Picture> titles{homeShot().part(layout::title)};
    std::string down;
    for (int row = 0; row < layout::homeRows; ++row, down += "down,") {
        const Picture title = homeShot(down + "a").part(layout::title);
        EXPECT_EQ(std::count(titles.begin(), titles.end(), title), 0) << row;
        titles.push_back(title);
        EXPECT_EQ(homeShot(down + "a,b"), homeShot(down + "left")) << row;
    }
}

TEST_F(NavoraHomeTest, BAndMenuLeave) {
    for (const char* keys :
         {"b", "menu", "down,b", "a,b,b", "a,menu,menu", "up,a,b,menu", "down,a,menu,menu"}) {
        const Outcome run = runNavora({"--keys", keys, mFolder.path()}, {"SDL_VIDEODRIVER=dummy"});
        EXPECT_EQ(run.exitCode, 0) << keys;
        EXPECT_THAT(run.output, HasSubstr("a is 1003, quit navora\n")) << keys;
    }
}

TEST_F(NavoraHomeTest, TheOtherKeysDoNothing) {
    EXPECT_EQ(homeShot("down,left,right,x,y,start,select,l"), homeShot("down"));
}

TEST_F(NavoraHomeTest, TheLanguageOfTheCommandLineIsShown) {
    const Picture chinese = homeShot("", {"--lang", "ch.lang"});
    EXPECT_NE(rowText(chinese, 0), rowText(homeShot(), 0));
    EXPECT_NE(rowText(chinese, 1), rowText(homeShot(), 1));
    EXPECT_EQ(homeShot("", {"--lang", "en.lang"}), homeShot());
}
