#include "gfx/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

// The scaler once more, as a processor without fused operations gets it: all headers stand above, so only
// the choice in the file itself is changed.
#undef __x86_64__
#define resizeBilinear_cpu resizeWithoutFusedInstructions
#include "gfx/scale_bilinear.cpp"
#undef resizeBilinear_cpu

TEST(BilinearInstructionSetsTest, GiveTheSameBytes) {
    std::mt19937 random(1);
    const auto upTo = [&random](unsigned limit) { return static_cast<int>(1 + random() % limit); };
    for (int i = 0; i < 500; ++i) {
        const int srcW = upTo(50);
        const int srcH = upTo(50);
        const int dstW = upTo(70);
        const int dstH = upTo(70);
        const int swapRB = i % 2;
        std::vector<unsigned int> source(static_cast<size_t>(srcW * srcH));
        for (unsigned int& pixel : source)
            pixel = static_cast<unsigned int>(random());
        std::vector<unsigned int> chosen(static_cast<size_t>(dstW * dstH));
        std::vector<unsigned int> plain(chosen.size());
        resizeBilinear_cpu(source.data(), chosen.data(), srcW, srcH, dstW, dstH, swapRB);
        resizeWithoutFusedInstructions(source.data(), plain.data(), srcW, srcH, dstW, dstH, swapRB);
        ASSERT_EQ(chosen, plain) << srcW << "x" << srcH << " to " << dstW << "x" << dstH;
    }
}
