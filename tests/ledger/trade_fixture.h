// A program folder with its database for the ledger's trade, cash and split tests: holdings and
// trades written straight into the store, and the ledger columns of a holding read back.
#pragma once

#include <optional>

#include "tests/support/program_test.h"

namespace ostravel {

// The ledger columns of a holding; an empty column reads as nothing.
struct Ledger {
    std::optional<double> OriginalPrice = 0, OriginalShares = 0, OriginalCash = 0;
    std::optional<double> CurrentShares = 0, CurrentCash = 0, PortControl = 0, cps = 0;
    std::optional<double> CurrentQuotePrice = 0, LastTradePrice = 0;
    bool operator==(const Ledger&) const = default;
};

inline const QString kGrowth = QStringLiteral("Growth");
inline const QString kInfy = QStringLiteral("INFY");

// Writes a holding's rows straight into the program's database.
class LedgerRows {
public:
    explicit LedgerRows(Program& program) : m_program(program) {}

    void addPortfolio(const QString& portfolio);
    // The portfolio is added first when it is missing.
    void addHolding(const QString& symbol, const QString& portfolio, const Ledger& ledger);
    // A trade row as Add Trade writes it; returns its key.
    long long addTrade(const QString& symbol, const QString& portfolio, double shares, double price, double commission,
                       const QString& kind, const QString& date = QStringLiteral("2024-01-03"));

    Ledger ledger(const QString& symbol, const QString& portfolio);
    bool holdingExists(const QString& symbol, const QString& portfolio);
    int tradeCount(const QString& symbol, const QString& portfolio);
    // The first column of the first row of a query; Null as an invalid QVariant.
    QVariant scalar(const QString& sql);

private:
    Program& m_program;
};

class LedgerTest : public test::ProgramTest {
protected:
    // The main frame's selection: the portfolio and the code with ".NS".
    void select(const QString& symbol, const QString& portfolio = kGrowth);
    // The entries of ErrorLog.txt, one text each.
    QStringList errorLog() const;
    // Queues an OK for each error report that is to come.
    void expectReports(int count) {
        for (int i = 0; i < count; ++i) m_prompt.answer(Answer::OK);
    }

    LedgerRows m_rows{m_program};
};

// Whether a message of the prompt is an error report of the given number and place.
bool isReport(const QString& message, int number, const QString& place);

}  // namespace ostravel
