// The journal of changes: every row that is added, changed or deleted in portfolio, equity,
// trades and currentprice, with the row before and after and the user action that did it. The
// database's own triggers write it, in the transaction of the change, so that nothing the
// program deletes is lost for good; backup, restore and compaction carry it with the file.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "runtime/variant.h"
#include "runtime/vberror.h"

namespace ostravel {

class Database;
class SqliteConnection;

// The tables whose rows the journal keeps, parents first.
const QStringList& journaledTables();

// Makes the journal's tables and triggers where they are missing: in a new file, and in one
// of an earlier version or restored from an old backup.
void installJournal(SqliteConnection& connection);
bool hasJournal(SqliteConnection& connection);

// The user action that the following writes of this transaction belong to; the end of the
// transaction closes it. Writes made outside any action are kept under "Other change".
void beginJournalAction(SqliteConnection& connection, const QString& action);
void endJournalAction(SqliteConnection& connection);

struct JournalEntry {
    enum class Kind { Added, Changed, Deleted };

    long long id = 0;
    QString table;
    long long key = 0;
    QString portname;
    QString symbol;
    QStringList columns;                         // the table's columns, in their order
    std::optional<std::vector<Variant>> before;  // the row as the action found it
    std::optional<std::vector<Variant>> after;   // the row as the action left it

    Kind kind() const;
    // The columns whose value the action changed.
    QStringList changedColumns() const;
    Variant value(const std::vector<Variant>& image, const QString& column) const;
};

struct JournalAction {
    long long id = 0;
    QString action;
    QString at;  // "yyyy-MM-dd hh:mm:ss"
    std::vector<JournalEntry> entries;

    bool deletedRows() const;
};

// Every action with its entries, newest first.
std::vector<JournalAction> journalActions(Database& database);

// Why an action's rows can't come back; the entry names the row.
class JournalClash : public VbError {
public:
    enum class Reason {
        KeyInUse,       // a row with the deleted row's key stands there again
        Duplicate,      // the row would repeat a name that must be unique
        MissingParent,  // the row's portfolio is gone
        RowGone,        // a row the action changed no longer exists
        ChangedSince,   // a row the action changed has changed again since
    };
    JournalClash(Reason reason, JournalEntry entry, QString column = {});

    Reason reason() const { return m_reason; }
    const JournalEntry& entry() const { return m_entry; }
    const QString& column() const { return m_column; }

private:
    Reason m_reason;
    JournalEntry m_entry;
    QString m_column;
};

// Puts back the rows that the action deleted, with their original keys, parents first, and sets
// back the columns it changed in rows that still hold what it wrote. Runs in the caller's
// transaction, which a JournalClash leaves uncommitted so that nothing half-restored stays.
// Prices come back under keys of their own: nothing refers to a currentprice row by its key.
void restoreJournalAction(Database& database, const JournalAction& action);

}  // namespace ostravel
