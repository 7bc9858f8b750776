#include "position_fixture.h"

#include "position/vbvalues.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

QString number(double value) {
    return QString::number(value, 'g', 17);
}

}  // namespace

PositionTest::PositionTest() {
    setAppPath(m_dir.path());
    m_program.store().connection();
}

void PositionTest::execute(const QString& sql) {
    store().database().execute(sql);
}

void PositionTest::setRule(const RuleSettings& rule) {
    execute(QStringLiteral("update users set MinTradeSell=%1, MinTradeBuy=%2, MinTradeSellSh=%3, MinTradeBuySh=%4, "
                           "ResistSell=%5, ResistBuy=%6")
                .arg(number(rule.minTradeSell), number(rule.minTradeBuy), number(rule.minTradeSellSh),
                     number(rule.minTradeBuySh), number(rule.resistSell), number(rule.resistBuy)));
}

void PositionTest::addHolding(const HoldingRow& row) {
    execute(
        QStringLiteral("insert into portfolio (fkUserID, PortfolioName, PortStartDate) select 1, '%1', '2020-01-01' "
                       "where not exists (select 1 from portfolio where PortfolioName='%1')")
            .arg(sqlText(row.portfolio)));
    execute(
        QStringLiteral("insert into equity (fkPortfolioID, EquitySymbol, portname, CurrentQuotePrice, CurrentCash, "
                       "CurrentShares, PortControl, VealieFlag, OriginalPrice, OriginalShares, OriginalCash) "
                       "values ((select pkPortfolioID from portfolio where PortfolioName='%1'), '%2', '%1', %3, %4, "
                       "%5, %6, 1, 100, 100, 4000)")
            .arg(sqlText(row.portfolio), sqlText(row.symbol), number(row.price), number(row.cash), number(row.shares),
                 row.portControl ? number(*row.portControl) : QStringLiteral("NULL")));
}

void PositionTest::addTrade(const HoldingRow& row, double shares, double price, const QString& kind) {
    execute(QStringLiteral("insert into trades (EquitySymbol, portname, TradeDate, Tradedshares, PricePerShare, "
                           "Buyselltype) values ('%1', '%2', '2021-03-04', %3, %4, '%5')")
                .arg(sqlText(row.symbol), sqlText(row.portfolio), number(shares), number(price), kind));
}

QString PositionTest::stored(const HoldingRow& row, const QString& column) {
    auto rs = store().database().openRecordset(
        QStringLiteral("select ") + column + QStringLiteral(" from equity where EquitySymbol='") + sqlText(row.symbol) +
        QStringLiteral("' and portname='") + sqlText(row.portfolio) + QLatin1Char('\''));
    return columnText(rs->field(0));
}

QVariant PositionTest::scalar(const QString& sql) {
    const Variant value = store().database().openRecordset(sql)->field(0);
    if (value.isNull())
        return {};
    return value.kind() == Variant::Kind::String ? QVariant(value.toString()) : QVariant(value.toDouble());
}

void PositionTest::select(const HoldingRow& row) {
    m_program.frame().cmbportfolio.text = row.portfolio;
    m_program.frame().cmbequity = row.symbol + QStringLiteral(".NS");
}

}  // namespace ostravel
