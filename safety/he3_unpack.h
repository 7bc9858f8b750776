// Unpacking the HE3 format and its stored variant HE0.
#pragma once

#include <QByteArray>
#include <cstdint>

#include "safety/huffman_progress.h"

namespace ostravel::he3 {

// Raises the identification error when the data starts with neither identification, and the
// checksum error when the plain data does not come out whole and with its checksum (nothing is
// returned then). Progress: 0 to 89 through the coded data, 89 to 100 while checking.
QByteArray unpack(const std::uint8_t* packed, std::int64_t length, ProgressGauge& progress);

}  // namespace ostravel::he3
