#include "tests/ledger/holdings.h"

#include "store/database.h"

namespace ostravel {

namespace {

// Every digit of the double, so that the column holds exactly the value of the test.
QString num(double value) {
    return QString::number(value, 'g', 17);
}

}  // namespace

void addPortfolio(Database& db, const QString& name) {
    db.execute(
        QStringLiteral("insert into portfolio (fkUserID, PortfolioName, PortStartDate) values (1, '%1', '2024-01-02')")
            .arg(name));
}

void addHolding(Database& db, const QString& portfolio, const TestHolding& h) {
    db.execute(
        QStringLiteral("insert into equity (EquitySymbol, portname, OriginalPrice, OriginalShares, OriginalCash, "
                       "CurrentShares, CurrentQuotePrice, CurrentCash, peratio, eps, div, volume) "
                       "values ('%1', '%2', %3, %4, %5, %6, %7, %8, 101.5, 98.25, 5000, 7000)")
            .arg(h.symbol, portfolio)
            .arg(num(h.originalPrice))
            .arg(num(h.originalShares))
            .arg(num(h.originalCash))
            .arg(num(h.currentShares))
            .arg(num(h.currentQuotePrice))
            .arg(num(h.currentCash)));
}

void addTrade(Database& db, const QString& portfolio, const QString& symbol, std::optional<double> commission) {
    db.execute(QStringLiteral("insert into trades (EquitySymbol, portname, TradeDate, Tradedshares, PricePerShare, "
                              "Commission, Buyselltype) values ('%1', '%2', '2024-01-03', 10, 100, %3, 'Buy')")
                   .arg(symbol, portfolio, commission ? num(*commission) : QStringLiteral("null")));
}

void setAdvice(Database& db, const QString& portfolio, const QString& symbol, double nextBuyPrice, double nextBuyShares,
               double nextSellPrice, double nextSellShares, const QString& lastUpdated) {
    db.execute(QStringLiteral("update equity set NextBuyPrice = %1, NextBuyShares = %2, NextSellPrice = %3, "
                              "NextSellShares = %4, LastUpdated = '%5' where EquitySymbol = '%6' and portname = '%7'")
                   .arg(num(nextBuyPrice))
                   .arg(num(nextBuyShares))
                   .arg(num(nextSellPrice))
                   .arg(num(nextSellShares))
                   .arg(lastUpdated, symbol, portfolio));
}

}  // namespace ostravel
