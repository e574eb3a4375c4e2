#include "gfx/scale.h"

#include "support/guarded_pixels.h"
#include "support/plain_error_term.h"

#include <gmock/gmock.h>

#include <random>

using testing::Each;
using testing::ElementsAre;

static void scaleFrame(uint32_t* dst, unsigned dw, unsigned dh, unsigned dstPitch, uint32_t* src, unsigned sw,
                       unsigned sh, unsigned srcPitch) {
    sdl_rs90_scale_frame32_bresenham_horz(dst, dw, dh, dstPitch, src, sw, sh, srcPitch);
}

static void scaleFrame(uint16_t* dst, unsigned dw, unsigned dh, unsigned dstPitch, uint16_t* src, unsigned sw,
                       unsigned sh, unsigned srcPitch) {
    sdl_rs90_scale_frame16_bresenham_horz(dst, dw, dh, dstPitch, src, sw, sh, srcPitch);
}

template <typename Pixel>
class ErrorTermScaleTest : public testing::Test {
protected:
    static constexpr auto untouched = static_cast<Pixel>(0x1234);

    static std::vector<Pixel> randomPixels(std::mt19937& random, size_t count) {
        std::vector<Pixel> pixels(count);
        for (Pixel& pixel : pixels)
            pixel = static_cast<Pixel>(random());
        return pixels;
    }

    /// Compares one frame with the plain arithmetic, the gaps between the output rows included.
    static void expectExact(std::mt19937& random, const Sizes& s) {
        const std::vector<Pixel> source = randomPixels(random, covered<Pixel>(s.sw, s.sh, s.srcPitch));
        std::vector<Pixel> wanted(covered<Pixel>(s.dw, s.dh, s.dstPitch), untouched);
        GuardedPixels<Pixel> from(source);
        GuardedPixels<Pixel> to(wanted);
        scaleFrame(to.data(), s.dw, s.dh, s.dstPitch, from.data(), s.sw, s.sh, s.srcPitch);
        scalePlainly(source, wanted, s);
        ASSERT_EQ(to.copy(), wanted) << s;
    }

    /// A row of pixels scaled to `dw`.
    static std::vector<Pixel> scaledRow(const std::vector<Pixel>& row, unsigned dw) {
        GuardedPixels<Pixel> from(row);
        GuardedPixels<Pixel> to(dw, untouched);
        const auto sw = static_cast<unsigned>(row.size());
        scaleFrame(to.data(), dw, 1, dw * 4, from.data(), sw, 1, sw * 4);
        return to.copy();
    }
};

using PixelTypes = testing::Types<uint32_t, uint16_t>;
TYPED_TEST_SUITE(ErrorTermScaleTest, PixelTypes, );

TYPED_TEST(ErrorTermScaleTest, EveryBitIsThatOfThePlainArithmetic) {
    std::mt19937 random(1);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    constexpr unsigned size = sizeof(TypeParam);
    for (int i = 0; i < 1000; ++i) {
        Sizes s{1 + below(48), 1 + below(24), 1 + below(100), 1 + below(40), 0, 0};
        s.srcPitch = s.sw * size + below(3 * size); // often no whole number of pixels
        s.dstPitch = s.dw * size + below(3 * size);
        TestFixture::expectExact(random, s);
    }
}

TYPED_TEST(ErrorTermScaleTest, EveryPairOfSmallWidthsIsExact) {
    std::mt19937 random(2);
    constexpr unsigned size = sizeof(TypeParam);
    for (unsigned sw = 1; sw <= 24; ++sw)
        for (unsigned dw = 1; dw <= 80; ++dw)
            TestFixture::expectExact(random, {sw, 2, dw, 3, sw * size, dw * size});
}

TYPED_TEST(ErrorTermScaleTest, EqualWidthsCopyRows) {
    std::mt19937 random(3);
    constexpr unsigned size = sizeof(TypeParam);
    for (const unsigned dh : {1u, 3u, 5u, 11u})
        TestFixture::expectExact(random, {7, 5, 7, dh, 8 * size, 9 * size});
    const std::vector<TypeParam> row = TestFixture::randomPixels(random, 9);
    EXPECT_EQ(TestFixture::scaledRow(row, 9), row);
}

TYPED_TEST(ErrorTermScaleTest, SourceRowsThatOverlapAreExact) {
    std::mt19937 random(4);
    constexpr unsigned size = sizeof(TypeParam);
    for (unsigned pitch = 1; pitch < 5; ++pitch)
        TestFixture::expectExact(random, {5, 4, 17, 6, pitch * size, 17 * size});
}

