#include "safety/code_tree.h"

namespace ostravel::he3 {

int CodeTree::grow(int node, int bit) {
    const int existing = child(node, bit);
    if (existing != kNone)
        return existing;
    const int made = static_cast<int>(m_nodes.size());
    m_nodes.emplace_back();
    (bit ? m_nodes[node].right : m_nodes[node].left) = made;
    return made;
}

LookupTable::LookupTable(const CodeTree& tree) {
    constexpr unsigned kMostCodes = 3;
    for (std::uint32_t index = 0; index <= kMask; ++index) {
        std::uint32_t found = 0;
        std::uint32_t values = 0;
        unsigned taken = 0;
        int node = CodeTree::kRoot;
        for (unsigned k = 0; k < kBits && found < kMostCodes; ++k) {
            node = tree.child(node, static_cast<int>((index >> k) & 1u));
            if (node == CodeTree::kNone)
                break;
            const int value = tree.value(node);
            if (value != CodeTree::kNone) {
                values |= static_cast<std::uint32_t>(value) << (8 * found);
                ++found;
                taken = k + 1;
                node = CodeTree::kRoot;
            }
        }
        m_entries[index] = taken | (found << 4) | (values << 8);
    }
}

}  // namespace ostravel::he3
