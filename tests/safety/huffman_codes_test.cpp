// The packer's tree: which node goes left on equal weights decides every code, so each case
// is worked by hand through the merge order.
#include "safety/huffman_codes.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/safety/he3_test_support.h"

namespace ostravel::he3 {
namespace {

// A code as its path from the root, "0" left and "1" right.
std::string path(const HuffmanCode& code) {
    std::string text;
    for (int k = 0; k < code.length; ++k) text += ((code.bits >> k) & 1) ? '1' : '0';
    return text;
}

struct CodesCase {
    const char* name;
    std::map<int, std::uint64_t> counts;
    std::map<int, std::string> codes;
};

class HuffmanCodes : public testing::TestWithParam<CodesCase> {};

TEST_P(HuffmanCodes, FollowTheMergeOrder) {
    ByteCounts counts{};
    for (const auto& [value, count] : GetParam().counts) counts[value] = count;
    const CodeTable table = buildCodes(counts);
    std::map<int, std::string> got;
    for (int value = 0; value < 256; ++value)
        if (table[value].length > 0)
            got[value] = path(table[value]);
    EXPECT_EQ(got, GetParam().codes);
}

INSTANTIATE_TEST_SUITE_P(
    TieRules, HuffmanCodes,
    testing::Values(
        // A and B are the first two free nodes; A goes left.
        CodesCase{"two_values", {{97, 2}, {98, 1}}, {{97, "0"}, {98, "1"}}},
        // Equal weights pair off in index order.
        CodesCase{"four_equal", {{1, 1}, {2, 1}, {3, 1}, {4, 1}}, {{1, "00"}, {2, "01"}, {3, "10"}, {4, "11"}}},
        // Lighter than A and B, with A not lighter than B: it replaces A.
        CodesCase{"tie_replaces_a", {{0, 3}, {1, 3}, {2, 1}, {3, 1}}, {{0, "0"}, {1, "11"}, {2, "100"}, {3, "101"}}},
        // Lighter than both, with A lighter than B: it replaces B, and the heavier A goes left.
        CodesCase{"replaces_b", {{0, 2}, {1, 5}, {2, 1}}, {{0, "10"}, {1, "0"}, {2, "11"}}},
        // Lighter than A but not than B: it replaces A.
        CodesCase{"not_lighter_than_b", {{0, 5}, {1, 1}, {2, 3}}, {{0, "0"}, {1, "11"}, {2, "10"}}},
        // A lone value is a lone leaf with an empty code.
        CodesCase{"single_value", {{7, 100}}, {}}),
    test::CaseName());

TEST(HuffmanCodes, StayWithinAWordForAnyPlainSize) {
    // Counts 1, 1, 2, 3, 5, ... hang each value one level below the one before. The longest such
    // run whose total fits the format's length field has 44 values: codes of up to 43 bits.
    ByteCounts counts{};
    std::uint64_t current = 1;
    std::uint64_t following = 1;
    std::uint64_t total = 0;
    int values = 0;
    for (; total + current < (std::uint64_t{1} << 31); ++values) {
        counts[values] = current;
        total += current;
        const std::uint64_t next = current + following;
        current = following;
        following = next;
    }
    ASSERT_EQ(values, 44);
    int longest = 0;
    for (const HuffmanCode& code : buildCodes(counts)) longest = std::max(longest, code.length);
    EXPECT_EQ(longest, 43);
}

}  // namespace
}  // namespace ostravel::he3
