#include "ledger/bank.h"

#include <QDateTime>

#include "store/journal.h"

namespace ostravel {

namespace {

const QString kCash = QStringLiteral("CurrentCash");

double cash(const JournalEntry& entry, const std::optional<std::vector<Variant>>& image) {
    if (!image)
        return 0;
    const Variant value = entry.value(*image, kCash);
    return value.isNull() || value.isEmpty() ? 0 : value.toDouble();
}

QString money(double value) {
    return QString::number(value, 'f', 2);
}

}  // namespace

BankStatement bankStatement(Database& database, const QString& portfolio, const QString& symbol) {
    BankStatement statement;
    const std::vector<JournalAction> actions = journalActions(database);
    for (auto action = actions.rbegin(); action != actions.rend(); ++action) {
        for (const JournalEntry& entry : action->entries) {
            if (entry.table != QLatin1String("equity") || entry.portname != portfolio || entry.symbol != symbol)
                continue;
            const double before = cash(entry, entry.before);
            const double after = cash(entry, entry.after);
            // Amounts to the paisa: a change of price or shares alone is no movement of cash.
            if (qRound64(before * 100) == qRound64(after * 100))
                continue;
            const QDateTime at = QDateTime::fromString(action->at, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
            statement.rows.push_back({at.isValid() ? at.toString(QStringLiteral("dd/MM/yyyy hh:mm:ss")) : action->at,
                                      action->action, money(after - before), money(after)});
        }
    }
    return statement;
}

}  // namespace ostravel
