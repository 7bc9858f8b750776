// Equity - "Bank": the cash movements of the holding in work, read from the journal of changes:
// deposits, withdrawals, interest and dividends, and the cash side of each trade.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace ostravel {

class Database;

struct BankStatement {
    static inline const QStringList kHeadings = {QStringLiteral("When"), QStringLiteral("Action"),
                                                 QStringLiteral("Amount"), QStringLiteral("Balance")};
    std::vector<QStringList> rows;  // oldest first, as a pass book runs
};

// Every change of CurrentCash of the holding (symbol without ".NS") in the portfolio, with the
// user action that made it and the balance it left.
BankStatement bankStatement(Database& database, const QString& portfolio, const QString& symbol);

}  // namespace ostravel
