// The program's statements, as written, against a real database file.
#include "store/dberrors.h"
#include "store/sqltext.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

struct Query {
    const char* sql;
    long rows;  // -1: some rows, number not pinned
};

class ProgramQuery : public ::testing::TestWithParam<Query> {
protected:
    void SetUp() override {
        addSampleData(store.db);
        store.db.execute(
            QStringLiteral("insert into simulation (date, Open, High, Low, Close, Volume, EquitySymbol) "
                           "values (#1/3/2005#, 1, 2, 0.5, 1.5, 100, 'INFY')"));
        store.db.execute(
            QStringLiteral("insert into simtrades (date, price, shareqty, buysell, EquitySymbol) "
                           "values (#1/3/2005#, 1.5, 10, 10, 'INFY')"));
        store.db.execute(
            QStringLiteral("insert into compare (date, BuyHoldValue, ControlValue, EquitySymbol) "
                           "values (#1/3/2005#, 0, 0, 'INFY')"));
    }
    ScratchDatabase store;
};

TEST_P(ProgramQuery, OpensWithItsRows) {
    const auto recordset = store.db.openRecordset(QString::fromUtf8(GetParam().sql));
    if (GetParam().rows < 0)
        EXPECT_GT(recordset->recordCount(), 0);
    else
        EXPECT_EQ(recordset->recordCount(), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    AsWritten, ProgramQuery,
    ::testing::Values(
        Query{"Select distinct name from qoutense", -1},
        Query{"select ticker from qoutense where name='Infosys Limited';", 1},
        Query{"select name from qoutense where ticker='INFY';", 1}, Query{"select * from equity", 4},
        Query{"select * from [equity]where EquitySymbol='INFY' And portname = 'Growth'", 1},
        Query{"select *  from [equity]where EquitySymbol='M&M' And portname = 'Growth'", 1},
        Query{"select buyselltype from [trades]where EquitySymbol='INFY' And portname = 'Growth' and "
              "buyselltype ='Sell'",
              1},
        Query{"select Tradedshares,PricePerShare,portname from [trades]where EquitySymbol='INFY' And portname = "
              "'Growth'",
              3},
        Query{"select * from portfolio where portfolioname='Growth'", 1},
        Query{"select portfolioname,portstartdate from portfolio", 2},
        Query{"select EquitySymbol,OriginalPrice,OriginalShares,OriginalCash,CurrentQuotePrice,EquityStartDate,cps "
              "from equity where portname='Growth';",
              3},
        Query{"select * from equity where equitysymbol='INFY';", 2},
        Query{"select symbol from qoutense where name='Infosys Limited';", 1},
        Query{"select PortStartDate from [portfolio] where PortfolioName='Income';", 1},
        Query{"select * from equity where portname ='Growth';", 3},
        Query{"select ticker from qoutense where ticker='BAJAJ-AUTO';", 1},
        Query{"select pktradeid,EquitySymbol,TradeDate,Tradedshares,PricePerShare,Commission,Buyselltype from "
              "[trades]where EquitySymbol='TCS' And portname = 'Growth'",
              3},
        Query{"select sum(Tradedshares),sum(Commission) from [trades]where EquitySymbol='TCS' And portname = "
              "'Growth'",
              1},
        Query{"select sum(Tradedshares),sum(Commission)  from [trades]where EquitySymbol='NONE' And portname = "
              "'Growth'",
              1},
        Query{"select * from [trades]where EquitySymbol='INFY' And portname = 'Income'", 3},
        Query{"select * from trades where pktradeid=4;", 1},
        Query{"select pktradeid,TradeDate ,EquitySymbol,Tradedshares,PricePerShare,Commission,Buyselltype from   "
              "[trades]where EquitySymbol='INFY' And portname = 'Growth'",
              3},
        Query{"select EquitySymbol,OriginalCash from equity where portname='Growth';", 3},
        Query{"select * from [equity] where EquitySymbol='TCS' And portname = 'Growth'", 1},
        Query{"select EquitySymbol from equity where portname='Income';", 1},
        Query{"select portname,equitysymbol,CurrentShares,CurrentQuotePrice,CurrentCash,originalprice,"
              "originalshares,originalcash,nextbuyprice,nextbuyshares,nextsellprice,nextsellshares,peratio,eps,div,"
              "volume from equity where portname='Growth'",
              3},
        Query{"select sum(Commission)  from [trades]where EquitySymbol='INFY' And portname = 'Growth'", 1},
        Query{"select sum(CurrentCash),sum(CurrentQuotePrice*Currentshares) from [equity] where portname = 'Growth'",
              1},
        Query{"select NextBuyPrice,NextBuyShares,NextSellPrice,NextSellShares,LastUpdated from [equity]where "
              "EquitySymbol='INFY' And portname = 'Growth'",
              1},
        Query{"select * from simtrades", 1}, Query{"select * from compare", 1},
        Query{"select * from simulation  order by date", 1}, Query{"select * from simulation order by date", 1},
        Query{"select tradedate ,tradedshares,pricepershare,buyselltype from [trades]where EquitySymbol='INFY' And "
              "portname = 'Growth'",
              3},
        Query{"select date,price from currentprice where equitysymbol = 'INFY';", 4},
        Query{"select date,shareqty,price,buysell FROM SIMTRADES", 1}, Query{"select * from simulation", 1},
        Query{"select pkequityid,LastTradePrice,CurrentQuotePrice from equity where equitysymbol = 'TCS';", 1},
        Query{"select * from currentprice where equitysymbol ='TCS';", 2},
        Query{"select portname as Portfolio,equitysymbol as Symbol,CurrentShares as Shares,CurrentQuotePrice as "
              "Price from equity where portname='Growth';",
              3},
        Query{"select pkequityid,LastTradePrice,CurrentQuotePrice,eps,peratio,div,volume from [equity]where "
              "EquitySymbol='TCS' And portname = 'Growth'",
              1},
        Query{"select yahoonse,name from qoutense where ticker='M&M';", 1},
        Query{"select CurrentQuotePrice from equity where equitysymbol='TCS';", 1},
        Query{"select EquitySymbol from  [equity] where portname = 'Growth'", 3},
        Query{"select ticker from qoutense", 2219}, Query{"select *  from qoutense ", 2219},
        Query{"select * from portfolio", 2},
        // The engine compares texts without regard to case, as the program's lookups expect.
        Query{"select * from [equity]where EquitySymbol='infy' And portname = 'GROWTH'", 1}));

struct Execution {
    const char* sql;
    const char* table;
    long rowsLeft;
};

class ProgramStatement : public ::testing::TestWithParam<Execution> {
protected:
    void SetUp() override {
        addSampleData(store.db);
        store.db.execute(
            QStringLiteral("insert into simulation (date, Close, EquitySymbol) values (#1/3/2005#, 1.5, 'INFY')"));
    }
    ScratchDatabase store;
};

TEST_P(ProgramStatement, Executes) {
    store.db.execute(QString::fromUtf8(GetParam().sql));
    EXPECT_EQ(store.db.rowCount(QString::fromUtf8(GetParam().table)), GetParam().rowsLeft);
}

INSTANTIATE_TEST_SUITE_P(AsWritten, ProgramStatement,
                         ::testing::Values(Execution{"Delete * from simulation", "simulation", 0},
                                           Execution{"delete * from simulation", "simulation", 0},
                                           Execution{"delete * from equity where equitysymbol='INFY'", "equity", 2},
                                           Execution{"delete * from portfolio where portfolioname='Income';",
                                                     "portfolio", 1}));

TEST(ProgramStatements, InsertIntoAYearTableOfTheDayFiles) {
    ScratchDatabase store;
    store.db.execute(
        QStringLiteral("create table [2005] (SYMBOL text, SERIES text, OPEN real, HIGH real, LOW real, "
                       "CLOSE real, LAST real, PREVCLOSE real, TOTTRDQTY real, TOTTRDVAL real, "
                       "TIMESTAMP text)"));
    store.db.execute(
        QStringLiteral("insert into [2005] (SYMBOL,SERIES,OPEN,HIGH,LOW,CLOSE,LAST,PREVCLOSE,TOTTRDQTY,"
                       "TOTTRDVAL,TIMESTAMP) values ('M&M','EQ','640','655.5','630','650','651','638',"
                       "'120000','78000000','17-FEB-2005')"));
    const auto recordset = store.db.openRecordset(QStringLiteral("select * From [2005]"));
    ASSERT_EQ(recordset->recordCount(), 1);
    EXPECT_EQ(recordset->field(QStringLiteral("close")).toDouble(), 650.0);
    EXPECT_EQ(recordset->field(10).toString(), QStringLiteral("17-FEB-2005"));

    // The gainers screen names a column that isn't there: the engine's "too few parameters".
    EXPECT_EQ(errorOf([&] {
                  store.db.openRecordset(QStringLiteral(
                      "select  symbol ,last,prevclose,(prevclose-last)*-100/prevclose as Percentage,tottrdqty from "
                      "[2005] where prevclose < last and timpstamp ='17-FEB-2005' order by "
                      "(prevclose-last)*100/prevclose "));
              }),
              dberr::TooFewParameters);
}

TEST(ProgramStatements, ApostropheInAPortfolioNameNeedsItsQuoteDoubled) {
    ScratchDatabase store;
    const QString name = QStringLiteral("Ravi's Picks");
    store.db.execute(QStringLiteral("insert into portfolio (fkUserID, PortfolioName, PortStartDate) values (1, '") +
                     sqlText(name) + QStringLiteral("', #1/3/2005#)"));

    const auto found =
        store.db.openRecordset(QStringLiteral("select * from portfolio where portfolioname='") + sqlText(name) + "'");
    ASSERT_EQ(found->recordCount(), 1);
    EXPECT_EQ(found->field(2).toString(), name);

    // Concatenated as it stands, the apostrophe ends the text and the statement breaks.
    EXPECT_EQ(errorOf([&] {
                  store.db.openRecordset(QStringLiteral("select * from portfolio where portfolioname='") + name + "'");
              }),
              dberr::SyntaxError);

    store.db.execute(QStringLiteral("delete * from portfolio where portfolioname='") + sqlText(name) +
                     QStringLiteral("';"));
    EXPECT_EQ(store.db.rowCount(QStringLiteral("portfolio")), 0);
}

TEST(ProgramStatements, UnknownTableAndTrailingTextAreTheEnginesErrors) {
    ScratchDatabase store;
    EXPECT_EQ(errorOf([&] { store.db.openRecordset(QStringLiteral("nosuchtable")); }), dberr::TableNotFound);
    EXPECT_EQ(errorOf([&] { store.db.execute(QStringLiteral("delete * from nosuchtable")); }), dberr::TableNotFound);
    EXPECT_EQ(errorOf([&] { store.db.execute(QStringLiteral("delete * from compare; delete * from simulation")); }),
              dberr::TextAfterStatement);
}

}  // namespace
}  // namespace ostravel::test
