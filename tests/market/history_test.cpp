// The history download, its file and its load: the URL of each page, the file's bytes from
// the service's answers, StockData and simulation from the file, and every bad answer.
#include "market/history.h"

#include <QDate>
#include <QDir>
#include <QFile>

#include "market/getfrominet.h"
#include "market/load_history.h"
#include "market/parse_history.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

using Kind = ServiceReply::Kind;

class HistoryTest : public MarketTest {
protected:
    HistoryState& h = m_program.module<HistoryState>();
    void writeHistory(const QString& symbol, const QByteArray& bytes) {
        QFile file(m_folder.file(QStringLiteral("history/daily/") + symbol + QStringLiteral(".csv")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

// The worked example, its suffix removed in its exact case only.
TEST_F(HistoryTest, ConstructUrlMakesTheWorkedExampleAndTakesTheSuffixOffInItsExactCaseOnly) {
    const std::pair<QString, QString> cases[] = {
        {"HDFC", "HDFC.NS"}, {"hdfc.NS", "hdfc.NS"}, {"hdfc", "hdfc.NS"}, {"hdfc.ns", "hdfc.ns.NS"}};
    for (const auto& [code, symbol] : cases) {
        choose(code, QDate(2002, 2, 1), QDate(2006, 2, 17));
        h.HistoryOffset = 200;
        ConstructURL(m_program);
        EXPECT_EQ(h.HistoryURL,
                  QStringLiteral("http://127.0.0.1/table.csv?s=%1&a=1&b=1&c=2002&d=1&e=17&f=2006&g=d&z=66&"
                                 "y=200&ignore=.csv")
                      .arg(symbol));
    }
    EXPECT_TRUE(historyFilePath(m_program.frame()).endsWith(QStringLiteral("/history/daily/hdfc.ns.csv")));
}

TEST_F(HistoryTest, PagesRoundToEvenAndTheFirstRequestCountsForOne) {
    const std::pair<int, int> cases[] = {{99, 1}, {100, 1}, {200, 1}, {300, 2}, {1500, 8}};
    for (const auto& [days, requests] : cases) {
        m_service.clearRequests();
        choose(QStringLiteral("RELIANCE.NS"), QDate(2022, 1, 1), QDate(2022, 1, 1).addDays(days));
        getinternetdata(m_program);
        const auto sent = m_service.requests();
        ASSERT_EQ(sent.size(), static_cast<std::size_t>(requests)) << days;
        EXPECT_EQ(sent.back().value(QStringLiteral("y")), QString::number((requests - 1) * 200)) << days;
    }
}

TEST_F(HistoryTest, EightPagesMakeOneFileOldestFirstWithoutTheirHeaders) {
    choose(QStringLiteral("RELIANCE.NS"), QDate(2017, 1, 1), QDate(2017, 1, 1).addDays(1500));
    getinternetdata(m_program);
    EXPECT_EQ(m_program.frame().caption, kReady);
    const QList<QByteArray> lines = historyFile(QStringLiteral("RELIANCE")).split('\n');
    EXPECT_EQ(lines.front(), "Date,Open,High,Low,Close,Volume,Adj Close\r");
    EXPECT_EQ(lines.count("Date,Open,High,Low,Close,Volume,Adj Close\r"), 1);
    // 1500 days from 1 Jan 2017 hold more than 1000 trading days; 8 pages bring the newest 1600.
    EXPECT_TRUE(lines.at(1).startsWith("02/Jan/2017,")) << lines.at(1).toStdString();
    EXPECT_TRUE(lines.at(lines.size() - 2).startsWith("09/Feb/2021,")) << lines.at(lines.size() - 2).toStdString();
    EXPECT_TRUE(historyFile(QStringLiteral("RELIANCE")).endsWith("\r\n"));
}

TEST_F(HistoryTest, ParseKeepsTheFilteredLinesInTheProgramsOrder) {
    struct Case {
        const char* name;
        QByteArray answer;
        QByteArray file;
    };
    const Case cases[] = {
        {"CR LF answer: a comma header before the CSV survives",
         "HTTP/1.1 200 OK\r\nDate: Mon, 1 Jan 2007 GMT\r\nX-Odd: a,b\r\nP3P: a,b\r\n\r\nDate,Open\r\n2006-02-17,1\r\n"
         "2006-02-16,2\r\n",
         "Date,Open\r\n16/Feb/2006,2\r\n17/Feb/2006,1\r\nX-Odd: a,b\r\n\r\n"},
        {"LF answer, two pages, a row that is no date",
         "HTTP/1.1 200 OK\nDate: x GMT\n\nDate,Open\n2006-02-17,1\nabc,9\nHTTP/1.1 200 OK\nDate: y GMT\nP3P: p,q\n\n"
         "Date,Open\n2006-02-15,3\n",
         "Date,Open\r\n15/Feb/2006,3\r\nabc,9\r\n17/Feb/2006,1\r\n"},
    };
    for (const Case& c : cases) EXPECT_EQ(historyFileBytes(c.answer).value_or("none"), c.file) << c.name;
}

TEST_F(HistoryTest, EveryBadAnswerEndsWithItsCaptionAndNoHalfFile) {
    struct Case {
        const char* name;
        QByteArray bytes;
        QString caption;
        bool oldFileKept;
    };
    const QByteArray garbage = [] {
        QByteArray b(64 * 1024, '\0');
        for (qsizetype i = 0; i < b.size(); ++i) b[i] = static_cast<char>((i * 7919) % 251);
        return b;
    }();
    const Case cases[] = {
        {"0 bytes", "", kLengthBelow20, true},
        {"19 characters", QByteArray(19, 'x'), kLengthBelow20, true},
        {"20 characters, no Date", QByteArray(20, 'x'), kDateNotFound, false},
        {"binary garbage", garbage, kDateNotFound, false},
        {"error page holding Date", httpAnswer(404, "text/html", "<html>Not found</html>"), kReady, false},
        {"50 MB", httpAnswer(200, "text/csv", QByteArray(50 * 1024 * 1024, 'z')), kReady, false},
    };
    const QByteArray old = readTestFile(testData(QStringLiteral("history/RELIANCE.csv")));
    for (const Case& c : cases) {
        m_service.route(QStringLiteral("/table.csv"), [&](const ServiceRequest&) { return ServiceReply{c.bytes}; });
        writeHistory(QStringLiteral("RELIANCE"), old);
        choose(QStringLiteral("RELIANCE.NS"), QDate(2022, 1, 1), QDate(2022, 2, 1));
        getinternetdata(m_program);
        EXPECT_EQ(m_program.frame().caption, c.caption) << c.name;
        const QByteArray now = historyFile(QStringLiteral("RELIANCE"));
        if (c.oldFileKept)
            EXPECT_EQ(now, old) << c.name;
        else
            EXPECT_NE(now, old) << c.name;
        EXPECT_TRUE(QDir(m_folder.file(QStringLiteral("history/daily"))).entryList(QDir::Hidden | QDir::Files).size() <=
                    1)
            << c.name;
    }
}

TEST_F(HistoryTest, KeptOldHistoryDeletedBeforeTheAnswerIsKnown) {
    writeHistory(QStringLiteral("INFY"), "Date,Open\r\n");
    m_program.frame().cmbequity = QStringLiteral("INFY.NS");
    h.DataBuffer = QByteArray(40, '?');
    ParseAndSaveData(m_program);
    EXPECT_EQ(m_program.frame().caption, kDateNotFound);
    EXPECT_FALSE(QFile::exists(m_folder.file(QStringLiteral("history/daily/INFY.csv"))));
}

TEST_F(HistoryTest, LoadFillsStockDataAndSimulationAlike) {
    choose(QStringLiteral("RELIANCE.NS"), QDate(1996, 1, 1), QDate(2023, 1, 16));
    h.DataBuffer = httpAnswer(200, "text/csv", readTestFile(testData(QStringLiteral("history/RELIANCE.csv"))));
    ParseAndSaveData(m_program);
    ASSERT_TRUE(LoadHistoryFile(m_program));
    EXPECT_EQ(m_program.frame().caption, QStringLiteral("Got history of RELIANCE From File"));
    // 6811 rows, the header aside; the file is oldest first, as the test file is newest last.
    ASSERT_EQ(h.LastIdx, 6810);
    const StockRecord& last = h.StockData.front();
    EXPECT_EQ(last.Date, QStringLiteral("16/01/2023"));
    EXPECT_EQ(h.StockData.back().Date, QStringLiteral("01/01/1996"));
    EXPECT_DOUBLE_EQ(h.StockData.back().Open, 15.859);
    EXPECT_EQ(h.StockData.back().Volume, 10);  // the sixth field is Adj Close in this layout
    auto rs = m_program.store().database().openRecordset(QStringLiteral("select count(*), min(Close) from simulation"));
    EXPECT_EQ(rs->field(0).toLong(), 6811);  // "null" reads as 0, so those rows load too
    EXPECT_EQ(rs->field(1).toDouble(), 0);
}

TEST_F(HistoryTest, LoadRulesForShortFilesEmptyFieldsAndNoFile) {
    const QByteArray pad(520, ' ');
    writeHistory(QStringLiteral("A"), "Date,Open,High,Low,Close,Volume\r\n17/Feb/2006,1,2,3,4,5\r\n");
    writeHistory(QStringLiteral("B"),
                 "Date,O,H,L,C,V," + pad + "\r\n17/Feb/2006,1,,3,4,5\r\n18/Feb/2006,1,2,3,4,5\r\n");
    m_program.frame().cmbequity = QStringLiteral("A");
    EXPECT_FALSE(LoadHistoryFile(m_program));
    EXPECT_EQ(m_program.frame().caption, kHistoryEmpty);

    m_program.frame().cmbequity = QStringLiteral("B");
    ASSERT_TRUE(LoadHistoryFile(m_program));
    ASSERT_EQ(h.StockData.size(), 2u);
    EXPECT_EQ(h.StockData[0].Open, 1);
    EXPECT_EQ(h.StockData[0].High, 0);
    EXPECT_EQ(h.StockData[0].Close, 0);
    EXPECT_EQ(m_program.store().database().rowCount(QStringLiteral("simulation")), 1);

    m_program.frame().cmbequity = QStringLiteral("missing");
    m_prompt.answerText(m_folder.file(QStringLiteral("history/daily/B.csv")));
    EXPECT_TRUE(LoadHistoryFile(m_program));
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("B"));
    m_program.frame().cmbequity = QStringLiteral("missing");
    m_prompt.answerText(QStringLiteral("/elsewhere/abc"));
    OpenDataFile(m_program);
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("???"));
}

}  // namespace
}  // namespace ostravel::test
