// Fmt3: a value turned to text with the pattern "#.000" and back to a number, that is rounded to
// three decimals, halves away from zero, decided on the value's 15 significant digits. The
// calculators do it for nearly every result, so the usual case takes no text at all.
#pragma once

#include <cmath>
#include <cstddef>

#include "runtime/vbmath.h"

namespace ostravel {

inline double Fmt3(double value) {
    const double thousandths = value * 1000.0;
    // Below 1e12 thousandths the digits shown still reach the third decimal, and a value whose
    // fraction lies clearly off one half rounds the same on its 15 digits as on its bits.
    if (std::fabs(thousandths) < 1e12) {
        const double whole = std::floor(thousandths);
        const double fraction = thousandths - whole;
        if (std::fabs(fraction - 0.5) > std::fabs(thousandths) * 1e-14 + 1e-300) {
            // The quotient of two exact integers is the double nearest the decimal, as the
            // text's parse gives it; adding 0 leaves no negative zero.
            return (fraction > 0.5 ? whole + 1.0 : whole) / 1000.0 + 0.0;
        }
    }
    return roundHalfAway(value, 3);
}

// Fmt3 of `count` values into `out` (which may be `in`), several at a time.
void fmt3Many(const double* in, double* out, std::size_t count);

}  // namespace ostravel