TYPED_TEST(ErrorTermScaleTest, RowsOfMoreThanOneStripAreExact) {
    std::mt19937 random(8);
    constexpr unsigned size = sizeof(TypeParam);
    for (const unsigned dw : {1023u, 1024u, 1025u, 2051u, 3000u})
        for (const unsigned sw : {1u, 2u, 700u, 1024u, 2000u, 2050u, 5000u})
            TestFixture::expectExact(random, {sw, 3, dw, 4, sw * size, (dw + 2) * size});
}

TYPED_TEST(ErrorTermScaleTest, OutputRowsThatOverlapAreExact) {
    std::mt19937 random(9);
    constexpr unsigned size = sizeof(TypeParam);
    for (const unsigned dw : {17u, 1024u, 2051u})
        for (const unsigned dstPitch : {1u, 5u, dw - 1})
            for (const unsigned sw : {5u, dw, 2 * dw, 3 * dw + 1})
                TestFixture::expectExact(random, {sw, 3, dw, 7, sw * size, dstPitch * size});
}

TYPED_TEST(ErrorTermScaleTest, WholeRatiosAreExact) {
    std::mt19937 random(10);
    constexpr unsigned size = sizeof(TypeParam);
    for (unsigned dw = 1; dw < 40; ++dw)
        for (unsigned ratio = 2; ratio < 7; ++ratio)
            TestFixture::expectExact(random, {dw * ratio, 3, dw, 2, dw * ratio * size, dw * size});
}

TYPED_TEST(ErrorTermScaleTest, RowsInBetweenAreDuplicates) {
    std::mt19937 random(5);
    std::vector<TypeParam> source = TestFixture::randomPixels(random, 5 * 2);
    GuardedPixels<TypeParam> from(source);
    GuardedPixels<TypeParam> to(9 * 6, 0);
    constexpr unsigned size = sizeof(TypeParam);
    scaleFrame(to.data(), 9, 6, 9 * size, from.data(), 5, 2, 5 * size);
    const std::vector<TypeParam> result = to.copy();
    const auto row = [&result](int i) {
        return std::vector<TypeParam>(result.begin() + 9 * i, result.begin() + 9 * (i + 1));
    };
    EXPECT_EQ(row(1), row(0));
    EXPECT_EQ(row(2), row(0));
    EXPECT_NE(row(3), row(0));
    EXPECT_EQ(row(4), row(3));
    EXPECT_EQ(row(5), row(3));
}

TYPED_TEST(ErrorTermScaleTest, LastPixelOfAnEnlargedRowIsTheSourcesLast) {
    const std::vector<TypeParam> row{1, 2, 3};
    for (unsigned dw = 4; dw < 40; ++dw)
        EXPECT_EQ(TestFixture::scaledRow(row, dw).back(), 3) << dw;
}

TYPED_TEST(ErrorTermScaleTest, PitchesAreRoundedDownToWholePixels) {
    std::mt19937 random(6);
    const std::vector<TypeParam> source = TestFixture::randomPixels(random, 4 * 3);
    constexpr unsigned size = sizeof(TypeParam);
    std::vector<std::vector<TypeParam>> results;
    for (unsigned extra = 0; extra < size; ++extra) {
        GuardedPixels<TypeParam> from(source);
        GuardedPixels<TypeParam> to(6 * 3, 0);
        scaleFrame(to.data(), 6, 3, 6 * size + extra, from.data(), 4, 3, 4 * size + extra);
        results.push_back(to.copy());
    }
    EXPECT_THAT(results, Each(results.front()));
}

TYPED_TEST(ErrorTermScaleTest, BeyondARowStandsTheNextPixelInMemory) {
    // From 2 pixels to 7 the sixth is the average of the second and what follows it.
    constexpr unsigned size = sizeof(TypeParam);
    const TypeParam gap = 0x0840;
    const TypeParam last = 0x0420;
    GuardedPixels<TypeParam> from({0x0210, 0x0108, gap, 0x1080, last});
    GuardedPixels<TypeParam> to(7 * 2, 0);
    scaleFrame(to.data(), 7, 2, 7 * size, from.data(), 2, 2, 3 * size);
    EXPECT_EQ(to.data()[5], plainAverage(TypeParam{0x0108}, gap));
    EXPECT_EQ(to.data()[7 + 5], plainAverage(last, last)) << "the source's very last pixel";
    EXPECT_NE(to.data()[5], plainAverage(TypeParam{0x0108}, TypeParam{0x0108}));
}

