// The price update on a portfolio of two holdings: "Update All Prices" against the loopback
// service, the typed prices of updateprice, the closes of the day-file store, and the refusals.
#include "market/price_update.h"

#include "ledger/portfolioexplorer.h"
#include "market/day_file.h"
#include "market/day_store.h"
#include "runtime/vbdate.h"
#include "tests/market/market_fixture.h"
#include "tests/support/store_rows.h"

namespace ostravel::test {
namespace {

class PriceUpdateTest : public MarketTest {
protected:
    PriceUpdateTest() {
        holdGrowth({{QStringLiteral("RELIANCE"), 2000, 10, 5000, 10, 2100, 5000},
                    {QStringLiteral("M&M"), 800, 10, 5000, 10, 820, 5000}});
        selectportfolio(m_program);
        m_program.module<PriceUpdate>().online = [this] { return m_online; };
    }
    QVariant column(const char* name, const char* symbol) {
        return scalar(m_program.store().database(), QStringLiteral("select %1 from equity where EquitySymbol = '%2'")
                                                        .arg(QLatin1String(name), QLatin1String(symbol)));
    }
    long long prices(const char* symbol) {
        return scalar(m_program.store().database(),
                      QStringLiteral("select count(*) from currentprice where equitysymbol = '%1'")
                          .arg(QLatin1String(symbol)))
            .toLongLong();
    }
    bool m_online = true;
};

TEST_F(PriceUpdateTest, UpdateAllPricesWritesEachHoldingAndOneRowADay) {
    cmdupdate_Click(m_program);
    cmdupdate_Click(m_program);
    ASSERT_EQ(m_service.requests().size(), 2u);
    EXPECT_EQ(m_service.requests()[0].value(QStringLiteral("s")), QStringLiteral("^NSEI+M&M.NS+RELIANCE.NS"));
    EXPECT_DOUBLE_EQ(column("CurrentQuotePrice", "RELIANCE").toDouble(), 2444.10);
    EXPECT_DOUBLE_EQ(column("LastTradePrice", "RELIANCE").toDouble(), 2444.10);  // the first pass's price
    EXPECT_DOUBLE_EQ(column("volume", "RELIANCE").toDouble(), 6287407);
    EXPECT_GT(column("peratio", "M&M").toDouble(), 0);  // the 50-day average
    EXPECT_EQ(prices("RELIANCE"), 1);
    EXPECT_EQ(prices("M&M"), 1);
    // The pass ends on the last stock, and the status bar on its price.
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("RELIANCE"));
    EXPECT_EQ(m_program.frame().panel6, QStringLiteral("Current Equity: RELIANCE Trading At 2444.1"));
    EXPECT_EQ(m_program.module<PortfolioExplorer>().MSFlexGrid1.textMatrix(1, 3), QStringLiteral("Rs.2444.1"));
    EXPECT_TRUE(m_prompt.messages().isEmpty()) << m_prompt.messages().join(QLatin1Char('\n')).toStdString();
}

TEST_F(PriceUpdateTest, KeptTypedPricesReplaceTheFetchedQuoteUntilACancel) {
    m_prompt.answerText(QStringLiteral("850.5"));
    m_prompt.answerText(std::nullopt);
    updateprice(m_program);
    EXPECT_EQ(m_prompt.asked().at(0).title, QStringLiteral("Current price M&M"));
    EXPECT_EQ(m_prompt.asked().at(0).text, QStringLiteral("Enter the current price"));
    EXPECT_DOUBLE_EQ(column("CurrentQuotePrice", "M&M").toDouble(), 850.5);
    EXPECT_DOUBLE_EQ(column("LastTradePrice", "M&M").toDouble(), 820);
    EXPECT_DOUBLE_EQ(column("CurrentQuotePrice", "RELIANCE").toDouble(), 2100);
    EXPECT_EQ(prices("M&M"), 1);
    EXPECT_EQ(prices("RELIANCE"), 0);
    // The quote request goes out for each stock asked, and its price is not used.
    EXPECT_EQ(m_service.requests().size(), 2u);
    EXPECT_EQ(m_program.module<PortfolioExplorer>().cmbequity.text, QStringLiteral("RELIANCE"));
}

TEST_F(PriceUpdateTest, EachRoutineRefusesAnEmptyListAndUpdatePriceAnOfflineSystem) {
    struct Case {
        const char* name;
        void (*routine)(Program&);
        bool online;
        bool emptyList;
        QString message;
    };
    const Case cases[] = {
        {"updateprice", updateprice, true, true, kSelectProperPortfolio},
        {"cmdupdate", cmdupdate_Click, true, true, kSelectProperPortfolio},
        {"offline", updateprice, false, false, QStringLiteral("You are not connected to internet")},
    };
    for (const Case& c : cases) {
        m_prompt.clear();
        m_online = c.online;
        selectportfolio(m_program);
        if (c.emptyList)
            m_program.module<PortfolioExplorer>().cmbequity = {};
        bool focused = false;
        m_program.module<PriceUpdate>().focusCmbportfolio = [&] { focused = true; };
        c.routine(m_program);
        EXPECT_EQ(m_prompt.messages(), QStringList{c.message}) << c.name;
        EXPECT_EQ(focused, c.emptyList) << c.name;
        EXPECT_EQ(prices("RELIANCE"), 0) << c.name;
    }
}

TEST_F(PriceUpdateTest, DayFilesGiveEachHoldingItsLatestClose) {
    auto store = openDayStore();
    for (const char* file : {"bhav/cm23MAR2021bhav.csv", "bhav/cm24MAR2021bhav.csv"})
        store->load(parseDayFile(readTestFile(testData(QString::fromLatin1(file)))));
    addHolding(m_program.store().database(), QStringLiteral("Growth"), {QStringLiteral("NOSUCH"), 1, 1, 1, 1, 1, 1});
    m_prompt.answer(Answer::OK);
    UpdatePricesFromDayFiles(m_program);
    EXPECT_DOUBLE_EQ(column("CurrentQuotePrice", "RELIANCE").toDouble(), 2047.3);
    EXPECT_DOUBLE_EQ(column("CurrentQuotePrice", "M&M").toDouble(), 811.4);
    EXPECT_DOUBLE_EQ(column("LastTradePrice", "M&M").toDouble(), 820);
    EXPECT_EQ(m_program.store()
                  .database()
                  .openRecordset(QStringLiteral("select date from currentprice where equitysymbol = 'M&M'"))
                  ->field(0)
                  .toDate(),
              dateSerial(QDate(2021, 3, 24)));
    EXPECT_EQ(m_prompt.messages().back(),
              QStringLiteral("2 of 3 holdings took their latest close from the day files.\nNo day file holds NOSUCH."));
}

}  // namespace
}  // namespace ostravel::test
