#ifdef __x86_64__

#include "gfx/scale_bilinear_kernel.h"

#include <immintrin.h>

namespace {

/// Eight floats: pixels k and k + 4.
struct Avx2Vector {
    static constexpr int lanes = 8;
    using Floats = __m256;
    using Raw = __m256; // bytes, each with integerBias added

    static Floats load(const float* from) { return _mm256_load_ps(from); }
    static void store(float* to, Floats value) { _mm256_store_ps(to, value); }
    static Floats splat(float value) { return _mm256_set1_ps(value); }
    static Floats mul(Floats a, Floats b) { return _mm256_mul_ps(a, b); }
    static Floats fma(Floats a, Floats b, Floats c) { return _mm256_fmadd_ps(a, b, c); }
    static Floats toFloats(Raw bytes) { return _mm256_sub_ps(bytes, splat(integerBias)); }
    /// A byte times its weight. `bias` takes away what the bias of the byte brings in, before the one
    /// rounding.
    static Floats weigh(Raw bytes, Floats weight, Floats bias) {
        return _mm256_fmadd_ps(bytes, weight, bias);
    }
    template <int k>
    static Floats spread(Floats values) {
        return _mm256_permute_ps(values, k * 0x55);
    }
    static bool inDoubt() { return false; }

    /// Of the pixels at near[0] and near[4], and of their right neighbours.
    static void loadPairs(const uint32_t* row, const int32_t* near, Raw& left, Raw& right) {
        const __m128i first = pair(row + near[0]);
        const __m128i second = _mm_broadcastq_epi64(pair(row + near[4]));
        const __m256i words = _mm256_cvtepu8_epi16(_mm_blend_epi32(first, second, 0xC));
        const __m256i exponent = _mm256_set1_epi16(0x4B00);
        left = _mm256_castsi256_ps(_mm256_unpacklo_epi16(words, exponent));
        right = _mm256_castsi256_ps(_mm256_unpackhi_epi16(words, exponent));
    }

    static __m128i pair(const uint32_t* pixels) {
        return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pixels));
    }

    static void toFloats(const uint32_t* pixels, int count, float* to) {
        int i = 0;
        for (; i + 1 < count; i += 2)
            _mm256_storeu_ps(to + 4 * i, _mm256_cvtepi32_ps(_mm256_cvtepu8_epi32(pair(pixels + i))));
        for (; i < count; ++i) {
            const __m128i bytes = _mm_cvtsi32_si128(static_cast<int>(pixels[i]));
            _mm_storeu_ps(to + 4 * i, _mm_cvtepi32_ps(_mm_cvtepu8_epi32(bytes)));
        }
    }

    static Floats gather(const float* pixels, const int32_t* near) {
        const __m128 first = _mm_loadu_ps(pixels + 4 * static_cast<ptrdiff_t>(near[0]));
        const __m128 second = _mm_loadu_ps(pixels + 4 * static_cast<ptrdiff_t>(near[4]));
        return _mm256_insertf128_ps(_mm256_castps128_ps256(first), second, 1);
    }

    static void pack(const Floats* values, bool swapRB, uint32_t* to) {
        const __m256i even =
            _mm256_packus_epi32(_mm256_cvttps_epi32(values[0]), _mm256_cvttps_epi32(values[1]));
        const __m256i odd =
            _mm256_packus_epi32(_mm256_cvttps_epi32(values[2]), _mm256_cvttps_epi32(values[3]));
        __m256i bytes = _mm256_packus_epi16(even, odd);
        if (swapRB)
            bytes = _mm256_shuffle_epi8(bytes, _mm256_broadcastsi128_si256(_mm_setr_epi8(
                                                   2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15)));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), bytes);
    }
};

} // namespace

void bilinearAvx2(const BilinearJob& job) {
    scaleBilinear<Avx2Vector>(job);
}

#endif
