#include "runtime/vbdate.h"
#include "store/dberrors.h"
#include "store/fieldvalue.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

class RecordsetTest : public ::testing::Test {
protected:
    void SetUp() override { addSampleData(store.db); }
    std::shared_ptr<Recordset> holding(const char* symbol, const char* portfolio = "Growth") {
        return store.db.openRecordset(
            QStringLiteral("select * from [equity]where EquitySymbol='%1' And portname = '%2'")
                .arg(QString::fromLatin1(symbol), QString::fromLatin1(portfolio)));
    }
    ScratchDatabase store;
};

TEST_F(RecordsetTest, TableOpensOnItsFirstRowAndMovesThroughAll) {
    const auto trades = store.db.openRecordset(QStringLiteral("trades"));
    EXPECT_EQ(trades->recordCount(), 12);
    EXPECT_FALSE(trades->bof());
    EXPECT_FALSE(trades->eof());
    EXPECT_EQ(trades->field(0), Variant(std::int64_t{1}));
    long seen = 0;
    for (; !trades->eof(); trades->moveNext()) ++seen;
    EXPECT_EQ(seen, 12);
    EXPECT_EQ(errorOf([&] { trades->moveNext(); }), err::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { trades->field(0); }), err::NoCurrentRecord);
    trades->moveLast();
    EXPECT_EQ(trades->field(QStringLiteral("PKTRADEID")), Variant(std::int64_t{12}));
    trades->moveFirst();
    trades->movePrevious();
    EXPECT_TRUE(trades->bof());
    EXPECT_EQ(errorOf([&] { trades->movePrevious(); }), err::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { trades->field(1); }), err::NoCurrentRecord);
}

TEST_F(RecordsetTest, EmptyRecordsetIsAtBothEnds) {
    const auto none = holding("NOPE");
    EXPECT_TRUE(none->eof());
    EXPECT_TRUE(none->bof());
    EXPECT_EQ(none->recordCount(), 0);
    EXPECT_EQ(errorOf([&] { none->moveFirst(); }), err::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { none->moveLast(); }), err::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { none->edit(); }), err::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { none->deleteCurrent(); }), err::NoCurrentRecord);
    // The advice engine's lookup of a holding that isn't there.
    EXPECT_EQ(errorOf([&] { holding("INFY", "Simulation")->field(QStringLiteral("PortControl")); }),
              err::NoCurrentRecord);
}

TEST_F(RecordsetTest, FieldsReadAsTheirKindsAndMissingValuesAsNull) {
    const auto infy = holding("INFY");
    EXPECT_EQ(infy->field(QStringLiteral("pkEquityID")).kind(), Variant::Kind::Long);
    EXPECT_EQ(infy->field(QStringLiteral("OriginalPrice")), Variant(1400.5));
    EXPECT_EQ(infy->field(3), Variant("INFY"));
    EXPECT_EQ(infy->field(QStringLiteral("equitystartdate")), Variant::date(dateSerial(QDate(2006, 2, 17))));
    EXPECT_TRUE(infy->field(QStringLiteral("LastUpdated")).isNull());
    EXPECT_EQ(errorOf([&] { infy->field(QStringLiteral("NoSuchColumn")); }), err::ItemNotFound);
    EXPECT_EQ(errorOf([&] { infy->field(99); }), err::ItemNotFound);

    const auto prices =
        store.db.openRecordset(QStringLiteral("select date,price from currentprice where equitysymbol = 'TCS';"));
    prices->moveLast();
    EXPECT_EQ(prices->field(0), Variant::date(dateTimeSerial(QDateTime(QDate(2006, 4, 4), QTime(15, 30)))));

    const auto trade = store.db.openRecordset(QStringLiteral("select * from trades where pktradeid=1;"));
    EXPECT_TRUE(trade->field(QStringLiteral("TradeQuotePrice")).isNull());

    const auto sum = store.db.openRecordset(QStringLiteral(
        "select sum(Tradedshares),sum(Commission) from [trades]where EquitySymbol='NONE' And portname = 'Growth'"));
    EXPECT_TRUE(sum->field(0).isNull());
}

