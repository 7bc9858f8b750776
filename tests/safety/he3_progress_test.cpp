// Huffman_Progress: the stage formulas worked by hand for inputs whose sizes put the looks at
// known positions, each whole percentage given once.
#include <vector>

#include "tests/safety/he3_test_support.h"

namespace ostravel::test {
namespace {

struct Recorded {
    clsHuffman huffman;
    std::vector<int> events;
    Recorded() {
        huffman.Huffman_Progress = [this](std::int16_t percent) { events.push_back(percent); };
    }
};

QByteArray alternating(qsizetype size) {
    QByteArray bytes(size, 'a');
    for (qsizetype i = 1; i < size; i += 2) bytes[i] = 'b';
    return bytes;
}

QByteArray allValuesInTurn(qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i) bytes[i] = static_cast<char>(i % 256);
    return bytes;
}

struct ProgressCase {
    const char* name;
    QByteArray plain;
    std::vector<int> packing;
    std::vector<int> unpacking;
};

class He3Progress : public testing::TestWithParam<ProgressCase> {};

TEST_P(He3Progress, FollowsTheStages) {
    Recorded packer;
    QByteArray bytes = GetParam().plain;
    packer.huffman.EncodeByte(bytes, bytes.size());
    EXPECT_EQ(packer.events, GetParam().packing);

    Recorded unpacker;
    unpacker.huffman.DecodeByte(bytes, bytes.size());
    EXPECT_EQ(unpacker.events, GetParam().unpacking);
    EXPECT_EQ(bytes, GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(
    Stages, He3Progress,
    testing::Values(
        // 30000 bytes: counting at every 1000th byte gives i/30000*7, rounded: 0 to 7; the
        // checksum at 0, 10000, 20000 gives 7, 8.67, 10.33; coding 12, 41.33, 70.67. The packed
        // form is 3767 bytes, no coded byte at a multiple of 10000, so unpacking looks only
        // while checking: 89, 92.67, 96.33.
        ProgressCase{
            "one_bit_codes", alternating(30000), {0, 1, 2, 3, 4, 5, 6, 7, 9, 10, 12, 41, 71, 100}, {89, 93, 96, 100}},
        // 25600 bytes of 8-bit codes packed into 26380 bytes: coded bytes 10000 and 20000 give
        // 33.74 and 67.48; checking 89, 93.30, 97.59.
        ProgressCase{"eight_bit_codes",
                     allValuesInTurn(25600),
                     {0, 1, 2, 3, 4, 5, 6, 7, 9, 11, 12, 46, 81, 100},
                     {34, 67, 89, 93, 98, 100}},
        // Stored forms stop after counting, and are unpacked without a look.
        ProgressCase{"stored_one_value", QByteArray(5000, 'q'), {0, 1, 3, 4, 6}, {}},
        ProgressCase{"stored_empty", QByteArray(), {}, {}}),
    CaseName());

TEST(He3Progress, StopsBeforeTheEndOnDamage) {
    QByteArray bytes = packed(alternating(30000));
    bytes[4] = static_cast<char>(bytes.at(4) ^ 1);
    Recorded unpacker;
    EXPECT_THROW(unpacker.huffman.DecodeByte(bytes, bytes.size()), VbError);
    EXPECT_EQ(unpacker.events, (std::vector<int>{89, 93, 96}));
}

}  // namespace
}  // namespace ostravel::test
