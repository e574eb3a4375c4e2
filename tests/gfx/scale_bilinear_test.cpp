#include "gfx/scale.h"

#include "support/guarded_pixels.h"
#include "support/kestro_test.h"

#include <cmath>
#include <random>

using testing::Each;
using testing::ElementsAre;
using Pixels = std::vector<unsigned int>;

namespace {

/// A source pixel by its plain number. What lies beyond the end counts nothing, so it may be anything.
unsigned int pixelAt(const Pixels& source, size_t index) {
    return index < source.size() ? source[index] : 0xDEADBEEF;
}

/// The arithmetic, written down plainly: one byte at place `shift` of four neighbours.
unsigned int blended(unsigned int tl, unsigned int tr, unsigned int bl, unsigned int br, int shift, float dx,
                     float dy) {
    const auto byte = [shift](unsigned int pixel) { return static_cast<float>((pixel >> shift) & 0xFFU); };
    const float restX = 1.0F - dx;
    const float restY = 1.0F - dy;
    const float rightWeighted = byte(tr) * dx;
    const float right = rightWeighted * restY;
    const float left = byte(tl) * restX;
    const float above = fmaf(left, restY, right);
    const float below = byte(bl) * dy;
    const float withBelow = fmaf(below, restX, above);
    const float both = dx * dy;
    return static_cast<unsigned int>(fmaf(byte(br), both, withBelow));
}

Pixels plainlyScaled(const Pixels& source, int srcW, int srcH, int dstW, int dstH, bool swapRB) {
    Pixels result;
    const float xRatio = static_cast<float>(srcW - 1) / static_cast<float>(dstW);
    const float yRatio = static_cast<float>(srcH - 1) / static_cast<float>(dstH);
    for (int i = 0; i < dstH; ++i)
        for (int j = 0; j < dstW; ++j) {
            const float fy = static_cast<float>(i) * yRatio;
            const float fx = static_cast<float>(j) * xRatio;
            const int y = static_cast<int>(fy);
            const int x = static_cast<int>(fx);
            const float dy = fy - static_cast<float>(y);
            const float dx = fx - static_cast<float>(x);
            const auto index = static_cast<size_t>(x + srcW * y);
            unsigned int bytes[4]; // from the lowest
            for (int c = 0; c < 4; ++c)
                bytes[c] = blended(pixelAt(source, index), pixelAt(source, index + 1),
                                   pixelAt(source, index + static_cast<size_t>(srcW)),
                                   pixelAt(source, index + static_cast<size_t>(srcW) + 1), 8 * c, dx, dy);
            if (swapRB)
                std::swap(bytes[0], bytes[2]);
            result.push_back(bytes[3] << 24 | bytes[2] << 16 | bytes[1] << 8 | bytes[0]);
        }
    return result;
}

Pixels randomPixels(std::mt19937& random, int count) {
    Pixels pixels;
    for (int i = 0; i < count; ++i)
        pixels.push_back(static_cast<unsigned int>(random()));
    return pixels;
}

Pixels scaled(const Pixels& source, int srcW, int srcH, int dstW, int dstH, int swapRB = 0) {
    GuardedPixels<unsigned int> from(source);
    GuardedPixels<unsigned int> to(static_cast<size_t>(dstW) * static_cast<size_t>(dstH), 0x12345678);
    EXPECT_EQ(resizeBilinear_cpu(from.data(), to.data(), srcW, srcH, dstW, dstH, swapRB), to.data());
    return to.copy();
}

} // namespace

class BilinearTest : public KestroTest {
protected:
    /// Compares one size with the plain arithmetic, both orders of red and blue.
    static void expectExact(std::mt19937& random, int srcW, int srcH, int dstW, int dstH) {
        const Pixels source = randomPixels(random, srcW * srcH);
        for (const bool swapRB : {false, true})
            ASSERT_EQ(scaled(source, srcW, srcH, dstW, dstH, swapRB),
                      plainlyScaled(source, srcW, srcH, dstW, dstH, swapRB))
                << srcW << "x" << srcH << " to " << dstW << "x" << dstH << (swapRB ? " swapped" : "");
    }
};

