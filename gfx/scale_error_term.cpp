#include "gfx/scale.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

uint32_t average(uint32_t a, uint32_t b) {
    return (((a ^ b) & 0x00010101u) + a + b) >> 1; // the carry out of the top byte is lost, on purpose
}

uint16_t average(uint16_t a, uint16_t b) {
    const uint32_t lowBits = (static_cast<uint32_t>(a) ^ b) & 0x0821u; // one of each RGB565 field
    return static_cast<uint16_t>((static_cast<uint32_t>(a) + b + lowBits) >> 1);
}

/// One error-term walk along an axis, from `from` source steps to `to` target steps.
struct Walk {
    unsigned whole; // source steps in every target step
    unsigned rest;  // error added in every target step
    unsigned limit; // error at which one more source step is due

    Walk(unsigned from, unsigned to) : whole(from / to), rest(from - from / to * to), limit(to) {}

    /// Advances by one target step and returns the source steps taken.
    unsigned step(unsigned& error) const {
        error += rest;
        if (error < limit)
            return whole;
        error -= limit;
        return whole + 1;
    }
};

/// The error from which on two neighbours are averaged.
unsigned blendThreshold(unsigned from, unsigned to) {
    const auto half = static_cast<int32_t>(to >> 1);
    const int32_t other =
        from < to ? static_cast<int32_t>(to - 3 * (to - from)) >> 1 : static_cast<int32_t>(2 * to - from);
    return static_cast<unsigned>(std::max(half, other));
}

/// Scales a row of `sw` pixels to `dw`. Beyond the row's end stands the next pixel in memory, which may be
/// averaged in; beyond `last`, the source's very last pixel, nothing stands, and it is averaged with itself.
template <typename Pixel>
void scaleRow(const Pixel* src, unsigned sw, Pixel* dst, unsigned dw, const Pixel* last) {
    const Walk walk(sw, dw);
    const unsigned threshold = blendThreshold(sw, dw);
    const bool enlarging = sw < dw;
    const unsigned count = enlarging ? dw - 1 : dw;
    unsigned error = 0;
    for (unsigned i = 0; i < count; ++i) {
        dst[i] = threshold <= error ? average(*src, src == last ? *src : src[1]) : *src;
        src += walk.step(error);
    }
    if (enlarging)
        dst[dw - 1] = *src;
}

template <typename Pixel>
void scaleFrame(Pixel* dst, unsigned dw, unsigned dh, unsigned dstPitchBytes, const Pixel* src, unsigned sw,
                unsigned sh, unsigned srcPitchBytes) {
    if (!dst || !src || dw == 0 || dh == 0 || sw == 0 || sh == 0)
        return;
    const size_t dstPitch = dstPitchBytes / sizeof(Pixel);
    const size_t srcPitch = srcPitchBytes / sizeof(Pixel);
    const Pixel* const last = src + (sh - 1) * srcPitch + (sw - 1);
    const Walk walk(sh, dh);
    unsigned error = 0;
    unsigned row = 0;
    const Pixel* previous = nullptr;
    for (unsigned i = 0; i < dh; ++i) {
        const Pixel* const from = src + row * srcPitch;
        Pixel* const out = dst + i * dstPitch;
        if (from == previous)
            memmove(out, out - dstPitch, dw * sizeof(Pixel));
        else if (sw == dw)
            memmove(out, from, sw * sizeof(Pixel));
        else
            scaleRow(from, sw, out, dw, last);
        previous = from;
        row += walk.step(error);
    }
}

} // namespace

void sdl_rs90_scale_frame32_bresenham_horz(unsigned int* dst, unsigned dw, unsigned dh,
                                           unsigned dstPitchBytes, unsigned int* src, unsigned sw,
                                           unsigned sh, unsigned srcPitchBytes) {
    scaleFrame<uint32_t>(dst, dw, dh, dstPitchBytes, src, sw, sh, srcPitchBytes);
}

void sdl_rs90_scale_frame16_bresenham_horz(unsigned short* dst, unsigned dw, unsigned dh,
                                           unsigned dstPitchBytes, unsigned short* src, unsigned sw,
                                           unsigned sh, unsigned srcPitchBytes) {
    scaleFrame<uint16_t>(dst, dw, dh, dstPitchBytes, src, sw, sh, srcPitchBytes);
}
