#include "gfx/scale.h"

#include "support/guarded_pixels.h"

#include <gmock/gmock.h>

#include <random>

using testing::Each;
using testing::ElementsAre;
using Pixels = std::vector<unsigned int>;

namespace {

constexpr unsigned int untouched = 0x12345678;

/// w x h pixels with numbers that tell row (from 0x100) and column.
Pixels numbered(unsigned w, unsigned h) {
    Pixels pixels;
    for (unsigned y = 0; y < h; ++y)
        for (unsigned x = 0; x < w; ++x)
            pixels.push_back((y + 1) << 16 | x);
    return pixels;
}

/// The arithmetic, written down plainly: the index of the source pixel for every output pixel.
Pixels plainlyScaled(const Pixels& source, unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW,
                     unsigned dstH, unsigned stride, unsigned gap) {
    Pixels result(dstH * (dstW + gap) - gap, untouched);
    const uint32_t xStep = static_cast<uint32_t>(w << 16) / dstW;
    const uint32_t yStep = static_cast<uint32_t>(h << 16) / dstH;
    for (uint32_t i = 0; i < dstH; ++i)
        for (uint32_t j = 0; j < dstW; ++j) {
            const uint32_t fy = (y << 16) + i * yStep;
            const uint32_t fx = (x << 16) + j * xStep;
            result[i * (dstW + gap) + j] = source[(fx >> 16) + (fy >> 16) * stride];
        }
    return result;
}

} // namespace

TEST(NearestScaleTest, SameSizeCopiesTheSubRectanglePixelForPixel) {
    GuardedPixels<unsigned int> source(numbered(10, 8));
    GuardedPixels<unsigned int> target(4 * 3, untouched);
    bitmap_scale(6, 5, 4, 3, 4, 3, 10, 0, source.data(), target.data());
    EXPECT_THAT(target.copy(), ElementsAre(0x60006, 0x60007, 0x60008, 0x60009, 0x70006, 0x70007, 0x70008,
                                           0x70009, 0x80006, 0x80007, 0x80008, 0x80009));
}

TEST(NearestScaleTest, DoublingRepeatsEveryPixel) {
    GuardedPixels<unsigned int> source({1, 2, 3, 4});
    GuardedPixels<unsigned int> target(4 * 4, untouched);
    bitmap_scale(0, 0, 2, 2, 4, 4, 2, 0, source.data(), target.data());
    EXPECT_THAT(target.copy(), ElementsAre(1, 1, 2, 2, 1, 1, 2, 2, 3, 3, 4, 4, 3, 3, 4, 4));
}

TEST(NearestScaleTest, HalvingTakesEverySecondPixel) {
    GuardedPixels<unsigned int> source(numbered(4, 2));
    GuardedPixels<unsigned int> target(2, untouched);
    bitmap_scale(0, 0, 4, 2, 2, 1, 4, 0, source.data(), target.data());
    EXPECT_THAT(target.copy(), ElementsAre(0x10000, 0x10002));
}

TEST(NearestScaleTest, GapIsLeftOutAfterEveryRow) {
    GuardedPixels<unsigned int> source({1, 2, 3, 4});
    GuardedPixels<unsigned int> target(2 + 3 + 2, untouched); // nothing behind the last row is touched
    bitmap_scale(0, 0, 2, 2, 2, 2, 2, 3, source.data(), target.data());
    EXPECT_THAT(target.copy(), ElementsAre(1, 2, untouched, untouched, untouched, 3, 4));
}

TEST(NearestScaleTest, EveryPixelIsThatOfThePlainArithmetic) {
    std::mt19937 random(1);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    for (int i = 0; i < 600; ++i) {
        const unsigned x = below(9);
        const unsigned y = below(9);
        const unsigned w = 1 + below(40);
        const unsigned h = 1 + below(40);
        const unsigned stride = x + w + below(5);
        const unsigned dstW = 1 + below(60);
        const unsigned dstH = 1 + below(60);
        const unsigned gap = below(4);
        Pixels pixels = numbered(stride, y + h);
        pixels.resize(stride * (y + h - 1) + x + w); // the last row ends with the rectangle
        GuardedPixels<unsigned int> source(pixels);
        GuardedPixels<unsigned int> target(dstH * (dstW + gap) - gap, untouched);
        bitmap_scale(x, y, w, h, dstW, dstH, stride, gap, source.data(), target.data());
        ASSERT_EQ(target.copy(), plainlyScaled(pixels, x, y, w, h, dstW, dstH, stride, gap))
            << x << "," << y << " " << w << "x" << h << " of " << stride << " to " << dstW << "x" << dstH;
    }
}

