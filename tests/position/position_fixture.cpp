#include "position_fixture.h"

#include "position/vbvalues.h"
#include "store/sqltext.h"
#include "tests/support/selection.h"
#include "tests/support/store_rows.h"

namespace ostravel {

using test::sqlNumber;

void PositionTest::execute(const QString& sql) {
    store().database().execute(sql);
}

void PositionTest::setRule(const RuleSettings& rule) {
    execute(QStringLiteral("update users set MinTradeSell=%1, MinTradeBuy=%2, MinTradeSellSh=%3, MinTradeBuySh=%4, "
                           "ResistSell=%5, ResistBuy=%6")
                .arg(sqlNumber(rule.minTradeSell), sqlNumber(rule.minTradeBuy), sqlNumber(rule.minTradeSellSh),
                     sqlNumber(rule.minTradeBuySh), sqlNumber(rule.resistSell), sqlNumber(rule.resistBuy)));
}

void PositionTest::addHolding(const HoldingRow& row) {
    test::addPortfolio(store().database(), row.portfolio, QStringLiteral("2020-01-01"));
    execute(
        QStringLiteral("insert into equity (fkPortfolioID, EquitySymbol, portname, CurrentQuotePrice, CurrentCash, "
                       "CurrentShares, PortControl, VealieFlag, OriginalPrice, OriginalShares, OriginalCash) "
                       "values ((select pkPortfolioID from portfolio where PortfolioName='%1'), '%2', '%1', %3, %4, "
                       "%5, %6, 1, 100, 100, 4000)")
            .arg(sqlText(row.portfolio), sqlText(row.symbol), sqlNumber(row.price), sqlNumber(row.cash),
                 sqlNumber(row.shares), test::sqlNumberOrNull(row.portControl)));
}

void PositionTest::addTrade(const HoldingRow& row, double shares, double price, const QString& kind) {
    execute(QStringLiteral("insert into trades (EquitySymbol, portname, TradeDate, Tradedshares, PricePerShare, "
                           "Buyselltype) values ('%1', '%2', '2021-03-04', %3, %4, '%5')")
                .arg(sqlText(row.symbol), sqlText(row.portfolio), sqlNumber(shares), sqlNumber(price), kind));
}

QString PositionTest::stored(const HoldingRow& row, const QString& column) {
    auto rs = store().database().openRecordset(QStringLiteral("select ") + column + QStringLiteral(" from equity") +
                                               test::holdingWhere(row.symbol, row.portfolio));
    return columnText(rs->field(0));
}

QVariant PositionTest::scalar(const QString& sql) {
    return test::scalar(store().database(), sql);
}

void PositionTest::select(const HoldingRow& row) {
    test::selectHolding(m_program.frame(), row.symbol, row.portfolio);
}

}  // namespace ostravel
