// clsStockQuote against the loopback quote service: the request and its rows, the answers too
// short to take, the lines of no data, the volume's grouping and the screeners' thin-stock filter.
#include <QFile>

#include "market/clsstockquote.h"
#include "market/history.h"
#include "runtime/apppath.h"
#include "runtime/vbdate.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

class QuoteTest : public MarketTest {
protected:
    QuoteTables& tables() { return m_program.module<QuoteTables>(); }
    // The quote route answers with these lines, a body of exactly these bytes.
    void answerLines(const QByteArray& body) {
        m_service.route(QStringLiteral("/d/quotes.csv"),
                        [=](const ServiceRequest&) { return ServiceReply{httpAnswer(200, "text/csv", body)}; });
    }
    QString cell(int row, int col) { return tables().QuoteTable.at(std::size_t(row))[std::size_t(col)].toString(); }
};

TEST_F(QuoteTest, KeptPercentageChangeHoldsThePlainChangeOfTwoCodesInOneRequest) {
    tables().QuoteRows = 1;
    clsStockQuote quote(m_program);
    quote.setSymbol(QStringLiteral("RELIANCE.NS+TATAMOTORS.NS"));

    ASSERT_EQ(m_service.requests().size(), 1u);
    EXPECT_EQ(m_service.requests()[0].query,
              QStringLiteral("s=RELIANCE.NS+TATAMOTORS.NS&f=sl1cc1pva2d1t1m3m4n&e=.csv"));
    ASSERT_EQ(tables().QuoteTable.size(), 2u);
    const QStringList reliance = {"RELIANCE", "2444.10", "-23.50", "2467.60", "6,287,407"};
    for (int col = 1; col <= 5; ++col) EXPECT_EQ(cell(0, col), reliance[col - 1]) << col;
    EXPECT_EQ(cell(0, 10), QStringLiteral("3:30pm"));
    EXPECT_EQ(cell(1, 1), QStringLiteral("TATAMOTORS"));
    EXPECT_EQ(cell(1, 3), QStringLiteral("+8.15"));
    // The properties hold the last line; the change with its percentage is in `change`.
    EXPECT_EQ(quote.Symbol(), QStringLiteral("TATAMOTORS"));
    EXPECT_EQ(quote.Quote(), QStringLiteral("404.25"));
    EXPECT_EQ(quote.PercentageChange(), QStringLiteral("+8.15"));
    EXPECT_EQ(quote.change(), QStringLiteral("+8.15 - +2.06%"));
    EXPECT_EQ(quote.LastTradeDate(), QStringLiteral("10/18/2022"));
    QFile scratch(appFile(kQuoteScratchFile));
    ASSERT_TRUE(scratch.open(QIODevice::ReadOnly));
    EXPECT_EQ(scratch.readAll(), m_program.module<HistoryState>().DataBuffer);
}

TEST_F(QuoteTest, AnAnswerUnderTwentyCharactersIsRefusedAndTheValuesStay) {
    struct Case {
        QByteArray body;
        QString caption;
        QString quote;
    };
    const Case cases[] = {
        {"0123456789012345678", kLengthBelow20, "404.25"},      // 19: refused, the old quote stays
        {"01234567890123456789", MainFrame::kCaption, "0.00"},  // 20: taken, a line of no data
    };
    for (const Case& c : cases) {
        tables().QuoteRows = 0;
        clsStockQuote quote(m_program);
        quote.setSymbol(QStringLiteral("TATAMOTORS.NS"));
        m_program.frame().caption = MainFrame::kCaption;
        answerLines(c.body);
        quote.setSymbol(QStringLiteral("TATAMOTORS.NS"));
        EXPECT_EQ(m_program.frame().caption, c.caption) << c.body.size();
        EXPECT_EQ(quote.Quote(), c.quote) << c.body.size();
        m_service.route(QStringLiteral("/d/quotes.csv"),
                        [this](const ServiceRequest& r) { return m_service.quotes(r); });
    }
}

