#include "gfx/scale_bilinear_kernel.h"
#include "gfx/scale_sse2_vector.h"

#include "support/guarded_pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <random>
#include <string>

struct NamedBilinearKernel {
    std::string name;
    void (*scale)(const BilinearJob&);
};

static void PrintTo(const NamedBilinearKernel& kernel, std::ostream* out) {
    *out << kernel.name;
}

namespace {

using Pixels = std::vector<uint32_t>;

struct Size {
    int srcW, srcH, dstW, dstH;
};

/// Pixels as random as can be, or with few values and large areas of one, where sums are whole numbers.
Pixels somePixels(std::mt19937& random, int count, bool flat) {
    Pixels pixels;
    uint32_t pixel = 0xFFFFFFFF;
    for (int i = 0; i < count; ++i) {
        if (!flat)
            pixel = static_cast<uint32_t>(random());
        else if (random() % 4 == 0)
            pixel = 0xFF000000 | static_cast<uint32_t>(random() % 2) * 0xFF80FF;
        pixels.push_back(pixel);
    }
    return pixels;
}

} // namespace

class BilinearKernelTest : public testing::TestWithParam<NamedBilinearKernel> {
protected:
    /// Compares one size with the plain arithmetic, both orders of red and blue. Nothing around the output
    /// may be touched, nor anything beyond the source be read.
    void expectExact(const Size& size, bool flat = false) {
        GuardedPixels<uint32_t> source(somePixels(mRandom, size.srcW * size.srcH, flat));
        const auto count = static_cast<size_t>(size.dstW) * static_cast<size_t>(size.dstH);
        for (const bool swapRB : {false, true}) {
            Pixels wanted(count);
            GuardedPixels<uint32_t> got(1 + count, 0x12345678);
            bilinearPlain({source.data(), wanted.data(), size.srcW, size.srcH, size.dstW, size.dstH, swapRB});
            GetParam().scale(
                {source.data(), got.data() + 1, size.srcW, size.srcH, size.dstW, size.dstH, swapRB});
            wanted.insert(wanted.begin(), 0x12345678);
            ASSERT_EQ(got.copy(), wanted) << size.srcW << "x" << size.srcH << " to " << size.dstW << "x"
                                          << size.dstH << (swapRB ? " swapped" : "");
        }
    }

    int upTo(unsigned limit) { return static_cast<int>(1 + mRandom() % limit); }

    std::mt19937 mRandom{1};
};

TEST_P(BilinearKernelTest, EveryBitIsThatOfThePlainArithmetic) {
    for (int i = 0; i < 600; ++i)
        expectExact({upTo(50), upTo(50), upTo(70), upTo(70)}, i % 3 == 0);
}

TEST_P(BilinearKernelTest, EnlargingIsExact) {
    for (int i = 0; i < 150; ++i) {
        const int w = upTo(20);
        const int h = upTo(20);
        expectExact({w, h, w * upTo(8), h * upTo(8)}, i % 3 == 0);
    }
}

TEST_P(BilinearKernelTest, ShrinkingIsExact) {
    for (int i = 0; i < 150; ++i) {
        const int w = upTo(20);
        const int h = upTo(20);
        expectExact({w * upTo(8), h * upTo(8), w, h}, i % 3 == 0);
    }
}

TEST_P(BilinearKernelTest, SimpleRatiosWhereSumsFallBetweenTwoFloatsAreExact) {
    for (const int n : {1, 2, 3, 4, 8, 16})
        for (const int of : {1, 2, 4, 8, 16, 64})
            expectExact({n + 1, n + 1, of, of});
}

TEST_P(BilinearKernelTest, SourceOfOnePixelAcrossIsExactAndReadNoFurther) {
    for (int i = 0; i < 60; ++i) {
        expectExact({1, upTo(40), upTo(60), upTo(60)});
        expectExact({upTo(40), 1, upTo(60), upTo(60)});
    }
    expectExact({1, 1, 1, 1});
    expectExact({1, 1, 60, 60});
}

TEST_P(BilinearKernelTest, RowsOfMoreThanOneStripAreExact) {
    for (const int dstW : {255, 256, 257, 511, 512, 513, 519, 769, 1300})
        for (const int srcW : {1, 2, 100, 257, 512, 1100, 2500}) {
            expectExact({srcW, 3, dstW, 2});
            expectExact({srcW, 2, dstW, 7});
        }
}

