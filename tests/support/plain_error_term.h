#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <vector>

/// The error-term scalers told a second time, for comparison.

inline uint32_t plainAverage(uint32_t a, uint32_t b) {
    const uint32_t carry = (a ^ b) & 0x00010101U;
    const uint32_t sum = carry + a + b;
    return sum >> 1;
}

inline uint16_t plainAverage(uint16_t a, uint16_t b) {
    const auto a32 = uint32_t{a};
    const auto b32 = uint32_t{b};
    return static_cast<uint16_t>(((a32 + b32 + ((a32 ^ b32) & 0x0821U)) >> 1) & 0xFFFFU);
}

/// What one frame is scaled from and to.
struct Sizes {
    unsigned sw, sh, dw, dh;
    unsigned srcPitch, dstPitch; // in bytes
};

inline std::ostream& operator<<(std::ostream& out, const Sizes& s) {
    return out << s.sw << "x" << s.sh << " (" << s.srcPitch << ") to " << s.dw << "x" << s.dh << " ("
               << s.dstPitch << ")";
}

/// The pixels that a frame covers from its first to its last one.
template <typename Pixel>
size_t covered(unsigned w, unsigned h, unsigned pitch) {
    return (h - 1) * (pitch / sizeof(Pixel)) + w;
}

/// The arithmetic, written down plainly, on indices. `target` gets the output.
template <typename Pixel>
void scalePlainly(const std::vector<Pixel>& source, std::vector<Pixel>& target, const Sizes& s) {
    const uint32_t xStep = s.sw / s.dw;
    const uint32_t yStep = s.sh / s.dh;
    const uint32_t enlarging = s.sw < s.dw ? 1 : 0;
    const uint32_t count = s.dw - enlarging;
    const auto signedHalf = static_cast<int32_t>(s.dw >> 1);
    const int32_t alternative = enlarging ? static_cast<int32_t>(s.dw - 3 * (s.dw - s.sw)) >> 1
                                          : static_cast<int32_t>(2 * s.dw - s.sw);
    const int32_t threshold = std::max(signedHalf, alternative);
    const size_t srcPitch = s.srcPitch / sizeof(Pixel);
    const size_t dstPitch = s.dstPitch / sizeof(Pixel);
    uint32_t yErr = 0;
    size_t srcRow = 0;
    size_t previous = SIZE_MAX;
    size_t out = 0;
    for (uint32_t row = 0; row < s.dh; ++row) {
        if (srcRow == previous) {
            const std::vector<Pixel> before(&target[out - dstPitch], &target[out - dstPitch] + s.dw);
            std::copy(before.begin(), before.end(), &target[out]);
        } else if (s.sw == s.dw) {
            for (size_t i = 0; i < s.sw; ++i)
                target[out + i] = source[srcRow + i];
        } else {
            uint32_t xErr = 0;
            size_t p = srcRow;
            for (uint32_t i = 0; i < count; ++i) {
                Pixel v = source[p];
                const uint32_t old = xErr;
                xErr += s.sw - xStep * s.dw;
                if (threshold <= static_cast<int32_t>(old))
                    v = plainAverage(v, p + 1 < source.size() ? source[p + 1] : v);
                target[out + i] = v;
                p += xStep;
                if (xErr >= s.dw) {
                    xErr -= s.dw;
                    p += 1;
                }
            }
            if (enlarging)
                target[out + s.dw - 1] = source[p];
        }
        previous = srcRow;
        yErr += s.sh - yStep * s.dh;
        out += dstPitch;
        srcRow += yStep * srcPitch;
        if (yErr >= s.dh) {
            srcRow += srcPitch;
            yErr -= s.dh;
        }
    }
}
