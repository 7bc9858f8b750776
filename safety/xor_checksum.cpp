#include "safety/xor_checksum.h"

#include <cstring>

namespace ostravel::he3 {

std::uint8_t xorOfBytes(const std::uint8_t* bytes, std::int64_t count) {
    // Eight bytes at a time in four independent words; the bytes of the result fold together
    // at the end, since XOR does not care which lane a byte went through.
    std::uint64_t lanes[4] = {0, 0, 0, 0};
    std::int64_t i = 0;
    for (; i + 32 <= count; i += 32) {
        for (int k = 0; k < 4; ++k) {
            std::uint64_t w;
            std::memcpy(&w, bytes + i + 8 * k, 8);
            lanes[k] ^= w;
        }
    }
    std::uint64_t folded = lanes[0] ^ lanes[1] ^ lanes[2] ^ lanes[3];
    folded ^= folded >> 32;
    folded ^= folded >> 16;
    folded ^= folded >> 8;
    std::uint8_t result = static_cast<std::uint8_t>(folded);
    for (; i < count; ++i) result ^= bytes[i];
    return result;
}

}  // namespace ostravel::he3