TEST_P(BilinearKernelTest, LongRowsAndColumnsAreExact) {
    for (const auto& [from, to] :
         {std::pair{16384, 16383}, {16384, 1}, {3, 20000}, {5000, 4999}, {2, 65536}}) {
        expectExact({from, 1, to, 1});
        expectExact({1, from, 1, to});
        expectExact({from, 2, to, 1});
        expectExact({2, from, 1, to});
    }
}

#ifdef __x86_64__
/// Makes nonsense, and says so.
struct DoubtingVector : Sse2Vector {
    static bool inDoubt() { return true; }
    static void pack(const Floats*, bool, uint32_t* to) { memset(to, 0x55, lanes * sizeof(uint32_t)); }
};

// 1774001 x 38737 = 2^36 + 1. With 1 in its place the sum lies just above the middle between two floats, and
// its last bit is lost in a double.
TEST(Sse2VectorTest, SumThatADoubleMovesToTheMiddleBetweenTwoFloatsIsInDoubt) {
    Sse2Vector vector;
    const float weight = std::ldexp(38737.0F, -60);
    vector.fma(_mm_set1_ps(1774001), _mm_set1_ps(weight), _mm_set1_ps(1));
    EXPECT_TRUE(vector.inDoubt());
    EXPECT_EQ(fmaf(1774001, weight, 1), std::nextafter(1.0F, 2.0F));
}

TEST(Sse2VectorTest, SumInTheMiddleBetweenTwoFloatsIsRoundedToTheEvenOne) {
    for (const float one : {1.0F, std::nextafter(1.0F, 2.0F)}) {
        Sse2Vector vector;
        const float half = std::ldexp(1.0F, -24);
        const __m128 sum = vector.fma(_mm_set1_ps(half), _mm_set1_ps(1), _mm_set1_ps(one));
        EXPECT_FALSE(vector.inDoubt());
        EXPECT_EQ(_mm_cvtss_f32(sum), fmaf(half, 1, one));
    }
}

TEST(Sse2VectorTest, FusedOperationIsThatOfTheStandardLibraryInEveryLane) {
    std::mt19937 random(1);
    const auto below = [&random](float limit) {
        return std::ldexp(static_cast<float>(random()), -32) * limit;
    };
    for (int i = 0; i < 20000; ++i) {
        alignas(16) float a[4];
        alignas(16) float c[4];
        alignas(16) float sum[4];
        const float b = below(1);
        for (int lane = 0; lane < 4; ++lane) {
            a[lane] = below(255);
            c[lane] = below(255);
        }
        Sse2Vector vector;
        _mm_store_ps(sum, vector.fma(_mm_load_ps(a), _mm_set1_ps(b), _mm_load_ps(c)));
        ASSERT_FALSE(vector.inDoubt());
        for (int lane = 0; lane < 4; ++lane)
            ASSERT_EQ(sum[lane], fmaf(a[lane], b, c[lane]));
    }
}
#endif

TEST(BestBilinearKernelTest, UsesTheWidestInstructionsThatTheProcessorKnows) {
#if defined(__x86_64__)
    const BilinearKernel wanted = processorHasAvx512() ? bilinearAvx512
                                  : processorHasAvx2() ? bilinearAvx2
                                                       : bilinearSse2;
#elif defined(__aarch64__)
    const BilinearKernel wanted = bilinearNeon;
#else
    const BilinearKernel wanted = bilinearPlain;
#endif
    EXPECT_EQ(bestBilinearKernel(), wanted);
}

/// A kernel that the processor does not know is never chosen.
static std::vector<NamedBilinearKernel> knownKernels() {
    std::vector<NamedBilinearKernel> kernels;
#if defined(__x86_64__)
    kernels.push_back({"Sse2", bilinearSse2});
    if (processorHasAvx2())
        kernels.push_back({"Avx2", bilinearAvx2});
    if (processorHasAvx512())
        kernels.push_back({"Avx512", bilinearAvx512});
    kernels.push_back({"Doubting", scaleBilinear<DoubtingVector>});
#elif defined(__aarch64__)
    kernels.push_back({"Neon", bilinearNeon});
#endif
    return kernels;
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(BilinearKernelTest); // elsewhere there is the plain one only
INSTANTIATE_TEST_SUITE_P(Scale, BilinearKernelTest, testing::ValuesIn(knownKernels()),
                         [](const auto& kernel) { return kernel.param.name; });
