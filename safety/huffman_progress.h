// The coder's progress: a percentage, handed on only when its whole value changes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace ostravel::he3 {

using ProgressHandler = std::function<void(std::int16_t percent)>;

class ProgressGauge {
public:
    explicit ProgressGauge(const ProgressHandler& handler) : m_handler(handler) {}

    // The percentage is kept as a 16-bit integer (halves to even, as the run time stores a
    // fraction); it goes to the handler when it differs from the last one given.
    void report(double percent);
    // Gives 100 unless that was the last one given.
    void finish() { report(100.0); }

private:
    const ProgressHandler& m_handler;
    std::optional<std::int16_t> m_last;
};

}  // namespace ostravel::he3