struct Conversion {
    const char* column;
    Variant assigned;
    Variant stored;  // Empty: the assignment raises 3421
};

class FieldConversion : public RecordsetTest, public ::testing::WithParamInterface<Conversion> {};

// A column converts what is assigned to it by its type, as the store does with typed text.
TEST_P(FieldConversion, ByColumnType) {
    const QString column = QString::fromLatin1(GetParam().column);
    const auto stored = [&] {
        return store.db.openRecordset(QStringLiteral("select * from equity where pkEquityID=1"))->field(column);
    };
    const auto infy = holding("INFY");
    const Variant before = infy->field(column);
    infy->edit();
    if (GetParam().stored.isEmpty()) {
        EXPECT_EQ(errorOf([&] { infy->setField(column, GetParam().assigned); }), err::DataTypeConversion);
        infy->update();
        EXPECT_EQ(stored(), before);
        return;
    }
    infy->setField(column, GetParam().assigned);
    infy->update();
    EXPECT_EQ(stored(), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(
    Store, FieldConversion,
    ::testing::Values(
        Conversion{"CurrentCash", Variant(" 140"), Variant(140.0)},
        Conversion{"CurrentCash", Variant("140.50"), Variant(140.5)},
        Conversion{"CurrentCash", Variant(7), Variant(7.0)},
        Conversion{"CurrentCash", Variant::null(), Variant::null()},
        Conversion{"CurrentCash", Variant("abc"), Variant()}, Conversion{"CurrentCash", Variant(""), Variant()},
        Conversion{"NextBuyPrice", Variant("Rs.1,400"), Variant()},
        Conversion{"VealieFlag", Variant("1"), Variant(std::int64_t{1})},
        Conversion{"VealieFlag", Variant(2.5), Variant(std::int64_t{2})},
        Conversion{"VealieFlag", Variant("x"), Variant()},
        Conversion{"EquityStartDate", Variant("17/Feb/2006"), Variant::date(dateSerial(QDate(2006, 2, 17)))},
        Conversion{"EquityStartDate", Variant("2005-12-31"), Variant::date(dateSerial(QDate(2005, 12, 31)))},
        Conversion{"EquityStartDate", Variant::date(38000.5), Variant::date(38000.5)},
        Conversion{"EquityStartDate", Variant("Date"), Variant()},
        Conversion{"EquityStartDate", Variant(""), Variant()},
        Conversion{"EquitySymbol", Variant(140.5), Variant("140.5")},
        Conversion{"EquitySymbol", Variant(true), Variant("True")},
        Conversion{"portname", Variant::null(), Variant::null()}));

// The text a date is stored as: the usual years written by hand, the rest as the general
// routines write them.
TEST(IsoDateText, AsTheStoreWritesIt) {
    const std::pair<double, const char*> days[] = {
        {0, "1899-12-30"},       {-1, "1899-12-29"},      {2, "1900-01-01"},
        {45000, "2023-03-15"},   {2958465, "9999-12-31"}, {-693593, "0001-01-01"},
        {1999999, "7375-10-22"}, {-693594, "-001-12-31"}, {38000.5, "2004-01-14 12:00:00"},
    };
    for (const auto& [serial, text] : days) EXPECT_EQ(isoDateText(serial), QString::fromLatin1(text)) << serial;
}

TEST_F(RecordsetTest, WritingNeedsEditWhichWritesInPlaceAndCancelLeavesTheRow) {
    const auto infy = holding("INFY");
    EXPECT_EQ(errorOf([&] { infy->setField(QStringLiteral("cps"), Variant(1)); }), err::UpdateWithoutAddNew);
    EXPECT_EQ(errorOf([&] { infy->update(); }), err::UpdateWithoutAddNew);
    EXPECT_EQ(errorOf([&] { infy->cancelUpdate(); }), err::UpdateWithoutAddNew);
    infy->edit();
    infy->setField(QStringLiteral("PortControl"), Variant("25000"));
    EXPECT_EQ(infy->field(QStringLiteral("PortControl")), Variant(25000.0));
    infy->cancelUpdate();
    EXPECT_EQ(holding("INFY")->field(QStringLiteral("PortControl")), Variant(0.0));

    infy->edit();
    infy->setField(12, Variant(25000));
    infy->update();
    EXPECT_EQ(holding("INFY")->field(QStringLiteral("PortControl")), Variant(25000.0));
    EXPECT_EQ(holding("INFY", "Income")->field(QStringLiteral("PortControl")), Variant(0.0));
    EXPECT_EQ(store.db.rowCount(QStringLiteral("equity")), 4);
}

TEST_F(RecordsetTest, MovingAwayDropsAPendingEdit) {
    const auto equity = store.db.openRecordset(QStringLiteral("equity"));
    equity->edit();
    equity->setField(QStringLiteral("cps"), Variant(99));
    equity->moveNext();
    EXPECT_EQ(errorOf([&] { equity->update(); }), err::UpdateWithoutAddNew);
    equity->moveFirst();
    EXPECT_EQ(equity->field(QStringLiteral("cps")), Variant(0.0));
}

TEST_F(RecordsetTest, AddNewAppendsAndKeepsTheCurrentRow) {
    const auto qoutense = store.db.openRecordset(QStringLiteral("qoutense"));
    const Variant first = qoutense->field(0);
    qoutense->addNew();
    qoutense->setField(0, Variant("NEWCO"));
    qoutense->setField(1, Variant("New Company Limited"));
    qoutense->setField(2, Variant("NEWCO.NS"));
    qoutense->update();
    EXPECT_EQ(qoutense->field(0), first);
    EXPECT_EQ(qoutense->recordCount(), 2220);
    qoutense->moveLast();
    EXPECT_EQ(qoutense->field(QStringLiteral("ticker")), Variant("NEWCO"));
    EXPECT_TRUE(qoutense->field(QStringLiteral("symbol")).isNull());

    qoutense->addNew();
    qoutense->setField(0, Variant("OTHER"));
    qoutense->cancelUpdate();
    EXPECT_EQ(store.db.rowCount(QStringLiteral("qoutense")), 2220);
}

TEST_F(RecordsetTest, AddNewGetsTheNextKey) {
    const auto trades = store.db.openRecordset(
        QStringLiteral("select * from [trades]where EquitySymbol='TCS' And portname = 'Growth'"));
    trades->addNew();
    trades->setField(QStringLiteral("fkequityid"), Variant(2));
    trades->setField(QStringLiteral("TradeDate"), Variant("17/Feb/2007"));
    trades->setField(QStringLiteral("Tradedshares"), Variant("4"));
    trades->update();
    trades->moveLast();
    EXPECT_EQ(trades->field(0), Variant(std::int64_t{13}));
    EXPECT_EQ(trades->field(QStringLiteral("TradeDate")), Variant::date(dateSerial(QDate(2007, 2, 17))));
}

TEST_F(RecordsetTest, DeleteLeavesNoCurrentRowUntilTheNextMove) {
    const auto trades = store.db.openRecordset(
        QStringLiteral("select * from [trades]where EquitySymbol='INFY' And portname = 'Growth'"));
    ASSERT_EQ(trades->recordCount(), 3);
    trades->moveNext();
    const Variant third = [&] {
        trades->moveNext();
        const Variant key = trades->field(0);
        trades->movePrevious();
        return key;
    }();
    trades->deleteCurrent();
    EXPECT_EQ(errorOf([&] { trades->field(0); }), err::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { trades->deleteCurrent(); }), err::NoCurrentRecord);
    EXPECT_FALSE(trades->eof());
    trades->moveNext();
    EXPECT_EQ(trades->field(0), third);
    EXPECT_EQ(trades->recordCount(), 2);
    trades->deleteCurrent();
    trades->moveNext();
    EXPECT_TRUE(trades->eof());
    EXPECT_EQ(store.db.rowCount(QStringLiteral("trades")), 10);
}

TEST_F(RecordsetTest, DeletingEveryRowInALoop) {
    const auto simulation = store.db.openRecordset(QStringLiteral("select * from trades where portname='Growth'"));
    while (!simulation->eof()) {
        simulation->deleteCurrent();
        simulation->moveNext();
    }
    EXPECT_EQ(store.db.rowCount(QStringLiteral("trades")), 3);
    EXPECT_TRUE(simulation->bof());
}

TEST_F(RecordsetTest, FindFirstAndFindNext) {
    const auto equity = store.db.openRecordset(QStringLiteral("select * from equity where portname ='Growth';"));
    equity->findFirst(QStringLiteral("equitysymbol='tcs'"));
    EXPECT_FALSE(equity->noMatch());
    EXPECT_EQ(equity->field(QStringLiteral("EquitySymbol")), Variant("TCS"));
    equity->findNext(QStringLiteral("equitysymbol='TCS'"));
    EXPECT_TRUE(equity->noMatch());
    EXPECT_EQ(equity->field(QStringLiteral("EquitySymbol")), Variant("TCS"));
    equity->findFirst(QStringLiteral("EquitySymbol='WIPRO'"));
    EXPECT_TRUE(equity->noMatch());

    const auto all = store.db.openRecordset(QStringLiteral("select * from equity"));
    all->findFirst(QStringLiteral("EquitySymbol='INFY'"));
    EXPECT_EQ(all->field(QStringLiteral("portname")), Variant("Growth"));
    all->findNext(QStringLiteral("EquitySymbol='INFY'"));
    EXPECT_FALSE(all->noMatch());
    EXPECT_EQ(all->field(QStringLiteral("portname")), Variant("Income"));

    const auto names = store.db.openRecordset(QStringLiteral("select distinct portname from equity order by portname"));
    names->findFirst(QStringLiteral("portname like 'inc*'"));
    EXPECT_FALSE(names->noMatch());
    EXPECT_EQ(names->field(0), Variant("Income"));
}

TEST_F(RecordsetTest, QueriesWithAggregatesDistinctOrJoinsAreReadOnly) {
    for (const char* sql :
         {"select sum(Commission)  from [trades]where EquitySymbol='INFY' And portname = 'Growth'",
          "select distinct portname from equity",
          "select e.EquitySymbol, t.Tradedshares from equity e join trades t on t.fkequityid = e.pkEquityID",
          "select e.EquitySymbol from equity e, trades t where t.fkequityid = e.pkEquityID"}) {
        const auto recordset = store.db.openRecordset(QString::fromLatin1(sql));
        EXPECT_FALSE(recordset->updatable()) << sql;
        EXPECT_EQ(errorOf([&] { recordset->edit(); }), dberr::ReadOnly) << sql;
        EXPECT_EQ(errorOf([&] { recordset->addNew(); }), dberr::ReadOnly) << sql;
        EXPECT_EQ(errorOf([&] { recordset->deleteCurrent(); }), dberr::ReadOnly) << sql;
    }
}

TEST_F(RecordsetTest, AliasedColumnsWriteToTheirTableColumns) {
    const auto list = store.db.openRecordset(QStringLiteral(
        "select portname as Portfolio,equitysymbol as Symbol,CurrentShares as Shares,CurrentQuotePrice*2 as Twice from "
        "equity where portname='Growth' order by Symbol"));
    ASSERT_TRUE(list->updatable());
    EXPECT_EQ(list->field(QStringLiteral("symbol")), Variant("INFY"));
    list->edit();
    list->setField(QStringLiteral("Shares"), Variant("12"));
    EXPECT_EQ(errorOf([&] { list->setField(QStringLiteral("Twice"), Variant(1)); }), dberr::FieldNotUpdatable);
    list->update();
    EXPECT_EQ(holding("INFY")->field(QStringLiteral("CurrentShares")), Variant(12.0));
    EXPECT_EQ(list->field(QStringLiteral("Twice")), Variant(2801.0));
}

// users stays open on its row for the whole run while screens write the settings elsewhere.
TEST_F(RecordsetTest, OpenRecordsetSeesChangesMadeElsewhere) {
    const auto users = store.db.openRecordset(QStringLiteral("users"));
    EXPECT_EQ(users->field(QStringLiteral("MinTradeBuy")), Variant(1000.0));
    store.db.execute(QStringLiteral("update users set MinTradeBuy = 2500"));
    EXPECT_EQ(users->field(QStringLiteral("MinTradeBuy")), Variant(2500.0));

    const auto settings = store.db.openRecordset(QStringLiteral("select * from users"));
    settings->edit();
    settings->setField(QStringLiteral("ResistBuy"), Variant("12"));
    settings->update();
    EXPECT_EQ(users->field(QStringLiteral("ResistBuy")), Variant(12.0));
}

TEST_F(RecordsetTest, TableRecordsetFollowsItsTable) {
    const auto trades = store.db.openRecordset(QStringLiteral("trades"));
    trades->moveNext();
    store.db.execute(QStringLiteral("insert into trades (fkequityid, EquitySymbol) values (2, 'TCS')"));
    EXPECT_EQ(trades->recordCount(), 13);
    EXPECT_EQ(trades->field(0), Variant(std::int64_t{2}));

    // The row under the cursor goes: no current record, and the next move reaches its follower.
    store.db.execute(QStringLiteral("delete * from trades where pktradeid=2"));
    EXPECT_EQ(errorOf([&] { trades->field(0); }), err::NoCurrentRecord);
    trades->moveNext();
    EXPECT_EQ(trades->field(0), Variant(std::int64_t{3}));

    store.db.execute(QStringLiteral("delete * from trades"));
    EXPECT_EQ(trades->recordCount(), 0);
    EXPECT_TRUE(trades->eof());
    EXPECT_TRUE(trades->bof());
}

TEST_F(RecordsetTest, RowDeletedElsewhereReadsAsDeleted) {
    const auto infy = holding("INFY", "Income");
    store.db.execute(QStringLiteral("delete * from equity where portname='Income'"));
    EXPECT_EQ(errorOf([&] { infy->field(0); }), err::RecordIsDeleted);
}

// A read-once recordset shares a text with the row above only where both hold that text.
TEST_F(RecordsetTest, SnapshotRowsKeepTheirOwnTexts) {
    const char* symbols[] = {"AAA", "AAA", nullptr, "AAA", "BBB", "", "", nullptr};
    for (int day = 0; day < int(std::size(symbols)); ++day)
        store.db.execute(
            QStringLiteral("insert into simulation ([date], [Close], EquitySymbol) values "
                           "('2021-01-%1', %2, %3)")
                .arg(day + 10)
                .arg(day)
                .arg(symbols[day] ? QStringLiteral("'%1'").arg(QLatin1String(symbols[day])) : QStringLiteral("null")));
    const auto days = store.db.openSnapshot(QStringLiteral("select * from simulation order by date"));
    for (const char* symbol : symbols) {
        const Variant text = days->field(QStringLiteral("EquitySymbol"));
        EXPECT_EQ(text, symbol ? Variant(symbol) : Variant::null()) << days->field(QStringLiteral("Close")).toDouble();
        days->moveNext();
    }
    EXPECT_TRUE(days->eof());
}

TEST_F(RecordsetTest, ClosedRecordsetOrDatabaseRefusesWork) {
    const auto users = store.db.openRecordset(QStringLiteral("users"));
    const auto trades = store.db.openRecordset(QStringLiteral("trades"));
    trades->close();
    EXPECT_EQ(errorOf([&] { trades->moveNext(); }), dberr::ObjectInvalid);
    EXPECT_EQ(errorOf([&] { trades->field(0); }), dberr::ObjectInvalid);
    store.db.close();
    EXPECT_EQ(errorOf([&] { users->field(0); }), dberr::ObjectInvalid);
    EXPECT_EQ(errorOf([&] { users->eof(); }), dberr::ObjectInvalid);
}

}  // namespace
}  // namespace ostravel::test