TEST_F(BilinearTest, EveryBitIsThatOfThePlainArithmetic) {
    std::mt19937 random(1);
    const auto upTo = [&random](unsigned limit) { return static_cast<int>(1 + random() % limit); };
    for (int i = 0; i < 600; ++i)
        expectExact(random, upTo(40), upTo(40), upTo(60), upTo(60));
}

TEST_F(BilinearTest, SourceOfOnePixelAcrossIsExactAndReadNoFurther) {
    std::mt19937 random(2);
    const auto upTo = [&random](unsigned limit) { return static_cast<int>(1 + random() % limit); };
    for (int i = 0; i < 150; ++i) {
        expectExact(random, 1, upTo(40), upTo(60), upTo(60));
        expectExact(random, upTo(40), 1, upTo(60), upTo(60));
    }
    expectExact(random, 1, 1, 1, 1);
    expectExact(random, 1, 1, 60, 60);
}

TEST_F(BilinearTest, LongRowsAndColumnsAreExact) {
    std::mt19937 random(3);
    for (const auto& [from, to] :
         {std::pair{16384, 16383}, {16384, 1}, {3, 20000}, {5000, 4999}, {2, 65536}}) {
        expectExact(random, from, 1, to, 1);
        expectExact(random, 1, from, 1, to);
        expectExact(random, from, 2, to, 1);
        expectExact(random, 2, from, 1, to);
    }
}

TEST_F(BilinearTest, TwoByTwoToFourByFourStepsByQuarters) {
    const Pixels source{0x00000000, 0x00000064, 0x000000C8, 0x00000028}; // 0 and 100 above, 200 and 40
    const Pixels result = scaled(source, 2, 2, 4, 4);
    // 100 x 1/4 x 3/4 + 200 x 1/4 x 3/4 + 40 x 1/16 = 58.75
    EXPECT_EQ(result[1 * 4 + 1], 58u);
    EXPECT_EQ(result[0], 0u);
    EXPECT_EQ(result[3], 75u) << "the last column is three quarters of the way";
    EXPECT_EQ(result[12], 150u);
}

TEST_F(BilinearTest, SameSizeIsNoPlainCopy) {
    // From n pixels to n the step is (n - 1) / n.
    EXPECT_THAT(scaled({0, 100, 200, 80}, 4, 1, 4, 1), ElementsAre(0u, 75u, 150u, 170u));
}

TEST_F(BilinearTest, PureWhiteComesOutAs254InSomeBytes) {
    const Pixels result = scaled(Pixels(10 * 10, 0xFFFFFFFF), 10, 10, 37, 23);
    int below = 0;
    for (const unsigned int pixel : result) {
        EXPECT_TRUE(pixel == 0xFFFFFFFF || pixel == 0xFEFEFEFE) << std::hex << pixel;
        below += pixel == 0xFEFEFEFE;
    }
    EXPECT_GT(below, 0);
    EXPECT_LT(below, 37 * 23);
}

TEST_F(BilinearTest, ByteStaysInItsPlace) {
    EXPECT_THAT(scaled({0x11223344}, 1, 1, 2, 1), ElementsAre(0x11223344u, 0x11223344u));
}

TEST_F(BilinearTest, SwapExchangesRedAndBlueOnly) {
    EXPECT_THAT(scaled({0x11223344}, 1, 1, 2, 1, 1), ElementsAre(0x11443322u, 0x11443322u));
    EXPECT_THAT(scaled({0x11223344}, 1, 1, 1, 1, -5), ElementsAre(0x11443322u));
}

TEST_F(BilinearTest, SizesBelowOneWriteNothing) {
    GuardedPixels<unsigned int> source(4, 0xFFFFFFFF);
    GuardedPixels<unsigned int> target(4, 0x12345678);
    const int bad[][4] = {{2, 2, 0, 2}, {2, 2, 2, 0},  {2, 2, -1, 2}, {2, 2, 2, -1}, {0, 2, 2, 2},
                          {2, 0, 2, 2}, {-1, 2, 2, 2}, {2, -1, 2, 2}, {0, 0, 0, 0},  {-3, -3, 2, 2}};
    for (const auto& size : bad) {
        EXPECT_EQ(resizeBilinear_cpu(source.data(), target.data(), size[0], size[1], size[2], size[3], 0),
                  target.data());
        EXPECT_EQ(
            resizeBilinear_cpu_argb(source.data(), target.data(), size[0], size[1], size[2], size[3], 0),
            target.data());
    }
    EXPECT_THAT(target.copy(), Each(0x12345678u));
    takeLog();
}

