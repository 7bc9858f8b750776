// A recordset as the program uses one: a cursor over the rows of a table or a query, with the
// engine's operations (move, find, add, edit, delete, read and write fields as Variants).
//
// A query's rows are the rowids seen at opening; a table's follow the table, as the engine's
// table recordsets do. Each row's values are read when it becomes current, and read again when
// anything was written since, so that a recordset kept open for the whole run (users) sees
// changes made through other recordsets and statements.
#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

#include "runtime/variant.h"
#include "store/fieldvalue.h"
#include "store/sqliteconnection.h"

namespace ostravel {

class Recordset {
public:
    // How the rows are held: followed in the table, or read once at opening and never written.
    enum class Access { Dynamic, Snapshot };

    // Opened by Database::openRecordset: a table by name, or a query in Jet's dialect.
    Recordset(std::shared_ptr<SqliteConnection> connection, const QString& tableNameOrSql,
              Access access = Access::Dynamic);

    bool eof() const;
    bool bof() const;
    long recordCount() const;

    void moveFirst();
    void moveNext();
    void movePrevious();
    void moveLast();

    // criteria in Jet's where-clause syntax, e.g. "EquitySymbol='INFY'". Without a match the
    // current row stays and noMatch() is true.
    void findFirst(const QString& criteria);
    void findNext(const QString& criteria);
    bool noMatch() const { return m_noMatch; }

    void addNew();
    void edit();
    void update();
    void cancelUpdate();
    // Deletes the current row; until the next move there is no current record.
    void deleteCurrent();

    Variant field(const QString& name) const;
    Variant field(int position) const;
    void setField(const QString& name, const Variant& value);
    void setField(int position, const Variant& value);

    int fieldCount() const;
    QString fieldName(int position) const;
    bool updatable() const { return m_updatable; }

    void close();

private:
    enum class EditMode { None, Edit, AddNew };
    struct Column {
        QString name;
        FieldKind kind;
        QString origin;  // the table's column behind it; empty for a computed column
    };

    void openRows(const QString& sql);
    void readColumns(sqlite3_stmt* statement);
    std::vector<std::int64_t> readRowids() const;
    void followTable() const;
    void requireOpen() const;
    void requireCurrent() const;
    void requireUpdatable() const;
    void leaveEditMode();
    long count() const;
    int indexOf(const QString& name) const;
    const std::vector<Variant>& currentRow() const;
    void find(const QString& criteria, long start);
    std::vector<bool> matchingRows(const QString& criteria) const;
    void writeEdit();
    void writeNew();

    std::shared_ptr<SqliteConnection> m_connection;
    std::vector<Column> m_columns;
    QHash<QString, int> m_positions;  // lower-case name -> first column of that name
    QHash<QString, int> m_spelled;    // the same, by the names as the columns spell them
    bool m_updatable = false;
    bool m_isTable = false;
    QString m_table;                               // written to by update, addNew and deleteCurrent
    QString m_source;                              // the table as the statement names it, with its alias
    QString m_qualifier;                           // what qualifies rowid in m_source
    QString m_rowSql;                              // reads one row by its rowid
    QString m_rowidSql;                            // lists the rows
    std::vector<std::vector<Variant>> m_snapshot;  // a read-only recordset's rows

    // Mutable because even a read of a table recordset first catches up with its table.
    mutable std::vector<std::int64_t> m_rowids;  // an updatable recordset's rows
    mutable long m_position = 0;                 // -1 before the first row, count() after the last
    mutable bool m_currentDeleted = false;
    mutable ChangeStamp m_rowsStamp;
    bool m_noMatch = false;
    bool m_closed = false;

    mutable std::vector<Variant> m_current;
    mutable long m_currentPosition = -2;
    mutable ChangeStamp m_currentStamp;

    EditMode m_mode = EditMode::None;
    std::vector<Variant> m_buffer;
    std::vector<bool> m_dirty;
};

}  // namespace ostravel
