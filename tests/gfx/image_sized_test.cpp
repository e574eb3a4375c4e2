#include "gfx/image.h"

#include "support/picture_test.h"
#include "support/pictures.h"
#include "support/sdl_memory.h"

#include <cstring>

class SizedImageTest : public PictureTest {
protected:
    static constexpr Uint32 red = 0xFFFF0000;
    static constexpr bool keepingRatio = true;

    static KestroSurfacePtr load(const std::string& path, int w, int h, bool keepRatio = false) {
        return KestroSurfacePtr(LoadKestroSurfaceSpecSized(path.c_str(), w, h, nullptr, false, keepRatio));
    }
};

TEST_F(SizedImageTest, RatioIsKeptOnRequest) {
    write32BitPicture("a.qoi", 400, 300, red);
    EXPECT_EQ(sizeOf(load("a.qoi", 200, 200, keepingRatio)), "200x150");
    EXPECT_EQ(sizeOf(load("a.qoi", 200, 200)), "200x200");
    EXPECT_EQ(takeLog(), "thumb3bytes pixel 4\nthumb3bytes pixel 4\n");
}

TEST_F(SizedImageTest, KeptRatioFitsInsideTheRequest) {
    const struct {
        int sw, sh, width, height;
        const char* size;
    } cases[] = {
        {400, 300, 200, 200, "200x150"},
        {300, 400, 200, 200, "150x200"},
        {400, 300, 200, 150, "200x150"}, // the width that fits is the one asked for
        {100, 50, 200, 200, "200x100"},  // enlarged
        {50, 100, 200, 200, "100x200"},
        {100, 100, 200, 100, "100x100"},
        {3, 2, 10, 10, "10x6"}, // 6.67 truncated
        {3, 2, 4, 3, "4x3"},    // 3 x 3 / 2 is 4, the width asked for: the height stays
        {2, 3, 10, 10, "6x10"},
        {7, 5, 3, 3, "3x2"}, // 7 x 3 / 5 = 4 is too wide; 5 x 3 / 7 = 2
        {5, 7, 3, 3, "2x3"},
        {1, 1, 640, 480, "480x480"},
    };
    for (const auto& c : cases) {
        write32BitPicture("a.qoi", c.sw, c.sh, red);
        const KestroSurfacePtr picture = load("a.qoi", c.width, c.height, keepingRatio);
        ASSERT_TRUE(picture);
        EXPECT_EQ(sizeOf(picture), c.size) << c.sw << "x" << c.sh << " into " << c.width << "x" << c.height;
    }
    takeLog();
}

TEST_F(SizedImageTest, PictureOfTheSizeKeepsItsFormat) {
    const struct {
        const char* name;
        Uint32 format;
    } pictures[] = {
        {"png-8bit.png", SDL_PIXELFORMAT_INDEX8},
        {"png-24bit.png", SDL_PIXELFORMAT_RGB24},
        {"png-32bit.png", SDL_PIXELFORMAT_ABGR8888},
    };
    for (const auto& [name, format] : pictures)
        for (const bool keepRatio : {false, true}) {
            const KestroSurfacePtr picture = load(picturePath(name), 32, 16, keepRatio);
            ASSERT_TRUE(picture) << name;
            EXPECT_EQ(sizeOf(picture), "32x16");
            EXPECT_EQ(copyOf(picture)->format->format, format) << name;
            drawOn(0xFF000000, picture);
            EXPECT_EQ(pixel(0, 0), red) << name;
        }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SizedImageTest, AnyOtherSizeComesOutAsArgb) {
    for (const char* name : {"png-8bit.png", "png-24bit.png", "png-32bit.png"}) {
        const KestroSurfacePtr picture = load(picturePath(name), 32, 17);
        ASSERT_TRUE(picture) << name;
        EXPECT_EQ(copyOf(picture)->format->format, SDL_PIXELFORMAT_ARGB8888) << name;
        EXPECT_EQ(copyOf(picture)->w, 32);
        EXPECT_EQ(copyOf(picture)->h, 17);
    }
    takeLog();
}

