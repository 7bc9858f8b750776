// Adds rows to one table through kept statements, for a long run that writes a row a day: a
// recordset reads the table's whole row list each time it is opened, this does not, and it
// can write its rows in groups, one statement to a group.
#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

#include "runtime/variant.h"
#include "store/fieldvalue.h"

namespace ostravel {

class Database;
class SqliteConnection;

class RowAppender {
public:
    // The table's columns in the order of "select * from <table>". `group`: the rows that one
    // statement writes; with 1 each row is written at its update.
    RowAppender(Database& database, const QString& table, int group = 1);
    // Writes the rows still waiting; an error then is passed over (flush first to hear of it).
    ~RowAppender();
    RowAppender(const RowAppender&) = delete;
    RowAppender& operator=(const RowAppender&) = delete;

    // As on a recordset: addNew starts an empty row, setField converts by the column's type
    // (3421 when it can't, 3265 for no such column, 3020 before addNew), update hands the row
    // over with the fields that were set, the others left to the table (3020 before addNew).
    void addNew();
    void setField(int position, const Variant& value);
    void setField(const QString& name, const Variant& value);
    void update();
    // Writes the rows handed over and still waiting for their group.
    void flush();

    int fieldCount() const { return static_cast<int>(m_columns.size()); }

private:
    struct Column {
        QString name;
        FieldKind kind;
    };
    struct Insert {
        std::uint64_t columns;
        int rows;
        QString sql;
    };
    // The insert of so many rows of the columns set; each text made once.
    const QString& insertFor(std::uint64_t columns, int rows);

    std::shared_ptr<SqliteConnection> m_connection;
    QString m_table;
    int m_group;
    std::vector<Column> m_columns;
    std::vector<Insert> m_inserts;
    std::vector<Variant> m_buffer;
    std::uint64_t m_set = 0;
    bool m_adding = false;
    std::vector<Variant> m_waiting;  // the set fields of the rows handed over, row after row
    std::vector<Variant> m_writing;  // the group being written
    std::uint64_t m_waitingSet = 0;
    int m_waitingRows = 0;
};

}  // namespace ostravel
