// Test holdings: a portfolio, its equity rows and trades written straight into the store.
#pragma once

#include <QString>
#include <optional>

namespace ostravel {

class Database;

struct TestHolding {
    QString symbol;
    double originalPrice = 0;
    double originalShares = 0;
    double originalCash = 0;
    double currentShares = 0;
    double currentQuotePrice = 0;
    double currentCash = 0;
};

// A portfolio started on 2 January 2024.
void addPortfolio(Database& db, const QString& name);
void addHolding(Database& db, const QString& portfolio, const TestHolding& holding);
// A trade with the given commission; none stores Null.
void addTrade(Database& db, const QString& portfolio, const QString& symbol, std::optional<double> commission);
void setAdvice(Database& db, const QString& portfolio, const QString& symbol, double nextBuyPrice, double nextBuyShares,
               double nextSellPrice, double nextSellShares, const QString& lastUpdated);

}  // namespace ostravel
