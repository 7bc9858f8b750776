// Packing bytes into the HE3 format, or into its stored variant HE0 when coding would not
// shrink them.
#pragma once

#include <QByteArray>
#include <cstdint>

#include "safety/huffman_progress.h"

namespace ostravel::he3 {

// The largest plain size the format's signed 32-bit length field holds.
constexpr std::int64_t kMaxPlainSize = 2147483647;

// `length` is at most kMaxPlainSize. Progress: 0 to 7 while counting, 7 to 12 while summing
// the checksum, 12 to 100 while coding.
QByteArray pack(const std::uint8_t* plain, std::int64_t length, ProgressGauge& progress);

}  // namespace ostravel::he3