TEST_F(SizedImageTest, DepthAndConversionAreLogged) {
    EXPECT_TRUE(load(picturePath("png-8bit.png"), 10, 10));
    EXPECT_EQ(takeLog(), "thumb3bytes pixel 1\ncopy 32x16 32:1->32x16 128:4\n");
    EXPECT_TRUE(load(picturePath("png-24bit.png"), 10, 10));
    EXPECT_EQ(takeLog(), "thumb3bytes pixel 3\ncopy 32x16 96:3->32x16 128:4\n");
    EXPECT_TRUE(load(picturePath("png-32bit.png"), 10, 10));
    EXPECT_EQ(takeLog(), "thumb3bytes pixel 4\n");
}

TEST_F(SizedImageTest, RedStaysRedInEveryByteOrder) {
    for (const char* name : {"png-8bit.png", "png-24bit.png", "png-32bit.png", "bmp-32bit-v5.bmp"}) {
        const KestroSurfacePtr picture = load(picturePath(name), 16, 8);
        ASSERT_TRUE(picture);
        EXPECT_EQ(copiedPixel(picture, 2, 1), red) << name;
        EXPECT_EQ(copiedPixel(picture, 2, 6), 0xFF0000FF) << name;
        drawOn(0xFF000000, picture);
        EXPECT_EQ(pixel(2, 1), red) << name;
        EXPECT_EQ(pixel(2, 6), 0xFF0000FF) << name;
    }
    takeLog();
}

TEST_F(SizedImageTest, SideOfZeroGivesAnObjectThatDrawsNothing) {
    write32BitPicture("a.qoi", 8, 8, red);
    for (const auto& [w, h] : {std::pair{0, 10}, {10, 0}, {0, 0}}) {
        const KestroSurfacePtr picture = load("a.qoi", w, h);
        ASSERT_TRUE(picture);
        EXPECT_EQ(textureOf(picture), nullptr);
        EXPECT_EQ(sizeOf(picture), "0x0");
        EXPECT_NE(picture->render(nullptr, nullptr, false, nullptr), 0);
        EXPECT_EQ(pixel(0, 0), 0xFF000000);
    }
    EXPECT_EQ(takeLog(), "thumb3bytes pixel 4\nthumb3bytes pixel 4\nthumb3bytes pixel 4\n");
}

TEST_F(SizedImageTest, SideScaledAwayGivesAnObjectThatDrawsNothing) {
    write32BitPicture("wide.qoi", 1000, 1, red);
    write32BitPicture("high.qoi", 1, 1000, red);
    for (const char* path : {"wide.qoi", "high.qoi"}) {
        const KestroSurfacePtr picture = load(path, 10, 10, keepingRatio);
        ASSERT_TRUE(picture) << path;
        EXPECT_EQ(textureOf(picture), nullptr) << path;
    }
    takeLog();
}

TEST_F(SizedImageTest, NegativeSizeIsNull) {
    write32BitPicture("a.qoi", 8, 8, red);
    for (const bool keepRatio : {false, true}) {
        EXPECT_FALSE(load("a.qoi", -5, 10, keepRatio));
        EXPECT_FALSE(load("a.qoi", 10, -5, keepRatio));
        EXPECT_FALSE(load("a.qoi", -5, -5, keepRatio));
    }
    takeLog();
}

