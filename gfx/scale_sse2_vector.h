#pragma once

#ifdef __x86_64__

#include <cstddef>
#include <cstdint>
#include <emmintrin.h>

/// Four floats: one pixel. There are no fused operations; they are done in double precision, where the
/// product is exact. The sum is then rounded twice, first to a double and then to a float, which gives
/// another result than rounding once only where the double lies just between two floats. These pixels are in
/// doubt.
struct Sse2Vector {
    static constexpr int lanes = 4;
    using Floats = __m128;
    using Raw = __m128;

    static Floats load(const float* from) { return _mm_load_ps(from); }
    static void store(float* to, Floats value) { _mm_store_ps(to, value); }
    static Floats splat(float value) { return _mm_set1_ps(value); }
    static Floats mul(Floats a, Floats b) { return _mm_mul_ps(a, b); }
    static Floats toFloats(Raw bytes) { return bytes; }
    static Floats weigh(Raw bytes, Floats weight, Floats) { return _mm_mul_ps(bytes, weight); }
    template <int k>
    static Floats spread(Floats values) {
        return _mm_shuffle_ps(values, values, k * 0x55);
    }

    /// `b` is the same in all lanes.
    Floats fma(Floats a, Floats b, Floats c) {
        const __m128d weight = _mm_cvtps_pd(b);
        return _mm_movelh_ps(fma(a, weight, c), fma(_mm_movehl_ps(a, a), weight, _mm_movehl_ps(c, c)));
    }

    /// The same for the lower two lanes.
    __m128 fma(__m128 a, __m128d b, __m128 c) {
        const __m128d product = _mm_mul_pd(_mm_cvtps_pd(a), b);
        const __m128d addend = _mm_cvtps_pd(c);
        const __m128d sum = _mm_add_pd(product, addend);
        const __m128d exact = _mm_and_pd(_mm_cmpeq_pd(_mm_sub_pd(sum, product), addend),
                                         _mm_cmpeq_pd(_mm_sub_pd(sum, addend), product));
        const __m128i cutOff = _mm_and_si128(_mm_castpd_si128(sum), _mm_set1_epi64x(0x1FFFFFFF));
        const __m128i half = _mm_set1_epi64x(0x100000000 | 0x10000000); // the upper words are never equal
        const __m128i between = _mm_cmpeq_epi32(cutOff, half);
        mDoubt = _mm_or_si128(mDoubt, _mm_andnot_si128(_mm_castpd_si128(exact), between));
        return _mm_cvtpd_ps(sum);
    }

    bool inDoubt() const { return _mm_movemask_epi8(mDoubt) != 0; }

    static void loadPairs(const uint32_t* row, const int32_t* near, Raw& left, Raw& right) {
        const __m128i pair = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(row + near[0]));
        const __m128i words = _mm_unpacklo_epi8(pair, _mm_setzero_si128());
        left = _mm_cvtepi32_ps(_mm_unpacklo_epi16(words, _mm_setzero_si128()));
        right = _mm_cvtepi32_ps(_mm_unpackhi_epi16(words, _mm_setzero_si128()));
    }

    static void toFloats(const uint32_t* pixels, int count, float* to) {
        for (int i = 0; i < count; ++i) {
            const __m128i bytes = _mm_cvtsi32_si128(static_cast<int>(pixels[i]));
            const __m128i words = _mm_unpacklo_epi8(bytes, _mm_setzero_si128());
            store(to + 4 * i, _mm_cvtepi32_ps(_mm_unpacklo_epi16(words, _mm_setzero_si128())));
        }
    }

    static Floats gather(const float* pixels, const int32_t* near) {
        return _mm_loadu_ps(pixels + 4 * static_cast<ptrdiff_t>(near[0]));
    }

    static void pack(const Floats* values, bool swapRB, uint32_t* to) {
        __m128i even = _mm_packs_epi32(_mm_cvttps_epi32(values[0]), _mm_cvttps_epi32(values[1]));
        __m128i odd = _mm_packs_epi32(_mm_cvttps_epi32(values[2]), _mm_cvttps_epi32(values[3]));
        if (swapRB) {
            even = exchanged(even);
            odd = exchanged(odd);
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(even, odd));
    }

    /// The words of two pixels with red and blue exchanged.
    static __m128i exchanged(__m128i words) {
        constexpr int order = _MM_SHUFFLE(3, 0, 1, 2);
        return _mm_shufflehi_epi16(_mm_shufflelo_epi16(words, order), order);
    }

    __m128i mDoubt = _mm_setzero_si128();
};

#endif
