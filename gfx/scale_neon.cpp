#ifdef __aarch64__

#include "gfx/scale_bilinear_kernel.h"

#include <arm_neon.h>

namespace {

/// Four floats: one pixel.
struct NeonVector {
    static constexpr int lanes = 4;
    using Floats = float32x4_t;
    using Raw = float32x4_t;

    static Floats load(const float* from) { return vld1q_f32(from); }
    static void store(float* to, Floats value) { vst1q_f32(to, value); }
    static Floats splat(float value) { return vdupq_n_f32(value); }
    static Floats mul(Floats a, Floats b) { return vmulq_f32(a, b); }
    static Floats fma(Floats a, Floats b, Floats c) { return vfmaq_f32(c, a, b); }
    static Floats toFloats(Raw bytes) { return bytes; }
    static Floats weigh(Raw bytes, Floats weight, Floats) { return vmulq_f32(bytes, weight); }
    template <int k>
    static Floats spread(Floats values) {
        return vdupq_laneq_f32(values, k);
    }
    static bool inDoubt() { return false; }

    static void loadPairs(const uint32_t* row, const int32_t* near, Raw& left, Raw& right) {
        const uint16x8_t words = vmovl_u8(vreinterpret_u8_u32(vld1_u32(row + near[0])));
        left = vcvtq_f32_u32(vmovl_u16(vget_low_u16(words)));
        right = vcvtq_f32_u32(vmovl_high_u16(words));
    }

    static void toFloats(const uint32_t* pixels, int count, float* to) {
        for (int i = 0; i < count; ++i) {
            const uint8x8_t bytes = vreinterpret_u8_u32(vdup_n_u32(pixels[i]));
            store(to + 4 * i, vcvtq_f32_u32(vmovl_u16(vget_low_u16(vmovl_u8(bytes)))));
        }
    }

    static Floats gather(const float* pixels, const int32_t* near) {
        return vld1q_f32(pixels + 4 * static_cast<ptrdiff_t>(near[0]));
    }

    static void pack(const Floats* values, bool swapRB, uint32_t* to) {
        const uint16x8_t even = words(values[0], values[1]);
        const uint16x8_t odd = words(values[2], values[3]);
        uint8x16_t bytes = vmovn_high_u16(vmovn_u16(even), odd);
        if (swapRB) {
            static const uint8_t order[16] = {2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15};
            bytes = vqtbl1q_u8(bytes, vld1q_u8(order));
        }
        vst1q_u32(to, vreinterpretq_u32_u8(bytes));
    }

    static uint16x8_t words(Floats a, Floats b) {
        return vmovn_high_u32(vmovn_u32(vcvtq_u32_f32(a)), vcvtq_u32_f32(b));
    }
};

/// Four pixels, taken by columns, averaged where `blend` says so.
uint32x4_t averageFour(const uint32_t* src, const unsigned* at, uint32x4_t blend) {
    const uint32x4_t low = vcombine_u32(vld1_u32(src + at[0]), vld1_u32(src + at[1]));
    const uint32x4_t high = vcombine_u32(vld1_u32(src + at[2]), vld1_u32(src + at[3]));
    const uint32x4_t a = vuzp1q_u32(low, high);
    const uint32x4_t b = vuzp2q_u32(low, high);
    const uint32x4_t lowBits = vandq_u32(veorq_u32(a, b), vdupq_n_u32(0x00010101));
    return vbslq_u32(blend, vshrq_n_u32(vaddq_u32(vaddq_u32(lowBits, a), b), 1), a);
}

} // namespace

void errorTermNeon(const uint32_t* src, const ErrorTermColumns& columns, uint32_t* dst) {
    size_t i = 0;
    for (; i + 4 <= columns.count; i += 4)
        vst1q_u32(dst + i, averageFour(src, columns.at + i, vld1q_u32(columns.blend + i)));
    errorTermPlain(src, {columns.at + i, columns.blend + i, columns.count - i}, dst + i);
}

void bilinearNeon(const BilinearJob& job) {
    scaleBilinear<NeonVector>(job);
}

#endif
