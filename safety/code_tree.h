// The unpacker's code tree, grown from the codes in the HE3 header, and a lookup table made
// from it that decodes up to three codes at once.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace ostravel::he3 {

class CodeTree {
public:
    static constexpr int kRoot = 0;
    static constexpr int kNone = -1;

    CodeTree() : m_nodes(1) {}

    // The child of `node` on `bit` (1 right, 0 left), made when missing.
    int grow(int node, int bit);
    // Marks the node a code ends on with its byte value; a later code on the same path wins.
    void mark(int node, int value) { m_nodes[node].value = static_cast<std::int16_t>(value); }

    // The child on `bit`, or kNone.
    int child(int node, int bit) const { return bit ? m_nodes[node].right : m_nodes[node].left; }
    // The byte value a code ends on here, or kNone.
    int value(int node) const { return m_nodes[node].value; }

private:
    struct Node {
        std::int32_t left = kNone;
        std::int32_t right = kNone;
        std::int16_t value = kNone;
    };
    std::vector<Node> m_nodes;
};

// One entry for each possible next kBits bits of coded data: the codes that end within them,
// walked as the tree does (a node that holds a value ends a code, even if it has children).
class LookupTable {
public:
    static constexpr int kBits = 12;
    static constexpr std::uint32_t kMask = (1u << kBits) - 1;

    explicit LookupTable(const CodeTree& tree);

    // Bits 0-3: bits taken; bits 4-5: codes found (0 when the next code is longer than kBits
    // or leads off the tree, and must be walked bit by bit); bytes 1-3: their values in order.
    std::uint32_t operator[](std::uint64_t nextBits) const { return m_entries[nextBits & kMask]; }

    static unsigned bitsTaken(std::uint32_t entry) { return entry & 15u; }
    static unsigned codesFound(std::uint32_t entry) { return (entry >> 4) & 3u; }
    static std::uint32_t values(std::uint32_t entry) { return entry >> 8; }

private:
    std::array<std::uint32_t, std::size_t{1} << kBits> m_entries{};
};

}  // namespace ostravel::he3
