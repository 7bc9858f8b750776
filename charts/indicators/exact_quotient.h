// A division by a whole number known in advance, as two products and a sum: the reciprocal split
// in a head of few bits, whose product with the dividend is exact, and the double nearest the rest.
#pragma once

#include <bit>
#include <cstdint>

namespace ostravel {

// The quotient of a dividend of at most 53 significant bits by a whole d is a double, or lies at
// least 1/(2 d) of its last place off any halfway point between doubles. The sum of the products
// misses it, before its own rounding, by less than 2^-(headBits + 51) of its size. So where the
// dividend's bits and the head's fit in 53, d is at most 2^(headBits - 3), and no product falls
// below the normal doubles, the sum is the double nearest the quotient, as the division gives it.
class ExactQuotient {
public:
    constexpr ExactQuotient(double divisor, int headBits)
        : m_head(std::bit_cast<double>(std::bit_cast<std::uint64_t>(1.0 / divisor) &
                                       ~((std::uint64_t{1} << (53 - headBits)) - 1))),
          m_tail((1.0 - divisor * m_head) / divisor) {}

    // A divisor that is a power of two leaves no rest, and an infinite dividend times a rest of 0
    // would be no number.
    double of(double dividend) const { return m_tail == 0 ? dividend * m_head : dividend * m_head + dividend * m_tail; }
    constexpr double head() const { return m_head; }
    constexpr double tail() const { return m_tail; }

private:
    double m_head;
    double m_tail;
};

}  // namespace ostravel