TYPED_TEST(ErrorTermScaleTest, SourceWithoutPitchIsReadNoFurther) {
    const auto scaleRepeated = [] {
        GuardedPixels<TypeParam> from(std::vector<TypeParam>{0x0210, 0x0108});
        GuardedPixels<TypeParam> to(7 * 3, 0);
        scaleFrame(to.data(), 7, 3, 7 * sizeof(TypeParam), from.data(), 2, 3, 0);
        _exit(to.data()[5] == plainAverage(TypeParam{0x0108}, TypeParam{0x0108}) ? 0 : 1);
    };
    EXPECT_EXIT(scaleRepeated(), testing::ExitedWithCode(0), "");
}

TYPED_TEST(ErrorTermScaleTest, SizesOfZeroWriteNothing) {
    GuardedPixels<TypeParam> source(4, 1);
    GuardedPixels<TypeParam> target(4, TestFixture::untouched);
    constexpr unsigned pitch = 2 * sizeof(TypeParam);
    scaleFrame(target.data(), 0, 2, pitch, source.data(), 2, 2, pitch);
    scaleFrame(target.data(), 2, 0, pitch, source.data(), 2, 2, pitch);
    scaleFrame(target.data(), 2, 2, pitch, source.data(), 0, 2, pitch);
    scaleFrame(target.data(), 2, 2, pitch, source.data(), 2, 0, pitch);
    scaleFrame(target.data(), 0, 0, 0, source.data(), 0, 0, 0);
    EXPECT_THAT(target.copy(), Each(TestFixture::untouched));
}

TYPED_TEST(ErrorTermScaleTest, NullBuffersWriteNothing) {
    GuardedPixels<TypeParam> pixels(4, TestFixture::untouched);
    constexpr unsigned pitch = 2 * sizeof(TypeParam);
    scaleFrame(static_cast<TypeParam*>(nullptr), 2, 2, pitch, pixels.data(), 2, 2, pitch);
    scaleFrame(pixels.data(), 2, 2, pitch, static_cast<TypeParam*>(nullptr), 2, 2, pitch);
    EXPECT_THAT(pixels.copy(), Each(TestFixture::untouched));
}

class ErrorTerm32Test : public ErrorTermScaleTest<uint32_t> {};
class ErrorTerm16Test : public ErrorTermScaleTest<uint16_t> {};

TEST_F(ErrorTerm32Test, ShrinkingAveragesWhereTheErrorReachesTheThreshold) {
    // From 4 to 3 the threshold is 2 and the error 0, 1, 2: only the third pixel is an average.
    EXPECT_THAT(scaledRow({0x10, 0x20, 0x30, 0x50}, 3), ElementsAre(0x10u, 0x20u, 0x40u));
}

TEST_F(ErrorTerm32Test, EnlargingAveragesWhereTheErrorReachesTheThreshold) {
    // From 2 to 4 the threshold is max(2, (4 - 6) >> 1 = -1) and the error 0, 2, 0.
    EXPECT_THAT(scaledRow({0x10, 0x30}, 4), ElementsAre(0x10u, 0x20u, 0x30u, 0x30u));
}

TEST_F(ErrorTerm32Test, TwoOpaqueWhitePixelsAverageTo7FFFFFFF) {
    EXPECT_THAT(scaledRow({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, 3),
                ElementsAre(0xFFFFFFFF, 0xFFFFFFFF, 0x7FFFFFFF));
}

TEST_F(ErrorTerm32Test, AverageRoundsTheColoursUpAndLosesTheTopCarry) {
    const auto averaged = [](uint32_t a, uint32_t b) { return scaledRow({0, 0, a, b}, 3)[2]; };
    EXPECT_EQ(averaged(0xFF000001, 0xFF000000), 0x7F000001u);
    EXPECT_EQ(averaged(0x00010101, 0x00000000), 0x00010101u);
    EXPECT_EQ(averaged(0x01000000, 0x00000000), 0x00800000u) << "the top byte has no place to round";
    EXPECT_EQ(averaged(0x80000000, 0x80000000), 0x00000000u);
    EXPECT_EQ(averaged(0x00FF00FF, 0x0000FF00), 0x00808080u);
}

TEST_F(ErrorTerm16Test, AverageIsTakenFieldByField) {
    const auto averaged = [](uint16_t a, uint16_t b) { return scaledRow({0, 0, a, b}, 3)[2]; };
    EXPECT_EQ(averaged(0xFFFF, 0xFFFF), 0xFFFF) << "no carry is lost here";
    EXPECT_EQ(averaged(0xFFFF, 0x0000), 0x8410);
    EXPECT_EQ(averaged(0xF800, 0x0000), 0x8000) << "red 31 and 0: 16";
    EXPECT_EQ(averaged(0x07E0, 0x0000), 0x0400) << "green 63 and 0: 32";
    EXPECT_EQ(averaged(0x001F, 0x0000), 0x0010) << "blue 31 and 0: 16";
    EXPECT_EQ(averaged(0x0001, 0x0000), 0x0001);
}
