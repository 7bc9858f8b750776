#include "tests/ledger/holdings.h"

#include "store/database.h"
#include "tests/support/store_rows.h"

namespace ostravel {

using test::sqlNumber;

void addPortfolio(Database& db, const QString& name) {
    test::addPortfolio(db, name, QStringLiteral("2024-01-02"));
}

void addHolding(Database& db, const QString& portfolio, const TestHolding& h) {
    db.execute(
        QStringLiteral("insert into equity (EquitySymbol, portname, OriginalPrice, OriginalShares, OriginalCash, "
                       "CurrentShares, CurrentQuotePrice, CurrentCash, peratio, eps, div, volume) "
                       "values ('%1', '%2', %3, %4, %5, %6, %7, %8, 101.5, 98.25, 5000, 7000)")
            .arg(h.symbol, portfolio)
            .arg(sqlNumber(h.originalPrice))
            .arg(sqlNumber(h.originalShares))
            .arg(sqlNumber(h.originalCash))
            .arg(sqlNumber(h.currentShares))
            .arg(sqlNumber(h.currentQuotePrice))
            .arg(sqlNumber(h.currentCash)));
}

void addTrade(Database& db, const QString& portfolio, const QString& symbol, std::optional<double> commission) {
    db.execute(QStringLiteral("insert into trades (EquitySymbol, portname, TradeDate, Tradedshares, PricePerShare, "
                              "Commission, Buyselltype) values ('%1', '%2', '2024-01-03', 10, 100, %3, 'Buy')")
                   .arg(symbol, portfolio, test::sqlNumberOrNull(commission)));
}

void setAdvice(Database& db, const QString& portfolio, const QString& symbol, double nextBuyPrice, double nextBuyShares,
               double nextSellPrice, double nextSellShares, const QString& lastUpdated) {
    db.execute(QStringLiteral("update equity set NextBuyPrice = %1, NextBuyShares = %2, NextSellPrice = %3, "
                              "NextSellShares = %4, LastUpdated = '%5' where EquitySymbol = '%6' and portname = '%7'")
                   .arg(sqlNumber(nextBuyPrice))
                   .arg(sqlNumber(nextBuyShares))
                   .arg(sqlNumber(nextSellPrice))
                   .arg(sqlNumber(nextSellShares))
                   .arg(lastUpdated, symbol, portfolio));
}

}  // namespace ostravel
