#include "charts/indicators/fmt3.h"

#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace ostravel {

#if defined(__SSE2__)

void fmt3Many(const double* in, double* out, std::size_t count) {
    // Fmt3's usual case, two values at a time: the floor through the nearest whole number (adding
    // and taking away 1.5 * 2^52 leaves a double below 2^51 at it), then up when the fraction
    // lies above one half. Where either value is a tie, or too large, both go the whole way.
    const __m128d thousand = _mm_set1_pd(1000.0);
    const __m128d magic = _mm_set1_pd(6755399441055744.0);
    const __m128d one = _mm_set1_pd(1.0);
    const __m128d half = _mm_set1_pd(0.5);
    const __m128d limit = _mm_set1_pd(1e12);
    const __m128d relative = _mm_set1_pd(1e-14);
    const __m128d tiny = _mm_set1_pd(1e-300);
    const __m128d magnitude = _mm_castsi128_pd(_mm_set1_epi64x(INT64_MAX));
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2) {
        const __m128d value = _mm_loadu_pd(in + i);
        const __m128d thousandths = _mm_mul_pd(value, thousand);
        const __m128d nearest = _mm_sub_pd(_mm_add_pd(thousandths, magic), magic);
        const __m128d whole = _mm_sub_pd(nearest, _mm_and_pd(_mm_cmpgt_pd(nearest, thousandths), one));
        const __m128d fraction = _mm_sub_pd(thousandths, whole);
        const __m128d up = _mm_and_pd(_mm_cmpgt_pd(fraction, half), one);
        const __m128d rounded = _mm_add_pd(_mm_div_pd(_mm_add_pd(whole, up), thousand), _mm_setzero_pd());
        const __m128d size = _mm_and_pd(thousandths, magnitude);
        const __m128d offHalf = _mm_and_pd(_mm_sub_pd(fraction, half), magnitude);
        const __m128d usual =
            _mm_and_pd(_mm_cmplt_pd(size, limit), _mm_cmpgt_pd(offHalf, _mm_add_pd(_mm_mul_pd(size, relative), tiny)));
        if (_mm_movemask_pd(usual) == 3) {
            _mm_storeu_pd(out + i, rounded);
        } else {
            // From the values as they came: `out` may be `in`.
            double values[2];
            _mm_storeu_pd(values, value);
            out[i] = Fmt3(values[0]);
            out[i + 1] = Fmt3(values[1]);
        }
    }
    for (; i < count; ++i) out[i] = Fmt3(in[i]);
}

#else

void fmt3Many(const double* in, double* out, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) out[i] = Fmt3(in[i]);
}

#endif

}  // namespace ostravel
