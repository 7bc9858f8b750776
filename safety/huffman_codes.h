// The packer's Huffman codes: the tree merged from the byte counts, read off as one code per
// byte value.
#pragma once

#include <array>
#include <cstdint>

namespace ostravel::he3 {

// A byte value's path from the root, 0 for left and 1 for right, its first step in the lowest
// bit of `bits`. A length of 0: the value has no code.
struct HuffmanCode {
    std::uint64_t bits = 0;
    int length = 0;
};

using ByteCounts = std::array<std::uint64_t, 256>;
using CodeTable = std::array<HuffmanCode, 256>;

// Counts that add up to less than 2^31 (the most the format's length field holds) give codes of
// at most 44 bits, so every code fits in one word. A single value that occurs gets an empty
// code: its tree is a lone leaf.
CodeTable buildCodes(const ByteCounts& counts);

}  // namespace ostravel::he3