TEST(NearestScaleTest, SimpleRatiosAreExact) {
    for (unsigned w = 1; w < 20; ++w)
        for (const auto& [by, part] : {std::pair{1u, 1u}, {2u, 1u}, {3u, 1u}, {4u, 1u}, {1u, 2u}, {1u, 3u}}) {
            const unsigned srcW = w * part;
            const unsigned dstW = w * by;
            const unsigned stride = 3 + srcW;
            Pixels pixels = numbered(stride, 5);
            pixels.resize(stride * 4 + 3 + srcW); // the last row ends with the rectangle
            GuardedPixels<unsigned int> source(pixels);
            GuardedPixels<unsigned int> target(7 * dstW, untouched);
            bitmap_scale(3, 1, srcW, 4, dstW, 7, stride, 0, source.data(), target.data());
            ASSERT_EQ(target.copy(), plainlyScaled(pixels, 3, 1, srcW, 4, dstW, 7, stride, 0))
                << srcW << " to " << dstW;
        }
}

TEST(NearestScaleTest, ExactForAllStepsUpToTheLastColumnBeforeTheWrap) {
    const Pixels pixels = numbered(65536, 1);
    GuardedPixels<unsigned int> source(pixels);
    for (const unsigned dstW : {1u, 3u, 100u, 32767u, 32768u, 40000u, 65535u, 70000u}) {
        GuardedPixels<unsigned int> target(dstW, untouched);
        bitmap_scale(1, 0, 65535, 1, dstW, 1, 65536, 0, source.data(), target.data());
        ASSERT_EQ(target.copy(), plainlyScaled(pixels, 1, 0, 65535, 1, dstW, 1, 65536, 0)) << dstW;
    }
}

TEST(NearestScaleTest, StepThatIsCutOffToHalfAPixelIsExactForAnOddWidth) {
    const Pixels pixels = numbered(16385, 1);
    GuardedPixels<unsigned int> source(pixels);
    GuardedPixels<unsigned int> target(32769, untouched);
    bitmap_scale(0, 0, 16385, 1, 32769, 1, 16385, 0, source.data(), target.data());
    ASSERT_EQ(target.copy(), plainlyScaled(pixels, 0, 0, 16385, 1, 32769, 1, 16385, 0));
}

TEST(NearestScaleTest, OutputRowsThatOverlapAreWrittenOneAfterTheOther) {
    GuardedPixels<unsigned int> source({1, 2, 3, 4});
    GuardedPixels<unsigned int> target(3 + 4, untouched);
    bitmap_scale(0, 0, 2, 2, 4, 4, 2, UINT32_MAX - 2, source.data(), target.data()); // a gap of -3
    EXPECT_THAT(target.copy(), ElementsAre(1, 1, 3, 3, 3, 4, 4));
}

TEST(NearestScaleTest, StepsAreCutOffToWhole65536ths) {
    // 2 x 65536 / 6 = 21845.33: three steps of 21845 are 65535, still the first pixel.
    GuardedPixels<unsigned int> source(numbered(2, 1));
    GuardedPixels<unsigned int> target(6, untouched);
    bitmap_scale(0, 0, 2, 1, 6, 1, 2, 0, source.data(), target.data());
    EXPECT_THAT(target.copy(), ElementsAre(0x10000, 0x10000, 0x10000, 0x10000, 0x10001, 0x10001));
}

TEST(NearestScaleTest, SizesFrom65536WrapRound) {
    GuardedPixels<unsigned int> source(numbered(65537, 2));
    GuardedPixels<unsigned int> target(4, untouched);
    bitmap_scale(0, 0, 65536, 1, 4, 1, 65537, 0, source.data(), target.data());
    EXPECT_THAT(target.copy(), Each(0x10000u)) << "65536 << 16 is 0: no step at all";
    bitmap_scale(0, 0, 65537, 1, 4, 1, 65537, 0, source.data(), target.data());
    EXPECT_THAT(target.copy(), Each(0x10000u)) << "a quarter of one pixel";
    bitmap_scale(65535, 0, 2, 1, 2, 1, 65537, 0, source.data(), target.data());
    EXPECT_EQ(target.data()[0], 0x10000u + 65535);
    EXPECT_EQ(target.data()[1], 0x10000u) << "the column after 65535 is 0";
    bitmap_scale(65536, 65537, 1, 1, 1, 1, 65537, 0, source.data(), target.data());
    EXPECT_EQ(target.data()[0], 0x20000u) << "column 0 of row 1";
}

TEST(NearestScaleTest, TargetOfZeroWritesNothingAndReturns) {
    GuardedPixels<unsigned int> source({1, 2, 3, 4});
    GuardedPixels<unsigned int> target(4, untouched);
    bitmap_scale(0, 0, 2, 2, 0, 2, 2, 0, source.data(), target.data());
    bitmap_scale(0, 0, 2, 2, 2, 0, 2, 0, source.data(), target.data());
    bitmap_scale(0, 0, 2, 2, 0, 0, 2, 5, source.data(), target.data());
    EXPECT_THAT(target.copy(), Each(untouched));
}

TEST(NearestScaleTest, NullBuffersWriteNothing) {
    GuardedPixels<unsigned int> pixels(4, untouched);
    bitmap_scale(0, 0, 2, 2, 2, 2, 2, 0, nullptr, pixels.data());
    bitmap_scale(0, 0, 2, 2, 2, 2, 2, 0, pixels.data(), nullptr);
    EXPECT_THAT(pixels.copy(), Each(untouched));
}
