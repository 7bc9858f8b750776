// The import of history files by their header names, on the layouts of tests/data.
#include <gtest/gtest.h>

#include "market/history_fields.h"
#include "market/history_import.h"
#include "runtime/vbmath.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

TEST(HistoryImport, TakesEachLayoutByItsHeaderNames) {
    struct Case {
        const char* file;
        int written;
        int nullRows;
        QByteArray header;
        QByteArray first;  // the oldest day, in the program's layout
    };
    const Case cases[] = {
        {"RELIANCE.csv", 6801, 10, "Date,Open,High,Low,Close,Volume,Adj Close",
         "01/Jan/1996,15.859429,15.944529,15.754989,15.917452,48051995,10.477990"},
        {"M&M.csv", 2041, 0, "Date,Open,High,Low,Close,Volume,Adj Close",
         "02/Jan/2012,343.8999938964844,346.0,334.8999938964844,337.0,3061024.0,286.6199951171875"},
        {"TATAMOTORS.csv", 249, 0, "Date,Open,High,Low,Close,Volume", "19/Oct/2021,"},
    };
    for (const Case& c : cases) {
        const HistoryImport result =
            importHistory(readTestFile(testData(QStringLiteral("history/") + QLatin1String(c.file))));
        EXPECT_TRUE(result.error.isEmpty()) << c.file << result.error.toStdString();
        EXPECT_EQ(result.written, c.written) << c.file;
        EXPECT_EQ(result.nullRows, c.nullRows) << c.file;
        const QList<QByteArray> lines = result.file.split('\n');
        EXPECT_EQ(lines.value(0), c.header + '\r') << c.file;
        EXPECT_TRUE(lines.value(1).startsWith(c.first)) << c.file << ": " << lines.value(1).toStdString();
    }
}

TEST(HistoryImport, NewestFirstRowsComeOutOldestFirstAndBadRowsAreCounted) {
    const HistoryImport result = importHistory(
        "Volume,Close,Low,High,Open,Date\n5,4,3,2,1,2006-02-17\n5,4,3,2,1,not a date\n5,4,3,2,1,16/02/2006\n"
        "null,null,null,null,null,2006-02-15\n5,4\n");
    EXPECT_EQ(result.file, "Date,Open,High,Low,Close,Volume\r\n16/Feb/2006,1,2,3,4,5\r\n17/Feb/2006,1,2,3,4,5\r\n");
    EXPECT_EQ(importSummary(result), QStringLiteral("2 rows written, 1 null rows skipped, 2 rows refused"));
    EXPECT_EQ(importHistory("Date,Open,High,Low,Close\n").error, QStringLiteral("The file has no column \"volume\"."));
}

}  // namespace
}  // namespace ostravel::test

namespace ostravel::test {
namespace {

TEST(HistoryFields, QuickReadingsGiveWhatTheRunTimeGives) {
    for (const char* text : {"15.859429", "2.6745", "2.6755", "9.9995", "999.9999", "0.0005", "0.0015", "12", "7.1",
                             "1.23450000001", "16.600000381469727", "-3.5", "1e3", "null", "3061024.0"}) {
        const double expected = Round(Val(QString::fromLatin1(text)), 3);
        EXPECT_EQ(roundedPlainDecimal(text).value_or(expected), expected) << text;
    }
    EXPECT_TRUE(roundedPlainDecimal("15.859429").has_value());
    EXPECT_EQ(fileDayText(*isoDay("2006-02-17")), QStringLiteral("17/Feb/2006"));
    EXPECT_EQ(fileDay("17/Feb/2006"), QDate(2006, 2, 17));
    EXPECT_FALSE(isoDay("2006-02-30").has_value());
}

}  // namespace
}  // namespace ostravel::test
