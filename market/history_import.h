// Import of a history file of another layout: columns found by their header names (Date, Open,
// High, Low, Close, Volume, Adj Close, in any order), rows in either order, "null" rows passed
// over; written as the program's own history file, oldest day first.
#pragma once

#include <QByteArray>
#include <QString>

namespace ostravel {

struct HistoryImport {
    QByteArray file;  // the history file's bytes; empty when nothing could be taken
    int written = 0;
    int nullRows = 0;  // rows that say "null" in a price
    int refused = 0;   // rows with no date the run time takes, or too few fields
    QString error;     // why nothing was taken: a column that is missing
};

HistoryImport importHistory(const QByteArray& csv);

// importHistory, written to history/daily/<symbol>.csv whole or not at all. The summary line
// for the user, or the error.
HistoryImport importHistoryFile(const QString& source, const QString& symbol);

// "1600 rows written, 10 null rows skipped, 0 rows refused"
QString importSummary(const HistoryImport& result);

}  // namespace ostravel