TEST_F(SizedImageTest, PictureWithoutAreaGivesNothingToDraw) {
    for (const auto& [w, h] : {std::pair{0, 4}, {4, 0}, {0, 0}}) {
        const std::string size =
            littleEndian(2, static_cast<uint64_t>(w)) + littleEndian(2, static_cast<uint64_t>(h));
        writeFile("empty.tga", std::string(2, '\0') + '\2' + std::string(9, '\0') + size + "\x20\x08");
        for (const int side : {-5, 0, 8}) {
            SCOPED_TRACE(std::to_string(w) + "x" + std::to_string(h) + " into " + std::to_string(side));
            const KestroSurfacePtr picture = load("empty.tga", side, 8, keepingRatio);
            EXPECT_TRUE(!picture || !textureOf(picture));
            load("empty.tga", 8, side, keepingRatio);
        }
    }
    takeLog();
}

TEST_F(SizedImageTest, HugeSizesDoNotOverflow) {
    write32BitPicture("wide.qoi", 3000, 1, red);
    // 3000 x 2,000,000,000 / 1 does not fit 32 bits; 1 x 30 / 3000 is 0.
    const KestroSurfacePtr picture = load("wide.qoi", 30, 2'000'000'000, keepingRatio);
    ASSERT_TRUE(picture);
    EXPECT_EQ(textureOf(picture), nullptr);
    takeLog();
}

TEST_F(SizedImageTest, NoMemoryForTheTargetIsNull) {
    write32BitPicture("a.qoi", 10, 10, red);
    SdlMemory memory;
    memory.refuse(200 * 100 * 4);
    EXPECT_FALSE(load("a.qoi", 200, 100));
    takeLog();
}

TEST_F(SizedImageTest, NoTextureForTheTargetLeavesAnObjectWithItsCopy) {
    write32BitPicture("a.qoi", 10, 10, red);
    SdlMemory memory;
    memory.refuse(200 * 100 * 4, 1);
    const KestroSurfacePtr picture = load("a.qoi", 200, 100);
    ASSERT_TRUE(picture);
    EXPECT_EQ(textureOf(picture), nullptr);
    EXPECT_EQ(copyOf(picture)->w, 200);
    takeLog();
}

TEST_F(SizedImageTest, NoTextureForAPictureOfTheSizeIsNull) {
    write32BitPicture("a.qoi", 100, 100, red);
    const int allocations = SDL_GetNumAllocations();
    {
        SdlMemory memory;
        memory.refuse(100 * 100 * 4, 2); // the file and the decoded picture
        EXPECT_FALSE(load("a.qoi", 100, 100));
    }
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(SizedImageTest, NoMemoryForTheConvertedPictureStopsTheProgram) {
    write8BitPicture("a.pgm", 300, 200, 0x77);
    SdlMemory memory;
    memory.refuse(300 * 200 * 4);
    EXPECT_DEATH(load("a.pgm", 10, 10), "");
    takeLog();
}

TEST_F(SizedImageTest, NothingIsLostWithTheSurface) {
    const auto loadAll = [this] {
        for (const char* name : {"jpeg-24bit.jpg", "png-8bit.png", "png-32bit.png", "gif-8bit.gif"})
            for (const bool keepRatio : {false, true}) {
                load(picturePath(name), 20, 20, keepRatio);
                load(picturePath(name), 32, 16, keepRatio);
                load(picturePath(name), 0, 16, keepRatio);
                load(picturePath(name), -1, 16, keepRatio);
            }
        takeLog();
    };
    loadAll();
    const int allocations = SDL_GetNumAllocations();
    loadAll();
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(SizedImageTest, WithoutAScreenEverythingIsNullAndQuiet) {
    ScreenUninit();
    for (const char* name : {"png-8bit.png", "png-24bit.png", "png-32bit.png"}) {
        EXPECT_FALSE(load(picturePath(name), 10, 10)) << name;
        EXPECT_FALSE(load(picturePath(name), 32, 16)) << name;
    }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SizedImageTest, AfterSdlQuitEverythingIsNullAndQuiet) {
    quitSdl();
    EXPECT_FALSE(load(picturePath("png-24bit.png"), 10, 10));
    EXPECT_FALSE(load(picturePath("png-24bit.png"), 32, 16));
    EXPECT_EQ(takeLog(), "");
}
