#include "store/schema.h"

#include "runtime/vbdate.h"
#include "store/dberrors.h"
#include "store/journal.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

struct Position {
    const char* table;
    int position;
    const char* column;
};

class ColumnPosition : public ::testing::TestWithParam<Position> {};

// The program reaches these columns by position in "select *" results.
TEST_P(ColumnPosition, Holds) {
    ScratchDatabase store;
    const auto recordset = store.db.openRecordset(QStringLiteral("select * from [%1]").arg(GetParam().table));
    EXPECT_EQ(recordset->fieldName(GetParam().position).toLower(), QString::fromLatin1(GetParam().column).toLower());
}

INSTANTIATE_TEST_SUITE_P(
    Schema, ColumnPosition,
    ::testing::Values(
        Position{"users", 0, "pkUserID"}, Position{"users", 3, "LastName"}, Position{"users", 4, "FirstName"},
        Position{"users", 5, "MinTradeSell"}, Position{"users", 6, "MinTradeBuy"},
        Position{"users", 7, "MinTradeBuySh"}, Position{"users", 8, "MinTradeSellSh"}, Position{"users", 9, "BuyFee"},
        Position{"users", 10, "SellFee"}, Position{"users", 11, "ResistBuy"}, Position{"users", 12, "ResistSell"},
        Position{"users", 13, "SpareSetting"}, Position{"users", 14, "eMail"}, Position{"users", 23, "BeginningShares"},
        Position{"portfolio", 0, "pkPortfolioID"}, Position{"portfolio", 1, "fkUserID"},
        Position{"portfolio", 2, "PortfolioName"}, Position{"portfolio", 3, "PortStartDate"},
        Position{"equity", 0, "pkEquityID"}, Position{"equity", 1, "fkPortfolioID"},
        Position{"equity", 3, "EquitySymbol"}, Position{"equity", 4, "OriginalPrice"},
        Position{"equity", 5, "OriginalShares"}, Position{"equity", 6, "OriginalCash"},
        Position{"equity", 8, "CurrentQuotePrice"}, Position{"equity", 10, "CurrentCash"},
        Position{"equity", 11, "CurrentShares"}, Position{"equity", 23, "VealieFlag"},
        Position{"trades", 0, "pktradeid"}, Position{"trades", 1, "fkequityid"},
        Position{"trades", 8, "TradeQuotePrice"}, Position{"trades", 15, "portname"}, Position{"qoutense", 0, "ticker"},
        Position{"qoutense", 1, "name"}, Position{"qoutense", 2, "yahoonse"}, Position{"currentprice", 0, "price"},
        Position{"currentprice", 1, "date"}, Position{"currentprice", 2, "equitysymbol"},
        Position{"currentprice", 3, "fkequityid"}, Position{"simulation", 0, "date"}, Position{"simulation", 2, "Open"},
        Position{"simulation", 3, "High"}, Position{"simulation", 4, "Low"}, Position{"simulation", 5, "Close"},
        Position{"simulation", 6, "Volume"}, Position{"simulation", 7, "EquitySymbol"},
        Position{"simtrades", 0, "date"}, Position{"simtrades", 1, "price"}, Position{"simtrades", 2, "shareqty"},
        Position{"simtrades", 3, "buysell"}, Position{"simtrades", 6, "EquitySymbol"}, Position{"compare", 0, "date"},
        Position{"compare", 1, "BuyHoldValue"}, Position{"compare", 2, "ControlValue"},
        Position{"compare", 3, "EquitySymbol"}));

TEST(Schema, NewFileHasTheOneUsersRowOfDefaults) {
    ScratchDatabase store;
    const auto users = store.db.openRecordset(QStringLiteral("users"));
    ASSERT_EQ(users->recordCount(), 1);
    const std::pair<const char*, Variant> defaults[] = {
        {"LastName", Variant("Enter your surname")},
        {"FirstName", Variant("Enter your name")},
        {"MinTradeSell", Variant(1000.0)},
        {"MinTradeBuy", Variant(1000.0)},
        {"MinTradeBuySh", Variant(1.0)},
        {"MinTradeSellSh", Variant(1.0)},
        {"BuyFee", Variant(0.85)},
        {"SellFee", Variant(0.85)},
        {"ResistBuy", Variant(10.0)},
        {"ResistSell", Variant(10.0)},
        {"BeginningShares", Variant(500.0)},
        {"pkUserID", Variant(std::int64_t{1})},
        {"eMail", Variant::null()},
        {"SpareSetting", Variant::null()},
        // Settings whose boxes would otherwise open empty and fail to save as numbers.
        {"BeginningCash", Variant(0.0)},
        {"QuoteDL", Variant(std::int64_t{0})},
        {"HistoryDL", Variant(std::int64_t{0})},
        {"SecondsForQuote", Variant(30.0)},
        {"QUICK", Variant(std::int64_t{1})}};
    for (const auto& [column, value] : defaults) EXPECT_EQ(users->field(QString::fromLatin1(column)), value) << column;
}

TEST(Schema, SymbolListComesFromTheExchangesList) {
    ScratchDatabase store;
    EXPECT_EQ(store.db.rowCount(QStringLiteral("qoutense")), 2219);
    const struct {
        const char* ticker;
        const char* name;
    } symbols[] = {{"ARE&M", "Amara Raja Energy & Mobility Limited"},
                   {"BAJAJ-AUTO", "Bajaj Auto Limited"},
                   {"M&M", "Mahindra & Mahindra Limited"},
                   {"J&KBANK", "The Jammu & Kashmir Bank Limited"},
                   {"HCC-RE1", "Hindustan Construction-RE"},
                   {"20MICRONS", "20 Microns Limited"}};
    for (const auto& symbol : symbols) {
        const QString ticker = QString::fromLatin1(symbol.ticker);
        const auto row = store.db.openRecordset(QStringLiteral("select * from qoutense where ticker='%1'").arg(ticker));
        ASSERT_EQ(row->recordCount(), 1) << symbol.ticker;
        EXPECT_EQ(row->field(1).toString(), QString::fromLatin1(symbol.name));
        EXPECT_EQ(row->field(2).toString(), ticker + QStringLiteral(".NS"));
        EXPECT_EQ(row->field(QStringLiteral("symbol")).toString(), ticker);
    }
}

