#include "charts/indicators/fmt3.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace ostravel {

#if defined(__SSE2__)

void fmt3Many(const double* in, double* out, std::size_t count) {
    // Fmt3's usual case two values at a time; where either is a tie, or too large, both go the
    // whole way.
    const __m128d thousand = _mm_set1_pd(1000.0);
    const __m128d shift = _mm_set1_pd(kRoundingShift);
    const __m128d half = _mm_set1_pd(0.5);
    const __m128d share = _mm_set1_pd(kOffHalfShare);
    const __m128d head = _mm_set1_pd(kThousandths.head());
    const __m128d tail = _mm_set1_pd(kThousandths.tail());
    const __m128d magnitude = _mm_castsi128_pd(_mm_set1_epi64x(INT64_MAX));
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2) {
        const __m128d value = _mm_loadu_pd(in + i);
        const __m128d thousandths = _mm_mul_pd(value, thousand);
        const __m128d nearest = _mm_sub_pd(_mm_add_pd(thousandths, shift), shift);
        const __m128d size = _mm_and_pd(thousandths, magnitude);
        const __m128d offNearest = _mm_and_pd(_mm_sub_pd(thousandths, nearest), magnitude);
        const __m128d usual = _mm_cmplt_pd(_mm_add_pd(offNearest, _mm_mul_pd(size, share)), half);
        if (_mm_movemask_pd(usual) == 3) {
            _mm_storeu_pd(out + i, _mm_add_pd(_mm_mul_pd(nearest, head), _mm_mul_pd(nearest, tail)));
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
