// Helpers shared by the HE3 tests: byte arrays from lists, one-call packing and unpacking, and
// the error the coder raised.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <string>

#include "runtime/vberror.h"
#include "safety/clshuffman.h"
#include "tests/support/qstring_printer.h"
#include "tests/support/raised.h"

// Bytes in failure messages in hex.
inline void PrintTo(const QByteArray& bytes, std::ostream* os) {
    *os << bytes.toHex(' ').toStdString();
}

namespace ostravel::test {

// Names each case of a parameterised test by its `name` field.
struct CaseName {
    template <class Case>
    std::string operator()(const testing::TestParamInfo<Case>& param) const {
        return param.param.name;
    }
};

inline QByteArray bytesOf(std::initializer_list<int> values) {
    QByteArray bytes;
    for (const int v : values) bytes.append(static_cast<char>(v));
    return bytes;
}

inline QByteArray packed(QByteArray bytes) {
    clsHuffman huffman;
    huffman.EncodeByte(bytes, bytes.size());
    return bytes;
}

inline QByteArray unpacked(QByteArray bytes) {
    clsHuffman huffman;
    huffman.DecodeByte(bytes, bytes.size());
    return bytes;
}

inline const QString kIdentificationError =
    QStringLiteral("The data either was not compressed with HE3 or is corrupt (identification string not found)");
inline const QString kChecksumError =
    QStringLiteral("The data might be corrupted (checksum did not match expected value)");
constexpr int kObjectError = -2147221504;

// Unpacking `bytes` raises the coder's object error from `source` with `description`.
inline void expectUnpackError(const QByteArray& bytes, const char* source, const QString& description) {
    const auto error = raised([&] { unpacked(bytes); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->number(), kObjectError);
    EXPECT_EQ(error->source(), QString::fromLatin1(source));
    EXPECT_EQ(error->description(), description);
}

inline QByteArray testData(const QString& name) {
    QFile file(qEnvironmentVariable("OSTRAVEL_TEST_DATA") + QLatin1Char('/') + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

}  // namespace ostravel::test
