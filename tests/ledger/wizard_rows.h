// Rows for the portfolio and holding wizards' tests: holdings and trades tied to their
// portfolio and holding by key, as the wizards and the trade screen write them, and the
// tables read back as text.
#pragma once

#include <QString>
#include <QStringList>

namespace ostravel {

class Database;

struct KeyedHolding {
    QString portfolio;
    QString symbol;
    QString startDate = QStringLiteral("2024-01-02");  // ISO
    double cps = 0;
};

// The holding's key.
long long addKeyedHolding(Database& db, const KeyedHolding& holding);
void addKeyedTrade(Database& db, long long holdingId, const KeyedHolding& holding);

// Each row of the statement as its fields' texts joined by "|", a Null as "Null".
QStringList tableRows(Database& db, const QString& sql);

}  // namespace ostravel
