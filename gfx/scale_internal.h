#pragma once

#include <cstddef>
#include <cstdint>

/// What the scalers hide: one bilinear kernel for every instruction set. All give the same bytes; the best
/// that the processor knows is chosen at run time.

/// One bilinear scaling. All sizes are at least 1, rows are packed, and the buffers do not overlap.
struct BilinearJob {
    const uint32_t* src;
    uint32_t* dst;
    int srcW;
    int srcH;
    int dstW;
    int dstH;
    bool swapRB; ///< exchanges bits 16 to 23 and 0 to 7
};

/// Where an output line falls between two source lines.
struct BilinearSample {
    int near;
    int far;
    float weight; ///< of `far`
};

/// The `index`th of the output lines that are `ratio` apart in `count` source lines. The division that gives
/// `ratio` is the caller's, once for a picture.
static inline BilinearSample bilinearSample(int index, float ratio, int count) {
    const float position = static_cast<float>(index) * ratio;
    const int truncated = static_cast<int>(position);
    const int near = truncated < count - 1 ? truncated : count - 1;
    const int far = near < count - 1 ? near + 1 : near; // beyond the last line the weight is 0
    return {near, far, position - static_cast<float>(near)};
}

/// The four source pixels around an output pixel.
struct BilinearNeighbours {
    uint32_t topLeft;
    uint32_t topRight;
    uint32_t bottomLeft;
    uint32_t bottomRight;
};

/// One output pixel, by the arithmetic written down plainly. `dx` and `dy` weigh right and bottom.
uint32_t bilinearPixel(const BilinearNeighbours& neighbours, float dx, float dy, bool swapRB);

/// Every pixel by bilinearPixel: for processors without a kernel below, and to test those.
void bilinearPlain(const BilinearJob& job);

using BilinearKernel = void (*)(const BilinearJob&);

/// The fastest kernel that this processor knows.
BilinearKernel bestBilinearKernel();

/// Of two pixels of the error-term scaler. The carry out of the top byte is lost, on purpose.
static inline uint32_t errorTermAverage(uint32_t a, uint32_t b) {
    return (((a ^ b) & 0x00010101u) + a + b) >> 1;
}

/// Which pixels of a row the error-term scaler takes: the pixel `at[i]`, averaged with the next one in memory
/// where all bits of `blend[i]` are set, and as it is where none is.
struct ErrorTermColumns {
    const unsigned* at;
    const uint32_t* blend;
    size_t count;
};

/// Takes `columns` of the row `src`, which has a next pixel everywhere.
void errorTermPlain(const uint32_t* src, const ErrorTermColumns& columns, uint32_t* dst);

#ifdef __x86_64__
void errorTermSse2(const uint32_t* src, const ErrorTermColumns& columns, uint32_t* dst);
void bilinearSse2(const BilinearJob& job);
void bilinearAvx2(const BilinearJob& job);
void bilinearAvx512(const BilinearJob& job);
bool processorHasAvx2();   ///< and FMA
bool processorHasAvx512(); ///< without the great loss of speed elsewhere that it brought at first
#endif
#ifdef __aarch64__
void errorTermNeon(const uint32_t* src, const ErrorTermColumns& columns, uint32_t* dst);
void bilinearNeon(const BilinearJob& job);
#endif
