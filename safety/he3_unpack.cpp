#include "safety/he3_unpack.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "runtime/vberror.h"
#include "safety/code_tree.h"
#include "safety/he3_format.h"
#include "safety/xor_checksum.h"

namespace ostravel::he3 {

static_assert(std::endian::native == std::endian::little, "the coded stream is read a word at a time");

namespace {

[[noreturn]] void raiseIdentification() {
    raise(kObjectErrorBase, identificationErrorText(), identificationErrorSource());
}

// Damage behind a good identification: a header cut short or out of range, bits that lead off
// the tree, or data that ends before the plain length is reached. The plain data can't be
// whole, so it fails as a wrong checksum would.
[[noreturn]] void raiseDamaged() {
    raise(kObjectErrorBase, checksumErrorText(), checksumErrorSource());
}

double fraction(std::int64_t position, std::int64_t length) {
    return static_cast<double>(position) / static_cast<double>(length);
}

std::uint32_t readLittleEndian(const std::uint8_t* in, int size) {
    std::uint32_t value = 0;
    for (int i = 0; i < size; ++i) value |= static_cast<std::uint32_t>(in[i]) << (8 * i);
    return value;
}

// Where the coded data is read: the next bit's position from the start of the packed bytes,
// and the next plain byte to put out.
struct Cursor {
    const std::uint8_t* in;
    std::uint64_t endBit;
    std::uint64_t bit;
    std::uint8_t* out;
    std::uint8_t* outEnd;
};

// Decodes through the lookup table, up to 12 plain bytes per refill of the bit word, while all
// of them fit, the word can be refilled from real data, and the position is below `bitLimit`.
// Stops early at a code the table can't give; the caller walks that one bit by bit.
void decodeByTable(const LookupTable& table, Cursor& c, std::uint64_t bitLimit) {
    constexpr int kLookupsPerRefill = 4;
    constexpr std::ptrdiff_t kMostPerRefill = 3 * kLookupsPerRefill;
    const std::uint8_t* in = c.in;
    const std::uint8_t* inEnd = in + (c.endBit >> 3);
    const std::uint8_t* p = in + (c.bit >> 3);
    std::uint8_t* out = c.out;
    if (p + 8 > inEnd || c.outEnd - out < kMostPerRefill || c.bit >= bitLimit)
        return;

    // The bit word holds `count` bits not yet taken, the next in its lowest bit; a refill tops
    // it up to 56 or more from the bytes at p.
    std::uint64_t word = 0;
    unsigned count = 0;
    const auto refill = [&] {
        std::uint64_t next;
        std::memcpy(&next, p, 8);
        word |= next << count;
        p += (63 - count) >> 3;
        count |= 56;
    };
    const auto position = [&] { return static_cast<std::uint64_t>(p - in) * 8 - count; };

    refill();
    word >>= c.bit & 7;
    count -= static_cast<unsigned>(c.bit & 7);
    for (;;) {
        for (int k = 0; k < kLookupsPerRefill; ++k) {
            const std::uint32_t entry = table[word];
            if (LookupTable::codesFound(entry) == 0) {
                c.bit = position();
                c.out = out;
                return;
            }
            // Four bytes go out; the one after the values found is overwritten next time.
            const std::uint32_t values = LookupTable::values(entry);
            std::memcpy(out, &values, 4);
            out += LookupTable::codesFound(entry);
            const unsigned taken = LookupTable::bitsTaken(entry);
            word >>= taken;
            count -= taken;
        }
        if (p + 8 > inEnd || c.outEnd - out < kMostPerRefill || position() >= bitLimit)
            break;
        refill();
    }
    c.bit = position();
    c.out = out;
}

enum class Walk { Decoded, RanOut, OffTheTree };

// One code, bit by bit through the tree. On OffTheTree, c.bit stands behind the bit that led
// nowhere.
Walk decodeByTree(const CodeTree& tree, Cursor& c) {
    int node = CodeTree::kRoot;
    for (;;) {
        if (c.bit >= c.endBit)
            return Walk::RanOut;
        const int bit = (c.in[c.bit >> 3] >> (c.bit & 7)) & 1;
        ++c.bit;
        node = tree.child(node, bit);
        if (node == CodeTree::kNone)
            return Walk::OffTheTree;
        const int value = tree.value(node);
        if (value != CodeTree::kNone) {
            *c.out++ = static_cast<std::uint8_t>(value);
            return Walk::Decoded;
        }
    }
}

// Progress through the coded data is looked at on every byte whose position is a multiple of
// the stride, once the decoder has begun that byte.
class DataProgress {
public:
    DataProgress(std::int64_t dataStart, std::int64_t length, ProgressGauge& gauge)
        : m_next((dataStart + kCodingStride - 1) / kCodingStride * kCodingStride), m_length(length), m_gauge(gauge) {}

