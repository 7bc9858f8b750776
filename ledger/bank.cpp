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

qint64 paise(double rupees) {
    return qRound64(rupees * 100);
}

// Whole paise, so that a difference is never off by a rounding of its own.
QString money(qint64 paise) {
    const QString sign = paise < 0 ? QStringLiteral("-") : QString();
    const qint64 whole = paise < 0 ? -paise : paise;
    return sign + QString::number(whole / 100) + QLatin1Char('.') +
           QStringLiteral("%1").arg(whole % 100, 2, 10, QLatin1Char('0'));
}

}  // namespace

BankStatement bankStatement(Database& database, const QString& portfolio, const QString& symbol) {
    BankStatement statement;
    const std::vector<JournalAction> actions = journalActions(database);
    for (auto action = actions.rbegin(); action != actions.rend(); ++action) {
        // One line an action: a trade that writes the row more than once is still one movement.
        std::optional<qint64> before;
        qint64 after = 0;
        for (const JournalEntry& entry : action->entries) {
            if (entry.table != QLatin1String("equity") || entry.portname != portfolio || entry.symbol != symbol)
                continue;
            if (!before)
                before = paise(cash(entry, entry.before));
            after = paise(cash(entry, entry.after));
        }
        // Amounts to the paisa: a change of price or shares alone is no movement of cash.
        if (!before || *before == after)
            continue;
        const QDateTime at = QDateTime::fromString(action->at, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        statement.rows.push_back({at.isValid() ? at.toString(QStringLiteral("dd/MM/yyyy hh:mm:ss")) : action->at,
                                  action->action, money(after - *before), money(after)});
    }
    return statement;
}

}  // namespace ostravel
