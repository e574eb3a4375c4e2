#include "gfx/image.h"

#include "support/picture_test.h"
#include "support/pictures.h"
#include "support/sdl_memory.h"

using testing::ElementsAre;

class ImageLoadTest : public PictureTest {
protected:
    static constexpr Uint32 red = 0xFFFF0000;
    static constexpr Uint32 green = 0xFF00FF00;

    static KestroSurfacePtr load(const char* themeDir, const char* defaultDir, const char* name) {
        return KestroSurfacePtr(LoadKestroSurface(themeDir, defaultDir, name));
    }
};

TEST_F(ImageLoadTest, ThemeOverridesDefault) {
    write32BitPicture("theme/skin/pop-bg.png", 8, 8, red);
    write32BitPicture("skin/pop-bg.png", 8, 8, green);
    const KestroSurfacePtr picture = load("theme/", "./", "skin/pop-bg.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), red);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ImageLoadTest, ThemeWithoutThePictureFallsBackAndLogsOncePerLoad) {
    write32BitPicture("skin/pop-bg.png", 8, 8, green);
    const KestroSurfacePtr first = load("theme/", "./", "skin/pop-bg.png");
    ASSERT_TRUE(first);
    EXPECT_EQ(copiedPixel(first, 0, 0), green);
    EXPECT_EQ(takeLog(), "theme//skin/pop-bg.png open fail, use .//skin/pop-bg.png\n");
    EXPECT_TRUE(load("theme/", "./", "skin/pop-bg.png"));
    EXPECT_EQ(takeLog(), "theme//skin/pop-bg.png open fail, use .//skin/pop-bg.png\n");
}

TEST_F(ImageLoadTest, UnusablePictureOfTheThemeFallsBack) {
    writeFile("theme/a.png", "no picture");
    write32BitPicture("a.png", 8, 8, green);
    EXPECT_TRUE(load("theme/", "./", "a.png"));
    EXPECT_EQ(takeLog(), "theme//a.png open fail, use .//a.png\n");
}

TEST_F(ImageLoadTest, AbsurdPictureOfTheThemeIsRefusedAndFallsBack) {
    writeFile("theme/a.png", headersClaiming(20000, 20000).front().bytes);
    write32BitPicture("a.png", 8, 8, green);
    EXPECT_TRUE(load("theme/", "./", "a.png"));
    EXPECT_EQ(takeLog(), "picture theme/a.png refused: 20000x20000 is too large\n"
                         "theme//a.png open fail, use .//a.png\n");
}

TEST_F(ImageLoadTest, NoTextureForThePictureOfTheThemeFallsBack) {
    write32BitPicture("theme/a.qoi", 100, 100, red);
    write32BitPicture("a.qoi", 8, 8, green);
    const int allocations = SDL_GetNumAllocations();
    {
        SdlMemory memory;
        memory.refuse(100 * 100 * 4, 2); // enough for the file and for the decoded picture
        const KestroSurfacePtr picture = load("theme/", "./", "a.qoi");
        ASSERT_TRUE(picture);
        EXPECT_EQ(copiedPixel(picture, 0, 0), green);
    }
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
    EXPECT_EQ(takeLog(), "theme//a.qoi open fail, use .//a.qoi\n");
}

TEST_F(ImageLoadTest, NothingFoundIsNullWithoutAMessage) {
    EXPECT_FALSE(load("theme/", "./", "missing.png"));
    EXPECT_FALSE(load(nullptr, "./", "missing.png"));
    EXPECT_FALSE(load("theme/", nullptr, "missing.png"));
    EXPECT_FALSE(load("theme/", "./", ""));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ImageLoadTest, WithoutAThemeTheDefaultIsUsedAndLogged) {
    write32BitPicture("default/a.png", 8, 8, green);
    write32BitPicture("a.png", 8, 8, red); // where no folder at all would lead
    const KestroSurfacePtr picture = load(nullptr, "default/", "a.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), green);
    EXPECT_EQ(takeLog(), "(null)/a.png open fail, use default//a.png\n");
}

TEST_F(ImageLoadTest, NullDefaultCountsAsNoText) {
    write32BitPicture("a.png", 8, 8, green);
    EXPECT_TRUE(load("theme/", nullptr, "a.png"));
    EXPECT_EQ(takeLog(), "theme//a.png open fail, use (null)/a.png\n");
}

TEST_F(ImageLoadTest, NullNameIsNull) {
    write32BitPicture("theme/a.png", 8, 8, red);
    EXPECT_FALSE(load("theme/", "./", nullptr));
    EXPECT_FALSE(load("theme/a.png", "theme/a.png", nullptr));
    EXPECT_FALSE(load(nullptr, nullptr, nullptr));
}

TEST_F(ImageLoadTest, NothingIsPutBetweenFolderAndName) {
    write32BitPicture("themea.png", 8, 8, red);
    write32BitPicture("theme/a.png", 8, 8, green);
    const KestroSurfacePtr picture = load("theme", "./", "a.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), red);
}

TEST_F(ImageLoadTest, AbsoluteNameIsLoadedAsItIs) {
    write32BitPicture("a.png", 8, 8, red);
    write32BitPicture("theme/" + folder() + "/a.png", 8, 8, green);
    const KestroSurfacePtr picture = load("theme/", "./", (folder() + "/a.png").c_str());
    ASSERT_TRUE(picture);
    EXPECT_EQ(copiedPixel(picture, 0, 0), red);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ImageLoadTest, AbsoluteNameThatFailsIsLookedForNowhereElse) {
    write32BitPicture("theme" + folder() + "/a.png", 8, 8, green);
    EXPECT_FALSE(load("theme", ".", (folder() + "/a.png").c_str()));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ImageLoadTest, PictureOf24BitsIsConvertedAndSaysSo) {
    write24BitPicture("theme/a.ppm", 33, 5, 0xFF804020);
    const KestroSurfacePtr picture = load("theme/", "./", "a.ppm");
    ASSERT_TRUE(picture);
    EXPECT_EQ(takeLog(), "copy 33x5 100:3->33x5 132:4\n");
    EXPECT_EQ(copyOf(picture)->format->format, SDL_PIXELFORMAT_ARGB8888);
    EXPECT_EQ(copiedPixel(picture, 32, 4), 0xFF804020);
}

TEST_F(ImageLoadTest, PictureOf8BitsIsConvertedAndSaysSo) {
    write8BitPicture("theme/a.pgm", 30, 5, 0x77);
    const KestroSurfacePtr picture = load("theme/", "./", "a.pgm");
    ASSERT_TRUE(picture);
    EXPECT_EQ(takeLog(), "copy 30x5 32:1->30x5 120:4\n");
    EXPECT_EQ(copyOf(picture)->format->format, SDL_PIXELFORMAT_ARGB8888);
    EXPECT_EQ(copiedPixel(picture, 29, 4), 0xFF777777);
}

TEST_F(ImageLoadTest, ConversionIsLoggedBeforeTheFallback) {
    write24BitPicture("a.ppm", 4, 4, red);
    EXPECT_TRUE(load("theme/", "./", "a.ppm"));
    EXPECT_EQ(takeLog(), "copy 4x4 12:3->4x4 16:4\n"
                         "theme//a.ppm open fail, use .//a.ppm\n");
}

TEST_F(ImageLoadTest, PictureOf32BitsKeepsItsFormat) {
    const KestroSurfacePtr picture = load("", "./", picturePath("png-32bit.png").c_str());
    ASSERT_TRUE(picture);
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(copyOf(picture)->format->format, SDL_PIXELFORMAT_ABGR8888);
}

TEST_F(ImageLoadTest, ResultHasTextureAndCopyOfItsSize) {
    write24BitPicture("a.ppm", 40, 30, red);
    const KestroSurfacePtr picture = load("./", "./", "a.ppm");
    ASSERT_TRUE(picture);
    EXPECT_EQ(sizeOf(picture), "40x30");
    EXPECT_NE(textureOf(picture), nullptr);
    EXPECT_EQ(copyOf(picture)->w, 40);
    EXPECT_EQ(copyOf(picture)->h, 30);
    drawOn(0xFF000000, picture);
    EXPECT_EQ(pixel(39, 29), red);
    EXPECT_EQ(pixel(40, 29), 0xFF000000);
    EXPECT_EQ(takeLog(), "copy 40x30 120:3->40x30 160:4\n");
}

TEST_F(ImageLoadTest, NoMemoryForTheConvertedPictureIsNull) {
    write8BitPicture("a.pgm", 300, 200, 0x77);
    SdlMemory memory;
    memory.refuse(300 * 200 * 4);
    EXPECT_FALSE(load("./", "./", "a.pgm"));
}

TEST_F(ImageLoadTest, NothingIsLostWithTheSurface) {
    write24BitPicture("a.ppm", 40, 30, red);
    const auto loadAll = [this] {
        for (const char* name : {"a.ppm", "missing.png"})
            load("theme/", "./", name);
        load("./", "./", "a.ppm");
        load("./", "./", picturePath("gif-8bit.gif").c_str());
        load("./", "./", picturePath("png-32bit.png").c_str());
        takeLog();
    };
    loadAll();
    const int allocations = SDL_GetNumAllocations();
    loadAll();
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(ImageLoadTest, WithoutAScreenEverythingIsNullAndQuiet) {
    write32BitPicture("a.qoi", 8, 8, red);
    write24BitPicture("a.ppm", 8, 8, red);
    ScreenUninit();
    EXPECT_FALSE(load("./", "./", "a.qoi"));
    EXPECT_FALSE(load("./", "./", "a.ppm"));
    EXPECT_FALSE(load("theme/", "./", "a.ppm"));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ImageLoadTest, AfterSdlQuitEverythingIsNullAndQuiet) {
    write32BitPicture("a.qoi", 8, 8, red);
    write24BitPicture("a.ppm", 8, 8, red);
    quitSdl();
    EXPECT_FALSE(load("./", "./", "a.qoi"));
    EXPECT_FALSE(load("./", "./", "a.ppm"));
    EXPECT_EQ(takeLog(), "");
}