    // The first bit position at which the next look is due.
    std::uint64_t dueAt() const {
        return m_next < m_length ? static_cast<std::uint64_t>(m_next) * 8 + 1
                                 : std::numeric_limits<std::uint64_t>::max();
    }
    // Every look due for bytes begun before `bit`.
    void reach(std::uint64_t bit) {
        for (; m_next < m_length && static_cast<std::uint64_t>(m_next) * 8 < bit; m_next += kCodingStride)
            m_gauge.report(fraction(m_next, m_length) * 89);
    }

private:
    std::int64_t m_next;
    std::int64_t m_length;
    ProgressGauge& m_gauge;
};

// What the coded form's header says, read and checked against the data's size.
struct CodedHeader {
    std::uint8_t checksum = 0;
    std::int32_t plainLength = 0;
    std::array<int, 256> codeLength{};
    std::int64_t codeStart = 0;
    std::int64_t dataStart = 0;
};

// Behind the identification. A plain length of 0 ends the reading: nothing more is needed.
CodedHeader readHeader(const std::uint8_t* packed, std::int64_t length) {
    CodedHeader header;
    if (length < kValueCountOffset)
        raiseDamaged();
    header.checksum = packed[kChecksumOffset];
    header.plainLength = static_cast<std::int32_t>(readLittleEndian(packed + kPlainLengthOffset, 4));
    if (header.plainLength == 0)
        return header;
    if (header.plainLength < 0 || length < kPairsOffset)
        raiseDamaged();
    const auto valueCount = static_cast<std::int16_t>(readLittleEndian(packed + kValueCountOffset, 2));
    header.codeStart = kPairsOffset + 2 * std::int64_t{valueCount};
    if (valueCount < 0 || length < header.codeStart)
        raiseDamaged();

    // A value named twice keeps its last length; a length of 0 gives it no code.
    for (int i = 0; i < valueCount; ++i)
        header.codeLength[packed[kPairsOffset + 2 * i]] = packed[kPairsOffset + 2 * i + 1];
    std::int64_t codeBits = 0;
    for (const int bits : header.codeLength) codeBits += bits;
    // The code stream's last byte is there only when it holds a bit.
    header.dataStart = header.codeStart + (codeBits + 7) / 8;
    // Every code takes a bit at least, so there can't be more plain bytes than coded bits.
    if (header.dataStart > length || header.plainLength > (length - header.dataStart) * 8)
        raiseDamaged();
    return header;
}

// Each value's code from the code stream, in rising order of value, grown into the tree.
CodeTree growTree(const std::uint8_t* packed, const CodedHeader& header) {
    CodeTree tree;
    std::int64_t bit = header.codeStart * 8;
    for (int value = 0; value < 256; ++value) {
        if (header.codeLength[value] == 0)
            continue;
        int node = CodeTree::kRoot;
        for (int k = 0; k < header.codeLength[value]; ++k, ++bit)
            node = tree.grow(node, (packed[bit >> 3] >> (bit & 7)) & 1);
        tree.mark(node, value);
    }
    return tree;
}

// Decodes the plain length into `out`: through the table where it can, code by code through
// the tree where it can't.
void decodeData(const std::uint8_t* packed, std::int64_t length, const CodedHeader& header, const CodeTree& tree,
                std::uint8_t* out, ProgressGauge& progress) {
    const LookupTable table(tree);
    Cursor cursor{packed, static_cast<std::uint64_t>(length) * 8, static_cast<std::uint64_t>(header.dataStart) * 8, out,
                  out + header.plainLength};
    DataProgress dataProgress(header.dataStart, length, progress);
    while (cursor.out < cursor.outEnd) {
        const std::uint64_t due = dataProgress.dueAt();
        decodeByTable(table, cursor, due);
        if (cursor.out < cursor.outEnd && cursor.bit < due && decodeByTree(tree, cursor) != Walk::Decoded) {
            dataProgress.reach(cursor.bit);
            raiseDamaged();
        }
        dataProgress.reach(cursor.bit);
    }
}

}  // namespace

QByteArray unpack(const std::uint8_t* packed, std::int64_t length, ProgressGauge& progress) {
    if (length < kIdentificationSize || packed[0] != kLetterH || packed[1] != kLetterE || packed[3] != kCarriageReturn)
        raiseIdentification();
    if (packed[2] == kDigitStored)
        return QByteArray(reinterpret_cast<const char*>(packed) + kIdentificationSize, length - kIdentificationSize);
    if (packed[2] != kDigitCoded)
        raiseIdentification();

    const CodedHeader header = readHeader(packed, length);
    if (header.plainLength == 0)
        return {};
    const CodeTree tree = growTree(packed, header);

    // Room behind the end for the table's four-byte stores.
    QByteArray plain(std::int64_t{header.plainLength} + 8, Qt::Uninitialized);
    decodeData(packed, length, header, tree, reinterpret_cast<std::uint8_t*>(plain.data()), progress);
    plain.resize(header.plainLength);

    const auto* result = reinterpret_cast<const std::uint8_t*>(plain.constData());
    std::uint8_t sum = 0;
    for (std::int64_t pos = 0; pos < header.plainLength; pos += kCodingStride) {
        progress.report(fraction(pos, header.plainLength) * 11 + 89);
        sum ^= xorOfBytes(result + pos, std::min(kCodingStride, header.plainLength - pos));
    }
    if (sum != header.checksum)
        raiseDamaged();
    progress.finish();
    return plain;
}

}  // namespace ostravel::he3
