// The format's checksum: the XOR of all plain bytes.
#pragma once

#include <cstdint>

namespace ostravel::he3 {

std::uint8_t xorOfBytes(const std::uint8_t* bytes, std::int64_t count);

}  // namespace ostravel::he3
