// The program folder a benchmark runs on: made in a temporary directory for the whole run, its
// live database filled once, and the program started on it as often as a benchmark needs.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <functional>

#include "context/program.h"
#include "runtime/scripted_prompt.h"

namespace ostravel {

class Database;

namespace bench {

class BenchFolder {
public:
    // Points App.Path at a new folder, makes its live database and fills it with `fill` in one
    // transaction.
    explicit BenchFolder(const std::function<void(Database&)>& fill);

    QString databasePath() const;

private:
    QTemporaryDir m_dir;
};

// A portfolio of the first user, started on 3 January 2005.
void addPortfolio(Database& db, const QString& name);

// A trade of 10 shares at 100.5 on 17 February 2006, tied to its holding by key.
struct BenchTrade {
    double commission = 8.5;
    QString kind = QStringLiteral("Buy");
    bool quoted = false;  // the price written as TradeQuotePrice too
};
void addTrade(Database& db, int holdingId, const QString& symbol, const QString& portfolio, const BenchTrade& trade);

// The program started on the folder App.Path points at, its store open and the portfolio chosen
// in the main frame; with a symbol, its code chosen too.
struct RunningProgram {
    explicit RunningProgram(const QString& portfolio, const QString& symbol = {});

    ScriptedPrompt prompt;
    Program program{prompt};
};

}  // namespace bench
}  // namespace ostravel