TEST_F(QuoteTest, LinesOfNoDataKeepTheTableDenseAndNaStaysText) {
    tables().QuoteRows = 2;
    clsStockQuote quote(m_program);
    answerLines(
        "short,line\r\n\"NOSUCH.NS\",0.00,\"N/A - N/A\",N/A,N/A,N/A,N/A,\"N/A\",\"N/A\",N/A,N/A,\"NOSUCH\"\r\n");
    quote.setSymbol(QStringLiteral("X.NS+NOSUCH.NS"));
    EXPECT_EQ(cell(0, 1), QStringLiteral("NOSUCH"));
    EXPECT_EQ(cell(0, 3), QStringLiteral("N/A"));
    EXPECT_EQ(cell(0, 5), QStringLiteral("N/A"));
    EXPECT_TRUE(tables().QuoteTable[1][1].isEmpty());
    // NA's "no data" stays in the fields that no answer fills.
    EXPECT_EQ(quote.Bid(), QStringLiteral("N/A"));
    EXPECT_EQ(quote.eps(), QString());
}

TEST_F(QuoteTest, KeptVolumeGroupedOnTheAverageVolumeTest) {
    struct Case {
        const char* volume;
        const char* average;
        const char* shown;
    };
    const Case cases[] = {{"1234567", "2345678", "1,234,567"}, {"1234567", "N/A", "1234567"}, {"N/A", "N/A", "N/A"}};
    for (const Case& c : cases) {
        tables().QuoteRows = 0;
        answerLines(QByteArray("\"A.NS\",10.00,\"+1 - +1%\",+1.00,9.00,") + c.volume + ',' + c.average +
                    ",\"3/24/2021\",\"3:30pm\",9.5,9.1,\"A\"\r\n");
        clsStockQuote quote(m_program);
        quote.setSymbol(QStringLiteral("A.NS"));
        EXPECT_EQ(quote.Volume(), QString::fromLatin1(c.shown)) << c.volume << " " << c.average;
    }
}

TEST_F(QuoteTest, KeptThinStocksAreDroppedOnlyBehindALineWithAPrice) {
    const auto line = [](const char* code, const char* price, const char* average, const char* fifty = "9.5") {
        return QByteArray("\"") + code + ".NS\"," + price + ",\"x\",+1.00,9.00,500," + average +
               ",\"3/24/2021\",\"3:30pm\"," + fifty + ",9.1,\"" + code + "\"\r\n";
    };
    struct Case {
        const char* name;
        QByteArray answer;
        QStringList stored;
    };
    const Case cases[] = {
        {"a thin first line is stored", line("THIN", "10", "500") + line("BIG", "10", "90000"), {"THIN", "BIG"}},
        {"a thin line behind a price is not", line("BIG", "10", "90000") + line("THIN", "10", "500"), {"BIG"}},
        {"behind a zero price it is", line("ZERO", "0", "90000") + line("THIN", "10", "500"), {"ZERO", "THIN"}},
        {"without a 50-day average it is", line("BIG", "10", "90000") + line("NEW", "10", "500", "0"), {"BIG", "NEW"}},
        {"behind a line of no data it is",
         line("BIG", "10", "90000") + "x,y\r\n" + line("THIN", "10", "500"),
         {"BIG", "THIN"}},
    };
    for (const Case& c : cases) {
        tables().DmaTable.assign(5, QuoteRow{});
        tables().DmaRow = 0;
        answerLines(c.answer);
        clsStockQuote(m_program).setDMA(QStringLiteral("+X.NS"));
        QStringList stored;
        for (int r = 0; r < tables().DmaRow; ++r) stored << tables().DmaTable[std::size_t(r)][1].toString();
        EXPECT_EQ(stored, c.stored) << c.name;
    }
    EXPECT_EQ(tables().DmaTable[0][3].toString(), QStringLiteral("BIG"));  // the name
    EXPECT_EQ(tables().DmaTable[0][8].toDate(), dateSerial(QDate(2021, 3, 24)));
}

TEST_F(QuoteTest, ARowPastTheTablesEndIsReportedOnceAndEndsTheAnswer) {
    tables().DmaTable.assign(1, QuoteRow{});
    tables().DmaRow = 0;
    m_prompt.answer(Answer::OK);
    clsStockQuote(m_program).setDMA(QStringLiteral("RELIANCE.NS+TATAMOTORS.NS+M%26M.NS"));
    EXPECT_EQ(tables().DmaRow, 1);
    ASSERT_EQ(m_prompt.messages().size(), 1);
    EXPECT_TRUE(
        m_prompt.messages()[0].startsWith(QStringLiteral("Error 9 in (Class Module) clsStockQuote::Sub Lookupdma")))
        << m_prompt.messages()[0].toStdString();
}

}  // namespace
}  // namespace ostravel::test
