#include "safety/huffman_codes.h"

#include <cassert>
#include <vector>

namespace ostravel::he3 {

namespace {

constexpr int kNone = -1;

struct TreeNode {
    int parent = kNone;
    int left = kNone;
    int right = kNone;
    int value = kNone;
    std::uint64_t weight = 0;
};

// The two lightest free nodes, A before B, found with the packer's order of tests; which of
// two equal weights wins decides every code, so the order below is part of the format.
std::pair<int, int> twoLightestFree(const std::vector<TreeNode>& nodes) {
    int a = kNone;
    int b = kNone;
    for (int j = 0; j < static_cast<int>(nodes.size()); ++j) {
        if (nodes[j].parent != kNone)
            continue;
        const std::uint64_t w = nodes[j].weight;
        if (a == kNone) {
            a = j;
        } else if (b == kNone) {
            b = j;
        } else if (w < nodes[a].weight) {
            if (!(w < nodes[b].weight))
                a = j;
            else if (nodes[a].weight < nodes[b].weight)
                b = j;
            else
                a = j;
        } else if (w < nodes[b].weight) {
            b = j;
        }
    }
    return {a, b};
}

void readCodes(const std::vector<TreeNode>& nodes, int node, std::uint64_t path, int depth, CodeTable& codes) {
    const TreeNode& n = nodes[node];
    if (n.value != kNone) {
        codes[n.value] = {path, depth};
        return;
    }
    assert(depth < 64);
    readCodes(nodes, n.left, path, depth + 1, codes);
    readCodes(nodes, n.right, path | (std::uint64_t{1} << depth), depth + 1, codes);
}

}  // namespace

CodeTable buildCodes(const ByteCounts& counts) {
    std::vector<TreeNode> nodes;
    nodes.reserve(511);
    for (int value = 0; value < 256; ++value)
        if (counts[value] > 0)
            nodes.push_back({kNone, kNone, kNone, value, counts[value]});

    CodeTable codes{};
    if (nodes.empty())
        return codes;

    for (std::size_t free = nodes.size(); free > 1; --free) {
        const auto [a, b] = twoLightestFree(nodes);
        const int made = static_cast<int>(nodes.size());
        nodes.push_back({kNone, a, b, kNone, nodes[a].weight + nodes[b].weight});
        nodes[a].parent = made;
        nodes[b].parent = made;
    }
    readCodes(nodes, static_cast<int>(nodes.size()) - 1, 0, 0, codes);
    return codes;
}

}  // namespace ostravel::he3
