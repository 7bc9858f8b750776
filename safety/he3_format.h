// The HE3 backup format's fixed parts: identification strings, header layout and the errors
// the coder raises, with their sources and texts.
#pragma once

#include <QString>
#include <cstdint>

namespace ostravel::he3 {

// "HE3" and "HE0" each followed by a carriage return; HE0 holds the plain data unchanged.
constexpr std::uint8_t kLetterH = 72;
constexpr std::uint8_t kLetterE = 69;
constexpr std::uint8_t kDigitCoded = 51;   // '3'
constexpr std::uint8_t kDigitStored = 48;  // '0'
constexpr std::uint8_t kCarriageReturn = 13;
constexpr int kIdentificationSize = 4;

// Offsets of the coded form's header; the pairs (byte value, code length) follow it.
constexpr int kChecksumOffset = 4;
constexpr int kPlainLengthOffset = 5;
constexpr int kValueCountOffset = 9;
constexpr int kPairsOffset = 11;

// Progress is looked at every this many bytes while counting, and while checking or coding.
constexpr std::int64_t kCountingStride = 1000;
constexpr std::int64_t kCodingStride = 10000;

// The object error base: the number every error of the coder carries.
constexpr int kObjectErrorBase = -2147221504;  // 0x80040000

inline QString identificationErrorSource() {
    return QStringLiteral("HuffmanDecode()");
}
inline QString identificationErrorText() {
    return QStringLiteral(
        "The data either was not compressed with HE3 or is corrupt (identification string not found)");
}
inline QString checksumErrorSource() {
    return QStringLiteral("clsHuffman.Decode()");
}
inline QString checksumErrorText() {
    return QStringLiteral("The data might be corrupted (checksum did not match expected value)");
}

}  // namespace ostravel::he3
