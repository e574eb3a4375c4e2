#include "gfx/scale.h"
#include "gfx/scale_internal.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

uint32_t average(uint32_t a, uint32_t b) {
    return errorTermAverage(a, b);
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

/// The walk through a row is the same for every row: where it has been, for a strip of columns. A picture is
/// scaled strip by strip, so that the table has a place on the stack, whatever the picture's size.
template <typename Pixel>
struct Strip {
    static constexpr unsigned width = 1024;
    unsigned count;
    unsigned at[width]; // source columns, never falling
    Pixel blend[width]; // all bits where a pixel is averaged with the next, else none
};

/// Goes through a row from its begin to its end, a strip at a time.
class RowWalk {
public:
    RowWalk(unsigned sw, unsigned dw)
        : mWalk(sw, dw), mThreshold(blendThreshold(sw, dw)), mEnlarging(sw < dw), mWidth(dw) {}

    template <typename Pixel>
    void place(Strip<Pixel>& strip) {
        strip.count = std::min(mWidth - mDone, Strip<Pixel>::width);
        for (unsigned i = 0; i < strip.count; ++i) {
            strip.at[i] = mColumn;
            strip.blend[i] = mThreshold <= mError ? static_cast<Pixel>(-1) : Pixel{0};
            mColumn += mWalk.step(mError);
        }
        mDone += strip.count;
        if (mEnlarging && mDone == mWidth)
            strip.blend[strip.count - 1] = 0; // the last is never averaged
    }

private:
    const Walk mWalk;
    const unsigned mThreshold;
    const bool mEnlarging;
    const unsigned mWidth;
    unsigned mColumn = 0;
    unsigned mError = 0;
    unsigned mDone = 0;
};

template <typename Pixel>
void averageColumns(const Pixel* __restrict src, const unsigned* at, const Pixel* blend, size_t count,
                    Pixel* __restrict dst) {
    for (size_t i = 0; i < count; ++i) {
        const Pixel pixel = src[at[i]];
        dst[i] = blend[i] ? average(pixel, src[at[i] + 1]) : pixel;
    }
}

/// Scales a strip of a row that has a next pixel in memory everywhere.
void scaleRow(const uint16_t* src, const Strip<uint16_t>& strip, uint16_t* dst) {
    averageColumns(src, strip.at, strip.blend, strip.count, dst);
}

void scaleRow(const uint32_t* src, const Strip<uint32_t>& strip, uint32_t* dst) {
    const ErrorTermColumns columns{strip.at, strip.blend, strip.count};
#if defined(__x86_64__)
    errorTermSse2(src, columns, dst);
#elif defined(__aarch64__)
    errorTermNeon(src, columns, dst);
#else
    errorTermPlain(src, columns, dst);
#endif
}

/// Every `step`th pixel of a row, none averaged.
template <typename Pixel>
void takeEvery(size_t step, const Pixel* __restrict src, size_t count, Pixel* __restrict dst) {
    if (step == 2) // known to the compiler, which then takes many at once
        for (size_t i = 0; i < count; ++i)
            dst[i] = src[2 * i];
    else
        for (size_t i = 0; i < count; ++i)
            dst[i] = src[step * i];
}

/// The same where the row may end with `last`, the source's very last pixel: it is averaged with itself.
template <typename Pixel>
void scaleLastRow(const Pixel* src, const Strip<Pixel>& strip, Pixel* dst, const Pixel* last) {
    for (size_t i = 0; i < strip.count; ++i) {
        const Pixel* const pixel = src + strip.at[i];
        dst[i] = strip.blend[i] ? average(*pixel, pixel == last ? *pixel : pixel[1]) : *pixel;
    }
}

template <typename Pixel>
struct Frame {
    Pixel* dst;
    unsigned dw;
    unsigned dh;
    size_t dstPitch; // in pixels
    const Pixel* src;
    unsigned sw;
    unsigned sh;
    size_t srcPitch;
};

/// Calls `scale` with the source row and the output row of every row that does not repeat the one before; the
/// others are copied. Both begin at the column `first`, and `count` pixels are copied.
template <typename Pixel, typename ScaleRow>
void scaleRows(const Frame<Pixel>& frame, unsigned first, unsigned count, const ScaleRow& scale) {
    const Walk walk(frame.sh, frame.dh);
    unsigned error = 0;
    unsigned row = 0;
    const Pixel* previous = nullptr;
    for (unsigned i = 0; i < frame.dh; ++i) {
        const Pixel* const from = frame.src + row * frame.srcPitch;
        Pixel* const out = frame.dst + i * frame.dstPitch + first;
        if (from == previous)
            memmove(out, out - frame.dstPitch, count * sizeof(Pixel));
        else
            scale(from, out);
        previous = from;
        row += walk.step(error);
    }
}

/// One strip of a row.
template <typename Pixel>
void scaleStrip(const Pixel* src, const Strip<Pixel>& strip, Pixel* dst, const Pixel* last) {
    if (src + strip.at[strip.count - 1] < last)
        scaleRow(src, strip, dst);
    else
        scaleLastRow(src, strip, dst, last);
}

template <typename Pixel>
void scaleByStrips(const Frame<Pixel>& frame) {
    const Pixel* const last = frame.src + (frame.sh - 1) * frame.srcPitch + (frame.sw - 1);
    Strip<Pixel> strip;
    if (frame.dstPitch < frame.dw) { // output rows overlap: each must be whole before the next begins
        scaleRows(frame, 0, frame.dw, [&](const Pixel* from, Pixel* out) {
            RowWalk walk(frame.sw, frame.dw);
            for (unsigned first = 0; first < frame.dw; first += strip.count) {
                walk.place(strip);
                scaleStrip(from, strip, out + first, last);
            }
        });
        return;
    }
    RowWalk walk(frame.sw, frame.dw);
    for (unsigned first = 0; first < frame.dw; first += strip.count) {
        walk.place(strip);
        scaleRows(frame, first, strip.count,
                  [&](const Pixel* from, Pixel* out) { scaleStrip(from, strip, out, last); });
    }
}

template <typename Pixel>
void scaleFrame(const Frame<Pixel>& frame) {
    if (!frame.dst || !frame.src || frame.dw == 0 || frame.dh == 0 || frame.sw == 0 || frame.sh == 0)
        return;
    if (frame.sw == frame.dw)
        scaleRows(frame, 0, frame.dw,
                  [&frame](const Pixel* from, Pixel* out) { memmove(out, from, frame.sw * sizeof(Pixel)); });
    else if (frame.sw % frame.dw == 0 && blendThreshold(frame.sw, frame.dw) > 0) // the error stays 0
        scaleRows(frame, 0, frame.dw, [&frame](const Pixel* from, Pixel* out) {
            takeEvery(frame.sw / frame.dw, from, frame.dw, out);
        });
    else
        scaleByStrips(frame);
}

} // namespace

void errorTermPlain(const uint32_t* src, const ErrorTermColumns& columns, uint32_t* dst) {
    averageColumns(src, columns.at, columns.blend, columns.count, dst);
}

void sdl_rs90_scale_frame32_bresenham_horz(unsigned int* dst, unsigned dw, unsigned dh,
                                           unsigned dstPitchBytes, unsigned int* src, unsigned sw,
                                           unsigned sh, unsigned srcPitchBytes) {
    scaleFrame<uint32_t>(
        {dst, dw, dh, dstPitchBytes / sizeof(*dst), src, sw, sh, srcPitchBytes / sizeof(*src)});
}

void sdl_rs90_scale_frame16_bresenham_horz(unsigned short* dst, unsigned dw, unsigned dh,
                                           unsigned dstPitchBytes, unsigned short* src, unsigned sw,
                                           unsigned sh, unsigned srcPitchBytes) {
    scaleFrame<uint16_t>(
        {dst, dw, dh, dstPitchBytes / sizeof(*dst), src, sw, sh, srcPitchBytes / sizeof(*src)});
}
