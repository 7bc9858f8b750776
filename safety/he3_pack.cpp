#include "safety/he3_pack.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "safety/he3_format.h"
#include "safety/huffman_codes.h"
#include "safety/xor_checksum.h"

namespace ostravel::he3 {

static_assert(std::endian::native == std::endian::little, "the coded stream is written a word at a time");

namespace {

double fraction(std::int64_t position, std::int64_t length) {
    return static_cast<double>(position) / static_cast<double>(length);
}

// Four tables of counts, so that a run of one byte value does not queue on a single counter.
using PartialCounts = std::array<std::array<std::uint32_t, 256>, 4>;

void countRange(const std::uint8_t* p, std::int64_t n, PartialCounts& t) {
    std::int64_t i = 0;
    for (; i + 8 <= n; i += 8) {
        std::uint64_t w;
        std::memcpy(&w, p + i, 8);
        ++t[0][w & 255];
        ++t[1][(w >> 8) & 255];
        ++t[2][(w >> 16) & 255];
        ++t[3][(w >> 24) & 255];
        ++t[0][(w >> 32) & 255];
        ++t[1][(w >> 40) & 255];
        ++t[2][(w >> 48) & 255];
        ++t[3][w >> 56];
    }
    for (; i < n; ++i) ++t[0][p[i]];
}

ByteCounts countBytes(const std::uint8_t* plain, std::int64_t length, ProgressGauge& progress) {
    PartialCounts partial{};
    for (std::int64_t pos = 0; pos < length; pos += kCountingStride) {
        progress.report(fraction(pos, length) * 7);
        countRange(plain + pos, std::min(kCountingStride, length - pos), partial);
    }
    ByteCounts counts{};
    for (const auto& table : partial)
        for (int value = 0; value < 256; ++value) counts[value] += table[value];
    return counts;
}

std::uint8_t checksumWithProgress(const std::uint8_t* plain, std::int64_t length, ProgressGauge& progress) {
    std::uint8_t checksum = 0;
    for (std::int64_t pos = 0; pos < length; pos += kCodingStride) {
        progress.report(fraction(pos, length) * 5 + 7);
        checksum ^= xorOfBytes(plain + pos, std::min(kCodingStride, length - pos));
    }
    return checksum;
}

// The codes as the coding loop wants them: one word and one length per byte value.
struct CodeWords {
    std::array<std::uint64_t, 256> bits{};
    std::array<std::uint8_t, 256> length{};
    int longest = 0;
};

// Bits written to the word in hand but not yet passed: fewer than 8 between calls.
struct PendingBits {
    std::uint64_t bits = 0;
    unsigned count = 0;
};

// Appends the codes of n plain bytes. The word in hand is stored whole after every
// kCodesPerStore codes and the output moves on by its complete bytes, so the caller leaves 8
// bytes of room behind the output's end.
template <int kCodesPerStore>
std::uint8_t* putCodes(const std::uint8_t* in, std::int64_t n, const CodeWords& words, std::uint8_t* out,
                       PendingBits& pending) {
    std::uint64_t bits = pending.bits;
    unsigned count = pending.count;
    const auto put = [&](std::uint8_t value) {
        bits |= words.bits[value] << count;
        count += words.length[value];
    };
    const auto store = [&] {
        std::memcpy(out, &bits, 8);
        out += count >> 3;
        bits >>= count & 56;
        count &= 7;
    };
    std::int64_t i = 0;
    for (; i + kCodesPerStore <= n; i += kCodesPerStore) {
        for (int k = 0; k < kCodesPerStore; ++k) put(in[i + k]);
        store();
    }
    for (; i < n; ++i) {
        put(in[i]);
        store();
    }
    pending = {bits, count};
    return out;
}

using PutCodes = std::uint8_t* (*)(const std::uint8_t*, std::int64_t, const CodeWords&, std::uint8_t*, PendingBits&);

// As many codes per store as always fit the 64-bit word beside up to 7 pending bits.
PutCodes putCodesFor(int longest) {
    if (longest * 4 <= 56)
        return putCodes<4>;
    if (longest * 3 <= 56)
        return putCodes<3>;
    if (longest * 2 <= 56)
        return putCodes<2>;
    return putCodes<1>;
}

void putLittleEndian(std::uint8_t* out, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) out[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

QByteArray stored(const std::uint8_t* plain, std::int64_t length) {
    QByteArray out(kIdentificationSize + length, Qt::Uninitialized);
    auto* o = reinterpret_cast<std::uint8_t*>(out.data());
    const std::uint8_t identification[] = {kLetterH, kLetterE, kDigitStored, kCarriageReturn};
    std::memcpy(o, identification, kIdentificationSize);
    if (length > 0)
        std::memcpy(o + kIdentificationSize, plain, static_cast<std::size_t>(length));
    return out;
}

}  // namespace

QByteArray pack(const std::uint8_t* plain, std::int64_t length, ProgressGauge& progress) {
    if (length == 0)
        return stored(plain, 0);

    const ByteCounts counts = countBytes(plain, length, progress);
    const CodeTable codes = buildCodes(counts);

    CodeWords words;
    std::int64_t totalBits = 0;
    std::int64_t codeStreamBits = 0;
    int valueCount = 0;
    for (int value = 0; value < 256; ++value) {
        words.bits[value] = codes[value].bits;
        words.length[value] = static_cast<std::uint8_t>(codes[value].length);
        words.longest = std::max(words.longest, codes[value].length);
        totalBits += static_cast<std::int64_t>(counts[value]) * codes[value].length;
        codeStreamBits += codes[value].length;
        valueCount += counts[value] > 0 ? 1 : 0;
    }
    const std::int64_t codedSize = totalBits / 8 + (totalBits % 8 != 0 ? 1 : 0);
    if (codedSize > length || codedSize == 0)
        return stored(plain, length);

    const std::uint8_t checksum = checksumWithProgress(plain, length, progress);

    const std::int64_t headerSize = kPairsOffset + 2 * valueCount + (codeStreamBits + 7) / 8;
    // Kept: the coded data closes with the byte of the bits left over, written even when it is
    // empty, so that data ending on a byte edge gets a further 0 byte.
    const std::int64_t dataSize = totalBits / 8 + 1;
    QByteArray result(headerSize + dataSize + 8, Qt::Uninitialized);
    auto* out = reinterpret_cast<std::uint8_t*>(result.data());

    const std::uint8_t identification[] = {kLetterH, kLetterE, kDigitCoded, kCarriageReturn};
    std::memcpy(out, identification, kIdentificationSize);
    out[kChecksumOffset] = checksum;
    putLittleEndian(out + kPlainLengthOffset, static_cast<std::uint32_t>(length), 4);
    putLittleEndian(out + kValueCountOffset, static_cast<std::uint32_t>(valueCount), 2);
    std::uint8_t* o = out + kPairsOffset;
    std::vector<std::uint8_t> occurring;
    for (int value = 0; value < 256; ++value) {
        if (codes[value].length == 0)
            continue;
        occurring.push_back(static_cast<std::uint8_t>(value));
        *o++ = static_cast<std::uint8_t>(value);
        *o++ = static_cast<std::uint8_t>(codes[value].length);
    }

    // The code stream holds the codes of the occurring values in rising order, as if they were
    // data; its last byte is written only when it holds a bit.
    PendingBits pending;
    o = putCodes<1>(occurring.data(), static_cast<std::int64_t>(occurring.size()), words, o, pending);
    if (pending.count > 0)
        *o++ = static_cast<std::uint8_t>(pending.bits);
    pending = {};
    Q_ASSERT(o == out + headerSize);

    const PutCodes putData = putCodesFor(words.longest);
    for (std::int64_t pos = 0; pos < length; pos += kCodingStride) {
        progress.report(fraction(pos, length) * 88 + 5 + 7);
        o = putData(plain + pos, std::min(kCodingStride, length - pos), words, o, pending);
    }
    *o++ = static_cast<std::uint8_t>(pending.bits);
    Q_ASSERT(o == out + headerSize + dataSize);

    result.resize(headerSize + dataSize);
    progress.finish();
    return result;
}

}  // namespace ostravel::he3
