#include "gfx/image.h"

#include "support/picture_test.h"
#include "support/pictures.h"

/// What stands in for a picture that is asked for in a size and cannot be loaded.
class StandInImageTest : public PictureTest {
protected:
    static constexpr Uint32 red = 0xFFFF0000;
    static constexpr Uint32 green = 0xFF00FF00;

    static constexpr bool fromTheme = true;

    static KestroSurfacePtr load(const char* path, const char* name, int w = 8, int h = 8) {
        return KestroSurfacePtr(LoadKestroSurfaceSpecSized(path, w, h, name, fromTheme, false));
    }

    /// Asks for a picture that is missing, and for `name` in its place.
    static KestroSurfacePtr loadInstead(const char* name, int w = 8, int h = 8) {
        return load("missing.png", name, w, h);
    }
};

TEST_F(StandInImageTest, MissingPictureIsNullUnlessTheThemeMayHelp) {
    write32BitPicture("a.png", 8, 8, green);
    EXPECT_EQ(LoadKestroSurfaceSpecSized("missing.png", 8, 8, "a.png", false, false), nullptr);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(StandInImageTest, PictureThatIsThereNeedsNoTheme) {
    gThemePath = "theme/";
    write32BitPicture("a.png", 8, 8, red);
    write32BitPicture("theme/b.png", 8, 8, green);
    const KestroSurfacePtr picture = load("a.png", "b.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), red);
}

TEST_F(StandInImageTest, ThemeStandsInForAMissingPicture) {
    gThemePath = "theme/";
    write32BitPicture("theme/a.png", 8, 8, red);
    write32BitPicture("a.png", 8, 8, green);
    const KestroSurfacePtr picture = loadInstead("a.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), red);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(StandInImageTest, WorkingFolderStandsInForTheTheme) {
    gThemePath = "theme/";
    write32BitPicture("a.png", 8, 8, green);
    const KestroSurfacePtr picture = loadInstead("a.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), green);
    EXPECT_EQ(takeLog(), "theme//a.png open fail, use .//a.png\n");
}

TEST_F(StandInImageTest, NullThemeCountsAsNoText) {
    write32BitPicture("a.png", 8, 8, green);
    EXPECT_TRUE(loadInstead("a.png"));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(StandInImageTest, StandInIsScaledToo) {
    gThemePath = "theme/";
    write32BitPicture("a.png", 80, 40, green);
    EXPECT_EQ(sizeOf(loadInstead("a.png", 20, 30)), "20x30");
    EXPECT_EQ(takeLog(), "theme//a.png open fail, use .//a.png\nthumb3bytes pixel 4\n");
}

TEST_F(StandInImageTest, NothingFoundIsNullWithoutAMessage) {
    gThemePath = "theme/";
    EXPECT_FALSE(loadInstead("a.png"));
    EXPECT_FALSE(loadInstead("/nowhere/a.png"));
    EXPECT_FALSE(loadInstead(""));
    EXPECT_FALSE(loadInstead(nullptr));
    EXPECT_EQ(LoadKestroSurfaceSpecSized(nullptr, 8, 8, nullptr, false, false), nullptr);
    EXPECT_FALSE(load(nullptr, nullptr));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(StandInImageTest, NullPathGoesToTheTheme) {
    gThemePath = "theme/";
    write32BitPicture("theme/a.png", 8, 8, red);
    EXPECT_TRUE(load(nullptr, "a.png"));
}

TEST_F(StandInImageTest, AbsoluteNameIsTriedAsItIsFirst) {
    gThemePath = "theme";
    write32BitPicture("a.png", 8, 8, red);
    write32BitPicture("theme" + folder() + "/a.png", 8, 8, green);
    const KestroSurfacePtr picture = loadInstead((folder() + "/a.png").c_str());
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), red);
}

TEST_F(StandInImageTest, AbsoluteNameThatFailsIsLookedForInTheTheme) {
    gThemePath = "theme";
    write32BitPicture("theme/nowhere/a.png", 8, 8, red);
    const KestroSurfacePtr picture = loadInstead("/nowhere/a.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), red);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(StandInImageTest, AbsoluteNameThatFailsIsLookedForInTheWorkingFolderToo) {
    gThemePath = "theme";
    write32BitPicture("nowhere/a.png", 8, 8, green);
    EXPECT_TRUE(loadInstead("/nowhere/a.png"));
    EXPECT_EQ(takeLog(), "theme//nowhere/a.png open fail, use .///nowhere/a.png\n");
}

TEST_F(StandInImageTest, AbsurdPictureIsRefusedAndTheThemeStandsIn) {
    gThemePath = "theme/";
    writeFile("absurd.png", headersClaiming(20000, 20000).front().bytes);
    write32BitPicture("theme/a.png", 8, 8, red);
    EXPECT_TRUE(load("absurd.png", "a.png"));
    EXPECT_EQ(takeLog(), "picture absurd.png refused: 20000x20000 is too large\n");
}
