#include "safety/huffman_progress.h"

#include "runtime/vbmath.h"

namespace ostravel::he3 {

void ProgressGauge::report(double percent) {
    if (!m_handler)
        return;
    const std::int16_t whole = toInteger(percent);
    if (m_last == whole)
        return;
    m_last = whole;
    m_handler(whole);
}

}  // namespace ostravel::he3
