// The HE3 bytes themselves: small inputs worked by hand through the format, the stored
// variant, and the errors that damaged or foreign data raise.
#include <QString>

#include "tests/safety/he3_test_support.h"

namespace ostravel::test {
namespace {

struct WorkedCase {
    const char* name;
    QByteArray plain;
    QByteArray packed;
};

class He3WorkedBytes : public testing::TestWithParam<WorkedCase> {};

TEST_P(He3WorkedBytes, PackAsWorkedByHand) {
    EXPECT_EQ(packed(GetParam().plain).toHex(' '), GetParam().packed.toHex(' '));
}

TEST_P(He3WorkedBytes, UnpackToThePlainData) {
    EXPECT_EQ(unpacked(GetParam().packed), GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(
    Format, He3WorkedBytes,
    testing::Values(
        // a "0", b "1"; data bits 0 0 1 stay in the closing byte.
        WorkedCase{"aab", QByteArray("aab"),
                   bytesOf({72, 69, 51, 13, 0x62, 3, 0, 0, 0, 2, 0, 97, 1, 98, 1, 0x02, 0x04})},
        // Four 2-bit codes: both streams end on a byte edge, so the data closes with a 0 byte.
        WorkedCase{"KeptClosingZeroByteOnAByteEdge", QByteArray("abcd"),
                   bytesOf({72, 69, 51, 13, 0x04, 4, 0, 0, 0, 4, 0, 97, 2, 98, 2, 99, 2, 100, 2, 0xD8, 0xD8, 0x00})},
        // Codes 0, 11, 100, 101: nine code bits spill into a second byte.
        WorkedCase{"ties", bytesOf({0, 0, 0, 1, 1, 1, 2, 3}),
                   bytesOf({72, 69, 51, 13, 0x00, 8, 0, 0, 0, 4, 0, 0, 1, 1, 2, 2, 3, 3, 3, 0x4E, 0x01, 0xF8, 0x53})},
        // Codes 10, 0, 11: the heavier node stays left.
        WorkedCase{"heavier_left", bytesOf({0, 0, 1, 1, 1, 1, 1, 2}),
                   bytesOf({72, 69, 51, 13, 0x03, 8, 0, 0, 0, 3, 0, 0, 2, 1, 1, 2, 2, 0x19, 0x05, 0x06})},
        WorkedCase{"empty_is_stored", QByteArray(), bytesOf({72, 69, 48, 13})},
        // One value gives a coded size of 0, so the data is stored.
        WorkedCase{"one_value_is_stored", QByteArray("zzzz"), bytesOf({72, 69, 48, 13, 'z', 'z', 'z', 'z'})}),
    CaseName());

TEST(He3Packing, CodesAllByteValuesEquallyFrequentAtTheirFullSize) {
    // Every code comes to 8 bits: the coded size equals the input's, which is not above it.
    QByteArray plain;
    for (int i = 0; i < 512; ++i) plain.append(static_cast<char>(i % 256));
    const QByteArray result = packed(plain);
    ASSERT_EQ(result.left(4), bytesOf({72, 69, 51, 13}));
    EXPECT_EQ(result.size(), 11 + 2 * 256 + 256 + 512 + 1);
    for (int value = 0; value < 256; ++value) {
        EXPECT_EQ(static_cast<unsigned char>(result.at(11 + 2 * value)), value);
        EXPECT_EQ(result.at(12 + 2 * value), 8);
    }
    EXPECT_EQ(unpacked(result), plain);
}

TEST(He3Packing, CodesOnlyTheCountGiven) {
    QByteArray bytes("aabXYZ");
    clsHuffman huffman;
    huffman.EncodeByte(bytes, 3);
    EXPECT_EQ(bytes, packed("aab"));
}

TEST(He3Unpacking, GivesThePlainLengthAndNoMore) {
    EXPECT_EQ(unpacked(bytesOf({72, 69, 51, 13, 0x55, 0, 0, 0, 0})), QByteArray());
    EXPECT_EQ(unpacked(packed("aab") + "trailing"), QByteArray("aab"));
}

class He3Identification : public testing::TestWithParam<QByteArray> {};

TEST_P(He3Identification, RaisesTheIdentificationError) {
    expectUnpackError(GetParam(), "HuffmanDecode()", kIdentificationError);
}

INSTANTIATE_TEST_SUITE_P(Foreign, He3Identification,
                         testing::Values(bytesOf({72, 69, 49, 13, 0x62, 3, 0, 0, 0}),  // "HE1"
                                         bytesOf({72, 69, 51, 10}), bytesOf({72, 70, 51, 13}),
                                         bytesOf({73, 69, 48, 13}), bytesOf({72, 69, 48}), QByteArray()));

struct DamagedCase {
    const char* name;
    QByteArray bytes;
};

class He3Damaged : public testing::TestWithParam<DamagedCase> {};

TEST_P(He3Damaged, RaisesTheChecksumError) {
    expectUnpackError(GetParam().bytes, "clsHuffman.Decode()", kChecksumError);
}

QByteArray packedText() {
    return packed(QByteArray("the quick brown fox jumps over the lazy dog").repeated(40));
}

QByteArray withByte(QByteArray bytes, qsizetype at, int value) {
    bytes[at] = static_cast<char>(value);
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Damage, He3Damaged,
    testing::Values(
        DamagedCase{"changed_checksum", withByte(packed("aab"), 4, 0x61)},
        // Data bits 1 0 1 read "bab".
        DamagedCase{"changed_coded_byte", withByte(packed("aab"), 16, 0x05)},
        DamagedCase{"truncated_half", packedText().chopped(packedText().size() / 2)},
        DamagedCase{"truncated_last_code", packed("aab").chopped(1)},
        DamagedCase{"cut_in_length", bytesOf({72, 69, 51, 13, 0x62, 3, 0})},
        DamagedCase{"cut_in_pairs", packed("aab").left(13)}, DamagedCase{"cut_in_codes", packed("abcd").left(19)},
        DamagedCase{"negative_length", bytesOf({72, 69, 51, 13, 0, 0, 0, 0, 0x80, 2, 0, 97, 1, 98, 1, 2, 4})},
        DamagedCase{"negative_count", bytesOf({72, 69, 51, 13, 0x62, 3, 0, 0, 0, 0xFF, 0xFF, 2, 4})},
        // Code "0" alone, and the data's first bit is a 1: it leads off the tree.
        DamagedCase{"off_the_tree", bytesOf({72, 69, 51, 13, 97, 1, 0, 0, 0, 1, 0, 97, 1, 0x00, 0x01})},
        // More plain bytes than there are coded bits.
        DamagedCase{"length_beyond_data", bytesOf({72, 69, 51, 13, 0, 0x11, 0, 0, 0, 2, 0, 97, 1, 98, 1, 2, 4, 0})}),
    CaseName());

TEST(He3Damage, LeavesTheArrayAsItWas) {
    QByteArray bytes = packed("aab");
    bytes[4] = 0;
    const QByteArray before = bytes;
    clsHuffman huffman;
    EXPECT_THROW(huffman.DecodeByte(bytes, bytes.size()), VbError);
    EXPECT_EQ(bytes, before);
}

TEST(He3Strings, PassPackedBytesThroughText) {
    clsHuffman huffman;
    const QString text = QStringLiteral("Trade Histroy of RELIANCE: Rs. 1,234.50 \u00b1\u00bd caf\u00e9");
    const QString packedString = huffman.EncodeString(text);
    EXPECT_EQ(packedString.toLatin1(), packed(text.toLatin1()));
    EXPECT_EQ(huffman.DecodeString(packedString), text);
}

}  // namespace
}  // namespace ostravel::test
