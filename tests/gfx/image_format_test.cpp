#include "gfx/image.h"

#include "support/picture_test.h"
#include "support/pictures.h"

#include <array>
#include <cstdlib>

namespace {

/// The colours of the quadrants of a test picture: above left and right, below left and right.
using Quadrants = std::array<Uint32, 4>;

constexpr Uint32 background = 0xFF204060;

bool isAmong(const std::string& name, const std::vector<std::string>& parts) {
    for (const std::string& part : parts)
        if (name.find(part) != std::string::npos)
            return true;
    return false;
}

/// What the test picture shows, by its name; see README.md beside the pictures.
Quadrants quadrantsOf(const std::string& name) {
    if (isAmong(name, {"-gray", "pnm-p2", "pnm-p5"}))
        return {0xFF000000, 0xFF555555, 0xFFAAAAAA, 0xFFFFFFFF};
    if (isAmong(name, {"pnm-p1", "pnm-p4"}))
        return {0xFFFFFFFF, 0xFF000000, 0xFF000000, 0xFFFFFFFF};
    if (isAmong(name, {"png-32bit", "webp-32bit"}))
        return {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0x80FFFFFF};
    if (isAmong(name, {"-transparent"}))
        return {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0x00000000};
    return {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF};
}

/// `color` over the background.
Uint32 drawn(Uint32 color) {
    const Uint32 alpha = color >> 24;
    Uint32 mixed = 0xFF000000;
    for (const int shift : {0, 8, 16}) {
        const Uint32 over = color >> shift & 0xFF;
        const Uint32 under = background >> shift & 0xFF;
        mixed |= (over * alpha + under * (255 - alpha)) / 255 << shift;
    }
    return mixed;
}

/// The greatest difference between the bytes of two colours.
int distance(Uint32 a, Uint32 b) {
    int greatest = 0;
    for (const int shift : {0, 8, 16, 24})
        greatest = std::max(
            greatest, std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
    return greatest;
}

std::vector<std::string> decodablePictures() {
    std::vector<std::string> names = pictureNames();
    names.erase(std::remove(names.begin(), names.end(), "icon-png.ico"), names.end());
    return names;
}

} // namespace

class ImageFormatTest : public PictureTest {
protected:
    /// Draws the picture, which is w x h, and compares the middle of its quadrants.
    static void expectQuadrants(const KestroSurfacePtr& picture, int w, int h, const Quadrants& wanted,
                                int tolerance) {
        ASSERT_TRUE(picture);
        EXPECT_EQ(sizeOf(picture), std::to_string(w) + "x" + std::to_string(h));
        drawOn(background, picture);
        for (int i = 0; i < 4; ++i) {
            const int x = w / 4 + i % 2 * w / 2;
            const int y = h / 4 + i / 2 * h / 2;
            const Uint32 color = wanted[static_cast<size_t>(i)];
            EXPECT_LE(distance(copiedPixel(picture, x, y), color), tolerance)
                << i << ": " << std::hex << copiedPixel(picture, x, y);
            EXPECT_LE(distance(pixel(x, y), drawn(color)), tolerance + 2)
                << i << ": " << std::hex << pixel(x, y);
        }
    }
};

TEST_F(ImageFormatTest, EveryFormatShowsItsColours) {
    for (const std::string& name : decodablePictures()) {
        SCOPED_TRACE(name);
        const int tolerance = isAmong(name, {"jpeg", "lossy", "extended"}) ? 2 : 0;
        expectQuadrants(KestroSurfacePtr(LoadKestroSurface(nullptr, nullptr, picturePath(name).c_str())), 32,
                        16, quadrantsOf(name), tolerance);
    }
    takeLog();
}

TEST_F(ImageFormatTest, EveryFormatShowsItsColoursWhenItHasTheWantedSize) {
    for (const std::string& name : decodablePictures()) {
        SCOPED_TRACE(name);
        const int tolerance = isAmong(name, {"jpeg", "lossy", "extended"}) ? 2 : 0;
        const KestroSurfacePtr picture(
            LoadKestroSurfaceSpecSized(picturePath(name).c_str(), 32, 16, nullptr, false, false));
        Quadrants wanted = quadrantsOf(name);
        if (isAmong(name, {"-transparent"}))
            wanted[3] = 0x00FFFFFF; // the transparent entry of the palette is white
        expectQuadrants(picture, 32, 16, wanted, tolerance);
    }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(ImageFormatTest, EveryFormatShowsItsColoursWhenScaled) {
    for (const std::string& name : decodablePictures()) {
        SCOPED_TRACE(name);
        for (const int scale : {1, 4}) {
            const KestroSurfacePtr picture(LoadKestroSurfaceSpecSized(picturePath(name).c_str(), 16 * scale,
                                                                      8 * scale, nullptr, false, true));
            // The scaler truncates, so that pure white may come out as 254.
            expectQuadrants(picture, 16 * scale, 8 * scale, quadrantsOf(name), 3);
        }
    }
    takeLog();
}

TEST_F(ImageFormatTest, DepthsOfTheCommonFormats) {
    const struct {
        const char* name;
        int bytesPerPixel;
    } pictures[] = {
        {"png-8bit.png", 1},
        {"png-8bit-gray.png", 1},
        {"png-24bit.png", 3},
        {"png-32bit.png", 4},
        {"jpeg-24bit.jpg", 3},
        {"jpeg-8bit-gray.jpg", 3},
        {"bmp-8bit.bmp", 1},
        {"bmp-24bit.bmp", 3},
        {"bmp-32bit-v5.bmp", 4},
        {"gif-8bit.gif", 1},
        {"webp-24bit-lossless.webp", 3},
        {"webp-32bit-lossless.webp", 4},
    };
    for (const auto& [name, bytesPerPixel] : pictures) {
        const KestroSurfacePtr picture(
            LoadKestroSurfaceSpecSized(picturePath(name).c_str(), 8, 8, "", false, false));
        ASSERT_TRUE(picture) << name;
        EXPECT_THAT(takeLog(),
                    testing::StartsWith("thumb3bytes pixel " + std::to_string(bytesPerPixel) + "\n"))
            << name;
    }
}
