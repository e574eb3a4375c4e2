#include "gfx/scale.h"

#include "support/guarded_pixels.h"
#include "support/plain_error_term.h"

#include <gmock/gmock.h>

#include <random>

using testing::Each;
using testing::ElementsAre;

class BresenhamBitmapTest : public testing::Test {
protected:
    using Pixels = std::vector<unsigned int>;

    static Pixels numbered(unsigned count) {
        Pixels pixels;
        for (unsigned i = 0; i < count; ++i)
            pixels.push_back(0x01010101 * i);
        return pixels;
    }
};

TEST_F(BresenhamBitmapTest, ScalesTheSubRectangle) {
    std::mt19937 random(7);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    for (int i = 0; i < 100; ++i) {
        const unsigned x = below(5);
        const unsigned y = below(5);
        const unsigned w = 1 + below(12);
        const unsigned h = 1 + below(12);
        const unsigned stride = x + w + below(4);
        const unsigned dstW = 1 + below(30);
        const unsigned dstH = 1 + below(30);
        const Pixels source = numbered(stride * (y + h - 1) + x + w);
        GuardedPixels<unsigned int> from(source);
        GuardedPixels<unsigned int> to(dstW * dstH, 0);
        bitmap_scale_bresenham(x, y, w, h, dstW, dstH, stride, 0, from.data(), to.data());
        Pixels wanted(dstW * dstH);
        scalePlainly(Pixels(source.begin() + x + stride * y, source.end()), wanted,
                     {w, h, dstW, dstH, stride * 4, dstW * 4});
        ASSERT_EQ(to.copy(), wanted) << x << "," << y << " " << w << "x" << h;
    }
}

TEST_F(BresenhamBitmapTest, NullAndEmptyWriteNothing) {
    GuardedPixels<unsigned int> pixels(4, 7);
    bitmap_scale_bresenham(0, 0, 2, 2, 2, 2, 2, 0, nullptr, pixels.data());
    bitmap_scale_bresenham(0, 0, 2, 2, 2, 2, 2, 0, pixels.data(), nullptr);
    bitmap_scale_bresenham(0, 0, 0, 2, 2, 2, 2, 0, pixels.data(), pixels.data());
    bitmap_scale_bresenham(0, 0, 2, 2, 0, 2, 2, 0, pixels.data(), pixels.data());
    EXPECT_THAT(pixels.copy(), Each(7u));
}

TEST_F(BresenhamBitmapTest, EighthArgumentIsAWholeRowHereAndAGapInTheNearestNeighbourScaler) {
    constexpr unsigned int untouched = 0xAA;
    GuardedPixels<unsigned int> source({1, 2, 3, 4});
    GuardedPixels<unsigned int> asRow(3 + 2, untouched);
    bitmap_scale_bresenham(0, 0, 2, 2, 2, 2, 2, 3, source.data(), asRow.data());
    EXPECT_THAT(asRow.copy(), ElementsAre(1, 2, untouched, 3, 4));
    GuardedPixels<unsigned int> asGap(2 + 3 + 2, untouched);
    bitmap_scale(0, 0, 2, 2, 2, 2, 2, 3, source.data(), asGap.data());
    EXPECT_THAT(asGap.copy(), ElementsAre(1, 2, untouched, untouched, untouched, 3, 4));
}
