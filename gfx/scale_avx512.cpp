#ifdef __x86_64__

#include "gfx/scale_bilinear_kernel.h"

#include <immintrin.h>

namespace {

/// Sixteen floats: pixels k, k + 4, k + 8 and k + 12.
struct Avx512Vector {
    static constexpr int lanes = 16;
    using Floats = __m512;
    using Raw = __m512; // bytes, each with integerBias added

    static Floats load(const float* from) { return _mm512_load_ps(from); }
    static void store(float* to, Floats value) { _mm512_store_ps(to, value); }
    static Floats splat(float value) { return _mm512_set1_ps(value); }
    static Floats mul(Floats a, Floats b) { return _mm512_mul_ps(a, b); }
    static Floats fma(Floats a, Floats b, Floats c) { return _mm512_fmadd_ps(a, b, c); }
    static Floats toFloats(Raw bytes) { return _mm512_sub_ps(bytes, splat(integerBias)); }
    /// A byte times its weight. `bias` takes away what the bias of the byte brings in, before the one
    /// rounding.
    static Floats weigh(Raw bytes, Floats weight, Floats bias) {
        return _mm512_fmadd_ps(bytes, weight, bias);
    }
    template <int k>
    static Floats spread(Floats values) {
        return _mm512_permute_ps(values, k * 0x55);
    }
    static bool inDoubt() { return false; }

    /// Of the pixels at near[0], near[4], near[8] and near[12], and of their right neighbours.
    static void loadPairs(const uint32_t* row, const int32_t* near, Raw& left, Raw& right) {
        __m256i pairs = _mm256_castsi128_si256(pair(row + near[0]));
        pairs = _mm256_mask_broadcastq_epi64(pairs, 1 << 1, pair(row + near[4]));
        pairs = _mm256_mask_broadcastq_epi64(pairs, 1 << 2, pair(row + near[8]));
        pairs = _mm256_mask_broadcastq_epi64(pairs, 1 << 3, pair(row + near[12]));
        const __m512i words = _mm512_cvtepu8_epi16(pairs);
        const __m512i exponent = _mm512_set1_epi16(0x4B00);
        left = _mm512_castsi512_ps(_mm512_unpacklo_epi16(words, exponent));
        right = _mm512_castsi512_ps(_mm512_unpackhi_epi16(words, exponent));
    }

    static __m128i pair(const uint32_t* pixels) {
        return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pixels));
    }

    static void toFloats(const uint32_t* pixels, int count, float* to) {
        int i = 0;
        for (; i + 4 <= count; i += 4) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels + i));
            _mm512_storeu_ps(to + 4 * i, _mm512_cvtepi32_ps(_mm512_cvtepu8_epi32(bytes)));
        }
        for (; i < count; ++i) {
            const __m128i bytes = _mm_cvtsi32_si128(static_cast<int>(pixels[i]));
            _mm_storeu_ps(to + 4 * i, _mm_cvtepi32_ps(_mm_cvtepu8_epi32(bytes)));
        }
    }

    static Floats gather(const float* pixels, const int32_t* near) {
        Floats gathered = _mm512_castps128_ps512(pixelAt(pixels, near[0]));
        gathered = _mm512_insertf32x4(gathered, pixelAt(pixels, near[4]), 1);
        gathered = _mm512_insertf32x4(gathered, pixelAt(pixels, near[8]), 2);
        return _mm512_insertf32x4(gathered, pixelAt(pixels, near[12]), 3);
    }

    static __m128 pixelAt(const float* pixels, int32_t index) {
        return _mm_loadu_ps(pixels + 4 * static_cast<ptrdiff_t>(index));
    }

    static void pack(const Floats* values, bool swapRB, uint32_t* to) {
        const __m512i even =
            _mm512_packus_epi32(_mm512_cvttps_epi32(values[0]), _mm512_cvttps_epi32(values[1]));
        const __m512i odd =
            _mm512_packus_epi32(_mm512_cvttps_epi32(values[2]), _mm512_cvttps_epi32(values[3]));
        __m512i bytes = _mm512_packus_epi16(even, odd);
        if (swapRB)
            bytes = _mm512_shuffle_epi8(bytes, _mm512_broadcast_i32x4(_mm_setr_epi8(
                                                   2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15)));
        _mm512_storeu_si512(to, bytes);
    }
};

} // namespace

void bilinearAvx512(const BilinearJob& job) {
    scaleBilinear<Avx512Vector>(job);
}

#endif