TEST_F(BilinearTest, NullBuffersWriteNothing) {
    GuardedPixels<unsigned int> pixels(4, 0x12345678);
    EXPECT_EQ(resizeBilinear_cpu(nullptr, pixels.data(), 2, 2, 2, 2, 0), pixels.data());
    EXPECT_EQ(resizeBilinear_cpu(pixels.data(), nullptr, 2, 2, 2, 2, 0), nullptr);
    EXPECT_EQ(resizeBilinear_cpu_argb(nullptr, pixels.data(), 2, 2, 2, 2, 0), pixels.data());
    bitmap_scale_bilinear(0, 0, 2, 2, 2, 2, 2, 0, nullptr, pixels.data());
    bitmap_scale_bilinear(0, 0, 2, 2, 2, 2, 2, 0, pixels.data(), nullptr);
    EXPECT_THAT(pixels.copy(), Each(0x12345678u));
    takeLog();
}

TEST_F(BilinearTest, ArgbVariantLogsItsSizesAndIsIdentical) {
    std::mt19937 random(4);
    for (const int swapRB : {0, 1}) {
        Pixels source = randomPixels(random, 13 * 9);
        GuardedPixels<unsigned int> target(7 * 21, 0);
        EXPECT_EQ(resizeBilinear_cpu_argb(source.data(), target.data(), 13, 9, 7, 21, swapRB), target.data());
        EXPECT_EQ(takeLog(), "resizeBilinear_cpu_argb:13x9->7x21\n");
        EXPECT_EQ(target.copy(), scaled(source, 13, 9, 7, 21, swapRB));
        EXPECT_EQ(takeLog(), "") << "the other variant says nothing";
    }
}

TEST_F(BilinearTest, ArgbVariantLogsEvenWhenThereIsNothingToDo) {
    unsigned int pixel = 0;
    resizeBilinear_cpu_argb(&pixel, &pixel, 1, 1, 0, -2, 0);
    EXPECT_EQ(takeLog(), "resizeBilinear_cpu_argb:1x1->0x-2\n");
}

TEST_F(BilinearTest, BitmapVariantScalesWholeRowsOfItsSource) {
    std::mt19937 random(5);
    const Pixels source = randomPixels(random, 8 * 6);
    GuardedPixels<unsigned int> from(source);
    GuardedPixels<unsigned int> to(5 * 4, 0);
    bitmap_scale_bilinear(0, 2, 8, 4, 5, 4, 8, 0, from.data(), to.data());
    EXPECT_EQ(takeLog(), "resizeBilinear_cpu_argb:8x4->5x4\n");
    EXPECT_EQ(to.copy(), plainlyScaled(Pixels(source.begin() + 2 * 8, source.end()), 8, 4, 5, 4, false));
}

TEST_F(BilinearTest, BitmapVariantStepsByItsWidthWhateverTheStride) {
    std::mt19937 random(6);
    const Pixels source = randomPixels(random, 8 * 6);
    GuardedPixels<unsigned int> from(source);
    GuardedPixels<unsigned int> to(5 * 4, 0);
    bitmap_scale_bilinear(3, 1, 4, 3, 5, 4, 8, 0, from.data(), to.data());
    const auto start = source.begin() + 3 + 8 * 1;
    EXPECT_EQ(to.copy(), plainlyScaled(Pixels(start, start + 4 * 3), 4, 3, 5, 4, false));
    takeLog();
}

TEST_F(BilinearTest, BitmapVariantIgnoresItsEighthArgument) {
    std::mt19937 random(7);
    Pixels source = randomPixels(random, 8 * 6);
    for (const unsigned ignored : {0u, 1u, 100u, UINT32_MAX}) {
        GuardedPixels<unsigned int> to(5 * 4, 0);
        bitmap_scale_bilinear(0, 0, 8, 6, 5, 4, 8, ignored, source.data(), to.data());
        EXPECT_EQ(to.copy(), plainlyScaled(source, 8, 6, 5, 4, false)) << ignored;
    }
    takeLog();
}
