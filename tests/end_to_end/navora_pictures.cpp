#include "end_to_end/navora_run.h"

static constexpr uint32_t red = 0xC01020;

/// As red as a scaled picture is.
static bool isRed(uint32_t pixel) {
    return looksLike(pixel, red, 3);
}

class NavoraThumbnailTest : public NavoraTest {};

TEST_F(NavoraThumbnailTest, APictureFileShowsItself) {
    mFolder.addPicture("a.png", 200, 100, red);
    mFolder.addPicture("b.PNG", 100, 200, red);
    constexpr SDL_Rect box = layout::thumbnail;
    const Picture wide = gamesShot(mFolder.path());
    EXPECT_TRUE(isRed(middle(wide, box)));
    EXPECT_TRUE(isRed(wide.at(box.x + 4, box.y + box.h / 2))); // as wide as the box, and half as high
    EXPECT_FALSE(isRed(wide.at(box.x + box.w / 2, box.y + 20)));
    EXPECT_FALSE(isRed(wide.at(box.x - 4, box.y + box.h / 2)));
    const Picture high = gamesShot(mFolder.path(), "down");
    EXPECT_TRUE(isRed(high.at(box.x + box.w / 2, box.y + 4)));
    EXPECT_FALSE(isRed(high.at(box.x + box.w / 2, box.y - 4)));
    EXPECT_FALSE(isRed(high.at(box.x + 20, box.y + box.h / 2)));
}

TEST_F(NavoraThumbnailTest, AnyOtherFileShowsThePictureOfItsNameBesideIt) {
    mFolder.addFile("a.txt");
    mFolder.addPicture("b.png", 40, 40, red);
    mFolder.addFile("b.txt");
    mFolder.addFolder("b");
    EXPECT_FALSE(isRed(middle(gamesShot(mFolder.path()), layout::thumbnail))) << "a folder has none";
    EXPECT_FALSE(isRed(middle(gamesShot(mFolder.path(), "down"), layout::thumbnail)));
    EXPECT_TRUE(isRed(middle(gamesShot(mFolder.path(), "down,down,down"), layout::thumbnail)));
}

TEST_F(NavoraThumbnailTest, APictureThatCannotBeReadShowsNone) {
    mFolder.addFile("a.png", "no picture");
    SampleFolder without;
    without.addFile("a.txt");
    EXPECT_EQ(gamesShot(mFolder.path()).part(layout::thumbnail),
              gamesShot(without.path()).part(layout::thumbnail));
}

TEST_F(NavoraThumbnailTest, IsThatOfTheRowUnderTheCursorHoweverManyWereFlownOver) {
    constexpr int count = 40;
    for (int i = 0; i < count; ++i) {
        const bool isLast = i == count - 1;
        mFolder.addPicture(std::to_string(100 + i) + ".png", isLast ? 600 : 1500, 1500, isLast ? red : 0);
    }
    std::string keys;
    for (int i = 1; i < count; ++i)
        keys += "down,";
    const Picture last = gamesShot(mFolder.path(), keys + "l");
    EXPECT_TRUE(isRed(middle(last, layout::thumbnail)));
    EXPECT_FALSE(isRed(middle(gamesShot(mFolder.path(), keys + "up"), layout::thumbnail)));
    EXPECT_EQ(gamesShot(mFolder.path(), keys + "up,down"), last);
}

class NavoraDetailsTest : public NavoraTest {};

TEST_F(NavoraDetailsTest, AShowsAFileLargeAndBReturnsToTheList) {
    mFolder.addFile("a.txt");
    mFolder.addPicture("b.png", 300, 300, red);
    const Picture details = gamesShot(mFolder.path(), "down,a");
    EXPECT_TRUE(isRed(middle(details, layout::details)));
    EXPECT_TRUE(isRed(details.at(384, layout::details.y + 4)));
    EXPECT_FALSE(isRed(details.at(384, layout::details.y - 4)));
    EXPECT_NE(details.part(layout::title), gamesShot(mFolder.path()).part(layout::title));
    EXPECT_EQ(gamesShot(mFolder.path(), "a,b,down,a"), details);
    EXPECT_EQ(gamesShot(mFolder.path(), "down,a,down,a,b"), gamesShot(mFolder.path(), "down"));
}

TEST_F(NavoraDetailsTest, TellTheSize) {
    mFolder.addFile("a.txt");
    mFolder.addFile("b.txt", "12345");
    const Picture empty = gamesShot(mFolder.path(), "a").part(layout::facts);
    EXPECT_NE(gamesShot(mFolder.path(), "down,a").part(layout::facts), empty);
}

TEST_F(NavoraDetailsTest, AFileWhosePictureCannotBeReadShowsTheSheet) {
    mFolder.addFile("a.png", "no picture");
    mFolder.addFile("b.txt");
    const Picture sheet = gamesShot(mFolder.path(), "down,a").part(layout::details);
    EXPECT_EQ(gamesShot(mFolder.path(), "a").part(layout::details), sheet);
    EXPECT_EQ(middle(sheet, {0, 0, layout::details.w, layout::details.h}), 0x6E84A8u); // a line on it
}

TEST_F(NavoraDetailsTest, TheMenuKeyReturnsToTheListToo) {
    mFolder.addFile("a.txt");
    EXPECT_EQ(gamesShot(mFolder.path(), "a,menu"), gamesShot(mFolder.path()));
}
