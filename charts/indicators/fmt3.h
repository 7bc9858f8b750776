// Fmt3: a value turned to text with the pattern "#.000" and back to a number, that is rounded to
// three decimals, halves away from zero, decided on the value's 15 significant digits. The
// calculators do it for nearly every result, so the usual case takes no text at all.
#pragma once

#include <cmath>
#include <cstddef>

#include "charts/indicators/exact_quotient.h"
#include "runtime/vbmath.h"

namespace ostravel {

// n / 1000 for a whole n below 2^40 in size: the double nearest the decimal, as the text's parse
// gives it.
constexpr ExactQuotient kThousandths(1000.0, 13);

// A value whose thousandths lie off a half by more than this share of their size rounds the same
// on its 15 digits shown as on its bits, whose difference is below 1e-14 of it. The share is wide
// enough that no size of 1e12 thousandths or more passes: their whole number may be past the
// exact quotient's bounds.
constexpr double kOffHalfShare = 5e-13;
// Adding and taking away 1.5 * 2^52 rounds a double below 2^51 to the nearest whole number.
constexpr double kRoundingShift = 6755399441055744.0;

inline double Fmt3(double value) {
    const double thousandths = value * 1000.0;
    const double nearest = (thousandths + kRoundingShift) - kRoundingShift;
    const double size = std::fabs(thousandths);
    if (std::fabs(thousandths - nearest) + size * kOffHalfShare < 0.5)
        return kThousandths.of(nearest);
    return roundHalfAway(value, 3);
}

// Fmt3 of `count` values into `out` (which may be `in`), several at a time.
void fmt3Many(const double* in, double* out, std::size_t count);

}  // namespace ostravel
