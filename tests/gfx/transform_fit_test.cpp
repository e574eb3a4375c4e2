#include "gfx/transform.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

/// "WxH -> returned value".
static std::string fitted(int w, int h, int maxW, int maxH) {
    int outW = -7;
    int outH = -7;
    const int returned = getScaledSizeKeepRatio(w, h, maxW, maxH, outW, outH);
    return std::to_string(outW) + "x" + std::to_string(outH) + " -> " + std::to_string(returned);
}

TEST(ScaledSizeTest, SmallPictureGrowsUntilItTouchesTheBox) {
    EXPECT_EQ(fitted(100, 50, 200, 200), "200x100 -> 100");
    EXPECT_EQ(fitted(50, 100, 200, 200), "100x200 -> 200");
}

TEST(ScaledSizeTest, LargePictureShrinksIntoTheBox) {
    EXPECT_EQ(fitted(400, 300, 200, 200), "200x150 -> 150");
    EXPECT_EQ(fitted(300, 400, 200, 200), "150x200 -> 200");
    EXPECT_EQ(fitted(1920, 1080, 1280, 720), "1280x720 -> 720");
}

TEST(ScaledSizeTest, PictureOfTheBoxStays) {
    EXPECT_EQ(fitted(123, 45, 123, 45), "123x45 -> 45");
}

TEST(ScaledSizeTest, FractionsAreCutOff) {
    EXPECT_EQ(fitted(3, 2, 10, 10), "10x6 -> 6");
    EXPECT_EQ(fitted(2, 3, 10, 10), "6x10 -> 10");
    EXPECT_EQ(fitted(1000, 1, 10, 10), "10x0 -> 0");
}

TEST(ScaledSizeTest, ArithmeticIsSinglePrecision) {
    // 1 / (1 / 480) is just below 480 then.
    EXPECT_EQ(fitted(1, 1, 640, 480), "479x479 -> 479");
    for (int w = 1; w < 200; ++w)
        for (int maximum = 1; maximum < 200; ++maximum) {
            const float ratio = static_cast<float>(w) / static_cast<float>(maximum); // the other is smaller
            const int outW = static_cast<int>(static_cast<float>(w) / ratio);
            const int outH = static_cast<int>(1.0F / ratio);
            ASSERT_EQ(fitted(w, 1, maximum, 1000),
                      std::to_string(outW) + "x" + std::to_string(outH) + " -> " + std::to_string(outH))
                << w << " into " << maximum;
        }
}

TEST(ScaledSizeTest, BoxOrPictureWithoutAreaGivesZero) {
    EXPECT_EQ(fitted(100, 50, 0, 200), "0x0 -> 0");
    EXPECT_EQ(fitted(100, 50, 200, 0), "0x0 -> 0");
    EXPECT_EQ(fitted(100, 50, 0, 0), "0x0 -> 0");
    EXPECT_EQ(fitted(0, 0, 200, 200), "0x0 -> 0");
    EXPECT_EQ(fitted(0, 0, 0, 0), "0x0 -> 0");
}

TEST(ScaledSizeTest, NegativeSizesGiveZero) {
    EXPECT_EQ(fitted(-100, -50, 200, 200), "0x0 -> 0");
    EXPECT_EQ(fitted(100, 50, -200, -200), "0x0 -> 0");
}

TEST(ScaledSizeTest, PictureWithOneSideFillsTheBoxWithIt) {
    EXPECT_EQ(fitted(0, 50, 200, 100), "0x100 -> 100");
    EXPECT_EQ(fitted(50, 0, 200, 100), "200x0 -> 0");
}

TEST(ScaledSizeTest, HugeSizesStayInRange) {
    EXPECT_EQ(fitted(INT_MAX, INT_MAX, INT_MAX, INT_MAX),
              std::to_string(INT_MAX) + "x" + std::to_string(INT_MAX) + " -> " + std::to_string(INT_MAX));
    EXPECT_EQ(fitted(INT_MAX, 1, 10, 10), "10x0 -> 0");
    const std::string lowest = std::to_string(INT_MIN);
    EXPECT_EQ(fitted(INT_MIN, 1, 1, INT_MAX), lowest + "x" + std::to_string(INT_MAX) + " -> 2147483647");
    EXPECT_EQ(fitted(1, INT_MIN, INT_MAX, 1), std::to_string(INT_MAX) + "x" + lowest + " -> " + lowest);
}