TEST(Schema, NewHoldingGetsZeroForItsPositionColumns) {
    ScratchDatabase store;
    addSampleData(store.db);
    const auto equity = store.db.openRecordset(QStringLiteral("select * from equity where portname ='Income';"));
    equity->addNew();
    equity->setField(QStringLiteral("fkPortfolioID"), Variant(2));
    equity->setField(QStringLiteral("EquitySymbol"), Variant("TCS"));
    equity->setField(QStringLiteral("portname"), Variant("Income"));
    equity->setField(QStringLiteral("VealieFlag"), Variant(1));
    equity->update();

    const auto holding = store.db.openRecordset(
        QStringLiteral("select * from [equity]where EquitySymbol='TCS' And portname = 'Income'"));
    ASSERT_EQ(holding->recordCount(), 1);
    for (const char* column : {"OriginalPrice", "OriginalShares", "OriginalCash", "CurrentQuotePrice", "CurrentCash",
                               "CurrentShares", "PortControl", "cps", "NextBuyPrice", "NextSellShares"})
        EXPECT_EQ(holding->field(QString::fromLatin1(column)), Variant(0.0)) << column;
    EXPECT_EQ(holding->field(QStringLiteral("OriginalPrice")).toDouble() *
                  holding->field(QStringLiteral("OriginalShares")).toDouble(),
              0.0);
    EXPECT_TRUE(holding->field(QStringLiteral("LastUpdated")).isNull());
}

TEST(Schema, DeletingAPortfolioTakesItsHoldingsTradesAndPricesAlong) {
    ScratchDatabase store;
    addSampleData(store.db);
    store.db.execute(QStringLiteral("delete * from portfolio where portfolioname='Growth';"));
    EXPECT_EQ(store.db.rowCount(QStringLiteral("portfolio")), 1);
    EXPECT_EQ(store.db.rowCount(QStringLiteral("equity")), 1);
    EXPECT_EQ(store.db.rowCount(QStringLiteral("trades")), 3);
    EXPECT_EQ(store.db.rowCount(QStringLiteral("currentprice")), 2);
    const auto left = store.db.openRecordset(QStringLiteral("select distinct portname from trades"));
    ASSERT_EQ(left->recordCount(), 1);
    EXPECT_EQ(left->field(0).toString(), QStringLiteral("Income"));
}

// The trade screen's Close deletes a symbol's holdings in every portfolio; the trades of the
// other portfolios must not go with them.
TEST(Schema, DeletingAHoldingKeepsItsTradesAndPrices) {
    ScratchDatabase store;
    addSampleData(store.db);
    const long long trades = store.db.rowCount(QStringLiteral("trades"));
    const long long prices = store.db.rowCount(QStringLiteral("currentprice"));
    store.db.execute(QStringLiteral("delete * from equity where equitysymbol='TCS'"));
    EXPECT_EQ(store.db.rowCount(QStringLiteral("trades")), trades);
    EXPECT_EQ(store.db.rowCount(QStringLiteral("currentprice")), prices);
}

TEST(Schema, PortfolioNamesAreUniqueWithoutRegardToCase) {
    ScratchDatabase store;
    addSampleData(store.db);
    const auto portfolio = store.db.openRecordset(QStringLiteral("select * from portfolio"));
    portfolio->addNew();
    portfolio->setField(2, Variant("GROWTH"));
    EXPECT_EQ(errorOf([&] { portfolio->update(); }), dberr::DuplicateKey);
    portfolio->cancelUpdate();
    EXPECT_EQ(store.db.rowCount(QStringLiteral("portfolio")), 2);
}

TEST(Schema, DatesSortInTimeOrder) {
    ScratchDatabase store;
    const auto simulation = store.db.openRecordset(QStringLiteral("simulation"));
    for (const char* day : {"17/Feb/2006", "3/1/2005", "2005-12-31", "01/01/2006", "9-Jan-2004"}) {
        simulation->addNew();
        simulation->setField(QStringLiteral("date"), Variant(day));
        simulation->update();
    }
    const auto ordered = store.db.openRecordset(QStringLiteral("select * from simulation order by date"));
    double previous = -1e9;
    long rows = 0;
    for (; !ordered->eof(); ordered->moveNext(), ++rows) {
        const double serial = ordered->field(0).toDouble();
        EXPECT_LT(previous, serial);
        previous = serial;
    }
    EXPECT_EQ(rows, 5);
    ordered->moveFirst();
    EXPECT_EQ(ordered->field(0), Variant::date(dateSerial(QDate(2004, 1, 9))));
}

TEST(Schema, EveryTableIsMadeWithItsColumns) {
    ScratchDatabase store;
    QStringList expected;
    for (const TableShape& table : schemaTables()) {
        expected << table.name;
        EXPECT_EQ(store.db.openRecordset(table.name)->fieldCount(), static_cast<int>(table.columns.size()));
    }
    EXPECT_EQ(expected.size(), 12);
    // The journal's tables follow the program's.
    expected << QStringLiteral("journal");
    for (const QString& table : journaledTables()) expected << QStringLiteral("journal_") + table;
    expected << QStringLiteral("journal_now");
    EXPECT_EQ(store.db.tableNames(), expected);
}

}  // namespace
}  // namespace ostravel::test
