#include "tests/ledger/trade_fixture.h"

#include <QFile>

#include "runtime/apppath.h"
#include "store/database.h"
#include "store/sqltext.h"
#include "tests/support/selection.h"
#include "tests/support/store_rows.h"

namespace ostravel {

using test::holdingWhere;
using test::sqlNumber;
using test::sqlNumberOrNull;

namespace {

std::optional<double> optionalNumber(const Variant& value) {
    if (value.isNull())
        return std::nullopt;
    return value.toDouble();
}

}  // namespace

void LedgerRows::addPortfolio(const QString& portfolio) {
    test::addPortfolio(m_program.store().database(), portfolio, QStringLiteral("2020-01-01"));
}

void LedgerRows::addHolding(const QString& symbol, const QString& portfolio, const Ledger& l) {
    addPortfolio(portfolio);
    m_program.store().database().execute(
        QStringLiteral("insert into equity (fkPortfolioID, EquitySymbol, portname, VealieFlag, OriginalPrice, "
                       "OriginalShares, OriginalCash, CurrentShares, CurrentCash, PortControl, cps, "
                       "CurrentQuotePrice, LastTradePrice) values ((select pkPortfolioID from portfolio where "
                       "PortfolioName='%1'), '%2', '%1', 1, %3, %4, %5, %6, %7, %8, %9, %10, %11)")
            .arg(sqlText(portfolio), sqlText(symbol), sqlNumberOrNull(l.OriginalPrice),
                 sqlNumberOrNull(l.OriginalShares), sqlNumberOrNull(l.OriginalCash), sqlNumberOrNull(l.CurrentShares),
                 sqlNumberOrNull(l.CurrentCash), sqlNumberOrNull(l.PortControl), sqlNumberOrNull(l.cps))
            .arg(sqlNumberOrNull(l.CurrentQuotePrice), sqlNumberOrNull(l.LastTradePrice)));
}

long long LedgerRows::addTrade(const QString& symbol, const QString& portfolio, double shares, double price,
                               double commission, const QString& kind, const QString& date) {
    Database& db = m_program.store().database();
    db.execute(QStringLiteral("insert into trades (fkequityid, EquitySymbol, portname, TradeDate, Tradedshares, "
                              "PricePerShare, Commission, Buyselltype, TradeQuotePrice) values ((select pkEquityID "
                              "from equity%1), '%2', '%3', '%4', %5, %6, %7, '%8', %6)")
                   .arg(holdingWhere(symbol, portfolio), sqlText(symbol), sqlText(portfolio), date, sqlNumber(shares),
                        sqlNumber(price), sqlNumber(commission), kind));
    return scalar(QStringLiteral("select max(pktradeid) from trades")).toLongLong();
}

Ledger LedgerRows::ledger(const QString& symbol, const QString& portfolio) {
    auto row = m_program.store().database().openRecordset(
        QStringLiteral("select OriginalPrice, OriginalShares, OriginalCash, CurrentShares, CurrentCash, PortControl, "
                       "cps, CurrentQuotePrice, LastTradePrice from equity") +
        holdingWhere(symbol, portfolio));
    Ledger l;
    std::optional<double>* columns[] = {&l.OriginalPrice, &l.OriginalShares,    &l.OriginalCash,
                                        &l.CurrentShares, &l.CurrentCash,       &l.PortControl,
                                        &l.cps,           &l.CurrentQuotePrice, &l.LastTradePrice};
    for (int c = 0; c < 9; ++c) *columns[c] = optionalNumber(row->field(c));
    return l;
}

bool LedgerRows::holdingExists(const QString& symbol, const QString& portfolio) {
    return scalar(QStringLiteral("select count(*) from equity") + holdingWhere(symbol, portfolio)).toInt() > 0;
}

int LedgerRows::tradeCount(const QString& symbol, const QString& portfolio) {
    return scalar(QStringLiteral("select count(*) from trades") + holdingWhere(symbol, portfolio)).toInt();
}

QVariant LedgerRows::scalar(const QString& sql) {
    return test::scalar(m_program.store().database(), sql);
}

void LedgerTest::select(const QString& symbol, const QString& portfolio) {
    test::selectHolding(m_program.frame(), symbol, portfolio);
}

QStringList LedgerTest::errorLog() const {
    QFile log(appFile(QStringLiteral("ErrorLog.txt")));
    if (!log.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QStringList entries;
    for (const QString& entry : QString::fromUtf8(log.readAll()).split(QStringLiteral("\n\n"), Qt::SkipEmptyParts))
        entries << entry.trimmed();
    return entries;
}

bool isReport(const QString& message, int number, const QString& place) {
    return message.startsWith(QStringLiteral("Error ") + QString::number(number) + QStringLiteral(" in ") + place);
}

}  // namespace ostravel
