#ifdef __x86_64__

#include "gfx/scale_bilinear_kernel.h"
#include "gfx/scale_sse2_vector.h"

namespace {

__m128i loadPair(const uint32_t* pixels) {
    return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pixels));
}

/// Four pixels, taken by columns, averaged where `blend` says so.
__m128i averageFour(const uint32_t* src, const unsigned* at, __m128i blend) {
    const __m128 low = _mm_castsi128_ps(_mm_unpacklo_epi64(loadPair(src + at[0]), loadPair(src + at[1])));
    const __m128 high = _mm_castsi128_ps(_mm_unpacklo_epi64(loadPair(src + at[2]), loadPair(src + at[3])));
    const __m128i a = _mm_castps_si128(_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)));
    const __m128i b = _mm_castps_si128(_mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1)));
    const __m128i lowBits = _mm_and_si128(_mm_xor_si128(a, b), _mm_set1_epi32(0x00010101));
    const __m128i average = _mm_srli_epi32(_mm_add_epi32(_mm_add_epi32(lowBits, a), b), 1);
    return _mm_xor_si128(a, _mm_and_si128(_mm_xor_si128(a, average), blend));
}

} // namespace

void errorTermSse2(const uint32_t* src, const ErrorTermColumns& columns, uint32_t* dst) {
    size_t i = 0;
    for (; i + 4 <= columns.count; i += 4) {
        const __m128i blend = _mm_loadu_si128(reinterpret_cast<const __m128i*>(columns.blend + i));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), averageFour(src, columns.at + i, blend));
    }
    errorTermPlain(src, {columns.at + i, columns.blend + i, columns.count - i}, dst + i);
}

void bilinearSse2(const BilinearJob& job) {
    scaleBilinear<Sse2Vector>(job);
}

#endif
