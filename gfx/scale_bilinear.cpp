#include "gfx/scale.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

// The arithmetic is inlined into one function for every instruction set. The order of the operations and
// where they are fused decide the result to the bit, on every machine the same; the build forbids the
// compiler to fuse anything else.
#define ALWAYS_INLINE __attribute__((always_inline)) inline

namespace {

struct BilinearJob {
    const uint32_t* src;
    uint32_t* dst;
    int srcW;
    int srcH;
    int dstW;
    int dstH;
    bool swapRB;
};

/// Where an output line falls between two source lines.
struct Sample {
    int near;
    int far;
    float weight; // of far

    ALWAYS_INLINE Sample(int index, float ratio, int count) {
        const float position = static_cast<float>(index) * ratio;
        near = std::min(static_cast<int>(position), count - 1);
        weight = position - static_cast<float>(near);
        far = std::min(near + 1, count - 1); // beyond the last line the weight is 0
    }
};

ALWAYS_INLINE uint32_t blendByte(uint32_t tl, uint32_t tr, uint32_t bl, uint32_t br, int shift, float dx,
                                 float dy) {
    const auto byteOf = [shift](uint32_t pixel) { return static_cast<float>(pixel >> shift & 0xFF); };
    float t = byteOf(tr) * dx * (1 - dy);
    t = std::fmaf(byteOf(tl) * (1 - dx), 1 - dy, t);
    t = std::fmaf(byteOf(bl) * dy, 1 - dx, t);
    t = std::fmaf(byteOf(br), dx * dy, t);
    return static_cast<uint32_t>(static_cast<int>(t)); // truncated: pure white may come out as 254
}

ALWAYS_INLINE void bilinearRows(const BilinearJob& job) {
    const float xRatio = static_cast<float>(job.srcW - 1) / static_cast<float>(job.dstW);
    const float yRatio = static_cast<float>(job.srcH - 1) / static_cast<float>(job.dstH);
    const int redShift = job.swapRB ? 0 : 16;
    const int blueShift = 16 - redShift;
    uint32_t* out = job.dst;
    for (int i = 0; i < job.dstH; ++i) {
        const Sample y(i, yRatio, job.srcH);
        const uint32_t* const top = job.src + static_cast<size_t>(y.near) * static_cast<size_t>(job.srcW);
        const uint32_t* const bottom = job.src + static_cast<size_t>(y.far) * static_cast<size_t>(job.srcW);
        for (int j = 0; j < job.dstW; ++j) {
            const Sample x(j, xRatio, job.srcW);
            const uint32_t tl = top[x.near];
            const uint32_t tr = top[x.far];
            const uint32_t bl = bottom[x.near];
            const uint32_t br = bottom[x.far];
            const auto blended = [&](int shift) {
                return blendByte(tl, tr, bl, br, shift, x.weight, y.weight);
            };
            *out++ = blended(24) << 24 | blended(16) << redShift | blended(8) << 8 | blended(0) << blueShift;
        }
    }
}

#ifdef __x86_64__
/// The same with the processor's fused operations instead of calls.
__attribute__((target("fma"))) void bilinearRowsFma(const BilinearJob& job) {
    bilinearRows(job);
}

bool processorHasFma() {
    static const bool has = __builtin_cpu_supports("fma");
    return has;
}
#endif

} // namespace

unsigned int* resizeBilinear_cpu(unsigned int* src, unsigned int* dst, int srcW, int srcH, int dstW, int dstH,
                                 int swapRB) {
    if (!src || !dst || srcW < 1 || srcH < 1 || dstW < 1 || dstH < 1)
        return dst;
    const BilinearJob job{src, dst, srcW, srcH, dstW, dstH, swapRB != 0};
#ifdef __x86_64__
    if (processorHasFma()) {
        bilinearRowsFma(job);
        return dst;
    }
#endif
    bilinearRows(job);
    return dst;
}
