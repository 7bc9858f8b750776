// Random decimal digits for the tests that lay numbers out by hand from what is written.
#pragma once

#include <random>
#include <string>

namespace ostravel::test {

// Up to `most` digits, each 0 to 9; maybe none.
inline std::string randomDigits(std::mt19937& random, int most) {
    std::string digits;
    for (int n = std::uniform_int_distribution<int>(0, most)(random); n > 0; --n)
        digits += char('0' + std::uniform_int_distribution<int>(0, 9)(random));
    return digits;
}

}  // namespace ostravel::test
