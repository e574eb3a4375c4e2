#include "gfx/scale.h"
#include "gfx/scale_internal.h"

#include <cmath>
#include <cstddef>

// The order of the operations and where they are fused decide the result to the bit, on every machine the
// same; the build forbids the compiler to fuse anything else.

namespace {

uint32_t blendByte(const BilinearNeighbours& around, int shift, float dx, float dy) {
    const auto byteOf = [shift](uint32_t pixel) { return static_cast<float>(pixel >> shift & 0xFF); };
    float t = byteOf(around.topRight) * dx * (1 - dy);
    t = std::fmaf(byteOf(around.topLeft) * (1 - dx), 1 - dy, t);
    t = std::fmaf(byteOf(around.bottomLeft) * dy, 1 - dx, t);
    t = std::fmaf(byteOf(around.bottomRight), dx * dy, t);
    return static_cast<uint32_t>(static_cast<int>(t)); // truncated: pure white may come out as 254
}

} // namespace

BilinearKernel bestBilinearKernel() {
#if defined(__x86_64__)
    if (processorHasAvx512())
        return bilinearAvx512;
    return processorHasAvx2() ? bilinearAvx2 : bilinearSse2;
#elif defined(__aarch64__)
    return bilinearNeon;
#else
    return bilinearPlain;
#endif
}

uint32_t bilinearPixel(const BilinearNeighbours& neighbours, float dx, float dy, bool swapRB) {
    const auto blended = [&](int shift) { return blendByte(neighbours, shift, dx, dy); };
    const int redShift = swapRB ? 0 : 16;
    return blended(24) << 24 | blended(16) << redShift | blended(8) << 8 | blended(0) << (16 - redShift);
}

void bilinearPlain(const BilinearJob& job) {
    const float xRatio = static_cast<float>(job.srcW - 1) / static_cast<float>(job.dstW);
    const float yRatio = static_cast<float>(job.srcH - 1) / static_cast<float>(job.dstH);
    uint32_t* out = job.dst;
    for (int i = 0; i < job.dstH; ++i) {
        const BilinearSample y = bilinearSample(i, yRatio, job.srcH);
        const uint32_t* const top = job.src + static_cast<size_t>(y.near) * static_cast<size_t>(job.srcW);
        const uint32_t* const bottom = job.src + static_cast<size_t>(y.far) * static_cast<size_t>(job.srcW);
        for (int j = 0; j < job.dstW; ++j) {
            const BilinearSample x = bilinearSample(j, xRatio, job.srcW);
            *out++ = bilinearPixel({top[x.near], top[x.far], bottom[x.near], bottom[x.far]}, x.weight,
                                   y.weight, job.swapRB);
        }
    }
}

#ifdef __x86_64__
// The byte permutations (VBMI) came with the generation that no longer slows down for wide vectors.
bool processorHasAvx512() {
    static const bool has = processorHasAvx2() && __builtin_cpu_supports("avx512f") &&
                            __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
                            __builtin_cpu_supports("avx512vbmi");
    return has;
}

bool processorHasAvx2() {
    static const bool has = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return has;
}
#endif

unsigned int* resizeBilinear_cpu(unsigned int* src, unsigned int* dst, int srcW, int srcH, int dstW, int dstH,
                                 int swapRB) {
    if (!src || !dst || srcW < 1 || srcH < 1 || dstW < 1 || dstH < 1)
        return dst;
    static const BilinearKernel kernel = bestBilinearKernel();
    kernel({src, dst, srcW, srcH, dstW, dstH, swapRB != 0});
    return dst;
}
