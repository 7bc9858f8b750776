// Round trips through the packer and unpacker over data of every shape the backup meets, with
// the coded stream checked against a writer that goes bit by bit.
#include <sqlite3.h>

#include <QTemporaryDir>
#include <algorithm>
#include <functional>
#include <random>
#include <vector>

#include "tests/safety/he3_test_support.h"

namespace ostravel::test {
namespace {

// The coded data the format describes, written one bit at a time from the codes in the
// packed header: the codes of the plain bytes run together, first bit lowest, then the
// closing byte with the bits left over.
QByteArray codedDataBitByBit(const QByteArray& packedBytes, const QByteArray& plain) {
    const auto at = [&](qsizetype i) { return static_cast<unsigned char>(packedBytes.at(i)); };
    const int count = at(9) | (at(10) << 8);
    std::vector<int> lengths(256, 0);
    for (int i = 0; i < count; ++i) lengths[at(11 + 2 * i)] = at(12 + 2 * i);
    qsizetype bit = (11 + 2 * count) * 8;
    std::vector<std::vector<int>> codes(256);
    for (int value = 0; value < 256; ++value)
        for (int k = 0; k < lengths[value]; ++k, ++bit) codes[value].push_back((at(bit / 8) >> (bit % 8)) & 1);
    QByteArray data;
    int filled = 0;
    char current = 0;
    for (const char c : plain) {
        for (const int b : codes[static_cast<unsigned char>(c)]) {
            current = static_cast<char>(current | (b << filled));
            if (++filled == 8) {
                data.append(current);
                current = 0;
                filled = 0;
            }
        }
    }
    data.append(current);
    return data;
}

QByteArray randomBytes(qsizetype size, const std::function<int(std::mt19937&)>& draw) {
    std::mt19937 generator(20240601);
    QByteArray bytes(size, Qt::Uninitialized);
    for (char& b : bytes) b = static_cast<char>(draw(generator));
    return bytes;
}

// Counts 1, 1, 2, 3, 5, ... make codes as deep as there are values less one: deeper than a
// table look, and too long for several to share a word.
QByteArray fibonacciCounts(int values) {
    QByteArray bytes;
    int a = 1;
    int b = 1;
    for (int value = 0; value < values; ++value) {
        bytes.append(QByteArray(a, static_cast<char>(value)));
        const int next = a + b;
        a = b;
        b = next;
    }
    std::shuffle(bytes.begin(), bytes.end(), std::mt19937(7));
    return bytes;
}

// A database as the program keeps one: real daily rows, an index, several tables.
QByteArray realDatabase() {
    QTemporaryDir folder;
    const QByteArray path = (folder.path() + QStringLiteral("/ostravel.mdb")).toUtf8();
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(path.constData(), &db), SQLITE_OK);
    sqlite3_exec(db,
                 "create table history (symbol text, tradedate text, open real, high real, low real, close real, "
                 "adjclose real, volume integer);"
                 "create index history_day on history (symbol, tradedate);"
                 "create table users (pkuser integer primary key, name text, resistance real);"
                 "insert into users values (1, 'Investor', 10);"
                 "begin;",
                 nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db, "insert into history values ('RELIANCE', ?, ?, ?, ?, ?, ?, ?)", -1, &insert, nullptr);
    const QList<QByteArray> lines = testData(QStringLiteral("history/RELIANCE.csv")).split('\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QList<QByteArray> fields = lines.at(i).split(',');
        if (fields.size() != 7)
            continue;
        sqlite3_bind_text(insert, 1, fields.at(0).constData(), static_cast<int>(fields.at(0).size()), SQLITE_TRANSIENT);
        for (int f = 1; f < 7; ++f) sqlite3_bind_double(insert, f + 1, fields.at(f).toDouble());
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(db, "commit;", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    QFile file(QString::fromUtf8(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

struct RoundTripCase {
    const char* name;
    std::function<QByteArray()> plain;
    char variant;  // '3' coded, '0' stored
};

class He3RoundTrip : public testing::TestWithParam<RoundTripCase> {};

TEST_P(He3RoundTrip, GivesBackThePlainData) {
    const QByteArray plain = GetParam().plain();
    const QByteArray result = packed(plain);
    ASSERT_GE(result.size(), 4);
    EXPECT_EQ(result.at(2), GetParam().variant);
    if (GetParam().variant == '3') {
        const QByteArray coded = codedDataBitByBit(result, plain);
        EXPECT_TRUE(result.endsWith(coded)) << "coded data differs from the bit-by-bit writer";
    }
    EXPECT_EQ(unpacked(result), plain);
}

INSTANTIATE_TEST_SUITE_P(
    Data, He3RoundTrip,
    testing::Values(
        RoundTripCase{"empty", [] { return QByteArray(); }, '0'},
        RoundTripCase{"one_value", [] { return QByteArray(70000, 'x'); }, '0'},
        RoundTripCase{"two_bytes", [] { return QByteArray("ab"); }, '3'},
        RoundTripCase{"all_256_values",
                      [] { return randomBytes(30011, [](std::mt19937& g) { return static_cast<int>(g() % 256); }); },
                      '3'},
        RoundTripCase{"text", [] { return testData(QStringLiteral("nse-equity-list.csv")); }, '3'},
        RoundTripCase{"history_csv", [] { return testData(QStringLiteral("history/RELIANCE.csv")); }, '3'},
        RoundTripCase{"database", realDatabase, '3'},
        RoundTripCase{"skewed_random",
                      [] {
                          return randomBytes(100003, [](std::mt19937& g) {
                              return std::min(255, static_cast<int>(std::geometric_distribution<int>(0.08)(g)));
                          });
                      },
                      '3'},
        RoundTripCase{"codes_three_per_word", [] { return fibonacciCounts(17); }, '3'},
        RoundTripCase{"codes_two_per_word", [] { return fibonacciCounts(24); }, '3'},
        RoundTripCase{"codes_beyond_two_per_word", [] { return fibonacciCounts(31); }, '3'},
        RoundTripCase{"stride_edge",
                      [] { return randomBytes(20000, [](std::mt19937& g) { return static_cast<int>(g() % 5); }); },
                      '3'}),
    CaseName());

TEST(He3RoundTrip, HoldsForEverySmallSize) {
    // Sizes across the unpacker's switch from table look-ups to single codes at the end.
    const QByteArray source = testData(QStringLiteral("nse-equity-list.csv")).left(300);
    for (qsizetype size = 1; size <= source.size(); ++size)
        ASSERT_EQ(unpacked(packed(source.left(size))), source.left(size)) << size;
}

}  // namespace
}  // namespace ostravel::test
