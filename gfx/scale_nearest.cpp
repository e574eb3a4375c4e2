#include "gfx/scale.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr unsigned wholeStep = 1u << 16;

/// The columns that one output row takes, in 16.16 fixed point that wraps round.
struct Columns {
    unsigned start;
    unsigned step;
    unsigned count;

    bool wrap() const { return start + uint64_t{count - 1} * step > UINT32_MAX; }
};

void takeOneByOne(const uint32_t* from, const Columns& columns, uint32_t* out) {
    unsigned fx = columns.start;
    for (unsigned i = 0; i < columns.count; ++i) {
        out[i] = from[fx >> 16];
        fx += columns.step;
    }
}

/// The positions of four columns stand side by side, so that none waits for the one before.
void takeFourByFour(const uint32_t* from, const Columns& columns, uint32_t* out) {
    const uint64_t step = columns.step;
    uint64_t fx = columns.start;
    unsigned i = 0;
    for (; i + 4 <= columns.count; i += 4) {
        const uint32_t a = from[fx >> 16];
        const uint32_t b = from[(fx + step) >> 16];
        const uint32_t c = from[(fx + 2 * step) >> 16];
        const uint32_t d = from[(fx + 3 * step) >> 16];
        out[i] = a;
        out[i + 1] = b;
        out[i + 2] = c;
        out[i + 3] = d;
        fx += 4 * step;
    }
    takeOneByOne(from, {static_cast<unsigned>(fx), columns.step, columns.count - i}, out + i);
}

void takeEverySecond(const uint32_t* __restrict from, unsigned count, uint32_t* __restrict out) {
    for (size_t i = 0; i < count; ++i)
        out[i] = from[2 * i];
}

void takeTwice(const uint32_t* __restrict from, unsigned count, uint32_t* __restrict out) {
    for (size_t i = 0; i < count / 2; ++i) {
        out[2 * i] = from[i];
        out[2 * i + 1] = from[i];
    }
    if (count % 2 != 0)
        out[count - 1] = from[count / 2];
}

void takeRow(const uint32_t* from, const Columns& columns, uint32_t* out) {
    if (columns.wrap())
        takeOneByOne(from, columns, out);
    else if (columns.step == wholeStep)
        memcpy(out, from + (columns.start >> 16), columns.count * sizeof(uint32_t));
    else if (columns.step == 2 * wholeStep)
        takeEverySecond(from + (columns.start >> 16), columns.count, out);
    else if (columns.step == wholeStep / 2)
        takeTwice(from + (columns.start >> 16), columns.count, out);
    else
        takeFourByFour(from, columns, out);
}

} // namespace

void bitmap_scale(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                  unsigned srcStride, unsigned dstGap, unsigned int* src, unsigned int* dst) {
    if (!src || !dst || dstW == 0 || dstH == 0)
        return;
    const Columns columns{x << 16, (w << 16) / dstW, dstW};
    const unsigned yStep = (h << 16) / dstH;
    const size_t pitch = dstW + dstGap;
    unsigned fy = y << 16;
    for (unsigned row = 0; row < dstH; ++row) {
        uint32_t* const out = dst + row * pitch;
        if (row > 0 && fy >> 16 == (fy - yStep) >> 16)
            memmove(out, out - pitch, dstW * sizeof(uint32_t));
        else
            takeRow(src + (fy >> 16) * srcStride, columns, out);
        fy += yStep;
    }
}
