#include "store/recordset.h"

#include <sqlite3.h>

#include <QSet>
#include <algorithm>
#include <limits>
#include <utility>

#include "runtime/vberror.h"
#include "store/dberrors.h"
#include "store/jetsql.h"
#include "store/queryshape.h"

namespace ostravel {

namespace {

[[noreturn]] void readOnlyError() {
    raise(dberr::ReadOnly, QStringLiteral("Cannot update. Database or object is read-only."));
}

QString quotedColumn(const QString& name) {
    QString inner = name;
    inner.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

}  // namespace

Recordset::Recordset(std::shared_ptr<SqliteConnection> connection, const QString& tableNameOrSql, Access access)
    : m_connection(std::move(connection)) {
    const QString sql = jetToSqlite(tableNameOrSql);
    const QueryShape shape = analyseSource(sql);
    m_updatable = shape.updatable && access == Access::Dynamic;
    if (!m_updatable) {
        openRows(sql);
        return;
    }
    m_isTable = shape.isTable;
    m_table = shape.table;
    m_source = shape.source;
    m_qualifier = shape.qualifier;
    m_rowSql = QStringLiteral("select ") + shape.columns + QStringLiteral(" from ") + shape.source +
               QStringLiteral(" where ") + shape.qualifier + QStringLiteral(".rowid=?1");
    {
        const Statement row = m_connection->cached(m_rowSql);
        readColumns(row.get());
    }
    // With a column list the order by may name its aliases, so the list stays in the statement.
    m_rowidSql = QStringLiteral("select ") + shape.qualifier + QStringLiteral(".rowid") +
                 (shape.columns == QLatin1String("*") ? QString() : QStringLiteral(", ") + shape.columns) +
                 QLatin1Char(' ') + shape.fromClause + (m_isTable ? QStringLiteral(" order by rowid") : QString());
    m_rowids = readRowids();
    m_rowsStamp = m_connection->changeStamp();
}

std::vector<std::int64_t> Recordset::readRowids() const {
    std::vector<std::int64_t> rowids;
    Statement rows = m_connection->prepare(m_rowidSql);
    while (rows.step()) rowids.push_back(sqlite3_column_int64(rows.get(), 0));
    return rowids;
}

void Recordset::followTable() const {
    if (!m_isTable || m_mode != EditMode::None)
        return;
    const ChangeStamp stamp = m_connection->changeStamp();
    if (stamp == m_rowsStamp)
        return;
    const long before = count();
    const bool pastEnd = !m_currentDeleted && m_position >= before;
    // The row under the cursor, or after a delete the row that followed it.
    const std::int64_t anchor = m_position >= 0 && m_position < before ? m_rowids[static_cast<std::size_t>(m_position)]
                                                                       : std::numeric_limits<std::int64_t>::max();
    m_rowids = readRowids();
    m_rowsStamp = stamp;
    m_currentPosition = -2;
    if (m_rowids.empty()) {
        // Emptied elsewhere, as simulation is at every start: at both ends, like any empty one.
        m_position = 0;
        m_currentDeleted = false;
        return;
    }
    if (m_position < 0)
        return;
    if (pastEnd) {
        m_position = count();
        return;
    }
    // A table's rows stand in rowid order.
    const auto at = std::lower_bound(m_rowids.begin(), m_rowids.end(), anchor);
    if (!m_currentDeleted && (at == m_rowids.end() || *at != anchor))
        m_currentDeleted = true;  // removed elsewhere: its follower is next
    m_position = static_cast<long>(at - m_rowids.begin());
}

void Recordset::openRows(const QString& sql) {
    Statement rows = m_connection->prepare(sql);
    readColumns(rows.get());
    while (rows.step()) {
        std::vector<Variant> row;
        row.reserve(m_columns.size());
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            row.push_back(readField(rows.get(), static_cast<int>(i), m_columns[i].kind));
        m_snapshot.push_back(std::move(row));
    }
}

void Recordset::readColumns(sqlite3_stmt* statement) {
    const int columns = sqlite3_column_count(statement);
    for (int i = 0; i < columns; ++i) {
        Column column;
        column.name = QString::fromUtf8(sqlite3_column_name(statement, i));
        column.kind = fieldKindOf(sqlite3_column_decltype(statement, i));
        const char* table = sqlite3_column_table_name(statement, i);
        const char* origin = sqlite3_column_origin_name(statement, i);
        if (m_updatable && table != nullptr && origin != nullptr &&
            QString::fromUtf8(table).compare(m_table, Qt::CaseInsensitive) == 0)
            column.origin = QString::fromUtf8(origin);
        m_columns.push_back(std::move(column));
    }
    // The first of two columns of one name is the one that the name reaches.
    for (int i = columns - 1; i >= 0; --i) m_positions.insert(m_columns[static_cast<std::size_t>(i)].name.toLower(), i);
    for (const Column& column : m_columns) m_spelled.insert(column.name, m_positions.value(column.name.toLower()));
}

void Recordset::requireOpen() const {
    if (m_closed || !m_connection || !m_connection->isOpen())
        raise(dberr::ObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    followTable();
}

void Recordset::requireCurrent() const {
    requireOpen();
    if (m_currentDeleted || m_position < 0 || m_position >= count())
        raise(err::NoCurrentRecord);
}

void Recordset::requireUpdatable() const {
    if (!m_updatable)
        readOnlyError();
}

long Recordset::count() const {
    return static_cast<long>(m_updatable ? m_rowids.size() : m_snapshot.size());
}

bool Recordset::eof() const {
    requireOpen();
    return !m_currentDeleted && m_position >= count();
}

bool Recordset::bof() const {
    requireOpen();
    return !m_currentDeleted && (m_position < 0 || count() == 0);
}

long Recordset::recordCount() const {
    requireOpen();
    return count();
}

void Recordset::leaveEditMode() {
    m_mode = EditMode::None;
    m_buffer.clear();
    m_dirty.clear();
}

void Recordset::moveFirst() {
    requireOpen();
    leaveEditMode();
    if (count() == 0)
        raise(err::NoCurrentRecord);
    m_position = 0;
    m_currentDeleted = false;
}

void Recordset::moveLast() {
    requireOpen();
    leaveEditMode();
    if (count() == 0)
        raise(err::NoCurrentRecord);
    m_position = count() - 1;
    m_currentDeleted = false;
}

void Recordset::moveNext() {
    requireOpen();
    leaveEditMode();
    if (m_currentDeleted) {
        // The deleted row left the list: its place now holds the row that followed it.
        m_currentDeleted = false;
        return;
    }
    if (m_position >= count())
        raise(err::NoCurrentRecord);
    ++m_position;
}

void Recordset::movePrevious() {
    requireOpen();
    leaveEditMode();
    if (m_currentDeleted) {
        m_currentDeleted = false;
        --m_position;
        return;
    }
    if (m_position < 0)
        raise(err::NoCurrentRecord);
    --m_position;
}

const std::vector<Variant>& Recordset::currentRow() const {
    requireCurrent();
    if (!m_updatable)
        return m_snapshot[static_cast<std::size_t>(m_position)];
    const ChangeStamp stamp = m_connection->changeStamp();
    if (m_currentPosition == m_position && m_currentStamp == stamp)
        return m_current;
    Statement row = m_connection->cached(m_rowSql);
    sqlite3_bind_int64(row.get(), 1, m_rowids[static_cast<std::size_t>(m_position)]);
    if (!row.step())
        raise(err::RecordIsDeleted);
    m_current.clear();
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_current.push_back(readField(row.get(), static_cast<int>(i), m_columns[i].kind));
    m_currentPosition = m_position;
    m_currentStamp = stamp;
    return m_current;
}

int Recordset::indexOf(const QString& name) const {
    // Most reads spell the name as the column does, and need no lower-case copy of it.
    if (const auto spelled = m_spelled.constFind(name); spelled != m_spelled.constEnd())
        return spelled.value();
    const auto found = m_positions.constFind(name.toLower());
    if (found == m_positions.constEnd())
        raise(err::ItemNotFound);
    return found.value();
}

int Recordset::fieldCount() const {
    requireOpen();
    return static_cast<int>(m_columns.size());
}

QString Recordset::fieldName(int position) const {
    requireOpen();
    if (position < 0 || position >= fieldCount())
        raise(err::ItemNotFound);
    return m_columns[static_cast<std::size_t>(position)].name;
}

Variant Recordset::field(const QString& name) const {
    requireOpen();
    return field(indexOf(name));
}

Variant Recordset::field(int position) const {
    requireOpen();
    if (position < 0 || position >= fieldCount())
        raise(err::ItemNotFound);
    if (m_mode != EditMode::None)
        return m_buffer[static_cast<std::size_t>(position)];
    return currentRow()[static_cast<std::size_t>(position)];
}

void Recordset::setField(const QString& name, const Variant& value) {
    requireOpen();
    setField(indexOf(name), value);
}

void Recordset::setField(int position, const Variant& value) {
    requireOpen();
    if (position < 0 || position >= fieldCount())
        raise(err::ItemNotFound);
    if (m_mode == EditMode::None)
        raise(err::UpdateWithoutAddNew);
    const Column& column = m_columns[static_cast<std::size_t>(position)];
    if (column.origin.isEmpty())
        raise(dberr::FieldNotUpdatable, QStringLiteral("Field can't be updated."));
    m_buffer[static_cast<std::size_t>(position)] = toFieldValue(value, column.kind);
    m_dirty[static_cast<std::size_t>(position)] = true;
}

void Recordset::addNew() {
    requireOpen();
    requireUpdatable();
    m_mode = EditMode::AddNew;
    m_buffer.assign(m_columns.size(), Variant::null());
    m_dirty.assign(m_columns.size(), false);
}

void Recordset::edit() {
    requireOpen();
    requireUpdatable();
    requireCurrent();
    m_buffer = currentRow();
    m_dirty.assign(m_columns.size(), false);
    m_mode = EditMode::Edit;
}

void Recordset::cancelUpdate() {
    requireOpen();
    if (m_mode == EditMode::None)
        raise(err::UpdateWithoutAddNew);
    leaveEditMode();
}

void Recordset::update() {
    requireOpen();
    if (m_mode == EditMode::None)
        raise(err::UpdateWithoutAddNew);
    if (m_mode == EditMode::Edit)
        writeEdit();
    else
        writeNew();
    // Only a write that went through ends the edit: after a failed one it stays pending, and
    // the program can still cancel it.
    leaveEditMode();
}

namespace {

struct Assignment {
    QString column;
    Variant value;
};

// The changed columns, one entry a table column; where a column appears twice the later wins.
std::vector<Assignment> assignments(const std::vector<QString>& origins, const std::vector<Variant>& buffer,
                                    const std::vector<bool>& dirty) {
    std::vector<Assignment> result;
    for (std::size_t i = 0; i < origins.size(); ++i) {
        if (!dirty[i])
            continue;
        const auto same = std::find_if(result.begin(), result.end(), [&](const Assignment& a) {
            return a.column.compare(origins[i], Qt::CaseInsensitive) == 0;
        });
        if (same != result.end())
            same->value = buffer[i];
        else
            result.push_back({origins[i], buffer[i]});
    }
    return result;
}

}  // namespace

void Recordset::writeEdit() {
    std::vector<QString> origins;
    for (const Column& column : m_columns) origins.push_back(column.origin);
    const std::vector<Assignment> changes = assignments(origins, m_buffer, m_dirty);
    if (changes.empty())
        return;
    QString sql = QStringLiteral("update ") + quotedName(m_table) + QStringLiteral(" set ");
    for (std::size_t i = 0; i < changes.size(); ++i)
        sql += (i == 0 ? QString() : QStringLiteral(", ")) + quotedColumn(changes[i].column) + QStringLiteral("=?");
    sql += QStringLiteral(" where rowid=?");
    Statement statement = m_connection->prepare(sql);
    int index = 1;
    for (const Assignment& change : changes) bindField(statement.get(), index++, change.value);
    sqlite3_bind_int64(statement.get(), index, m_rowids[static_cast<std::size_t>(m_position)]);
    statement.step();
    m_connection->noteWrite();
    if (sqlite3_changes(m_connection->handle()) == 0)
        raise(err::RecordIsDeleted);
}

void Recordset::writeNew() {
    std::vector<QString> origins;
    for (const Column& column : m_columns) origins.push_back(column.origin);
    const std::vector<Assignment> values = assignments(origins, m_buffer, m_dirty);
    QString sql = QStringLiteral("insert into ") + quotedName(m_table);
    if (values.empty()) {
        sql += QStringLiteral(" default values");
    } else {
        QString names;
        QString marks;
        for (std::size_t i = 0; i < values.size(); ++i) {
            names += (i == 0 ? QString() : QStringLiteral(", ")) + quotedColumn(values[i].column);
            marks += (i == 0 ? QStringLiteral("?") : QStringLiteral(", ?"));
        }
        sql += QStringLiteral(" (") + names + QStringLiteral(") values (") + marks + QLatin1Char(')');
    }
    Statement statement = m_connection->prepare(sql);
    int index = 1;
    for (const Assignment& value : values) bindField(statement.get(), index++, value.value);
    statement.step();
    m_connection->noteWrite();
    // The row that was current stays current; past the end stays past the end.
    const bool pastEnd = m_position >= count();
    m_rowids.push_back(sqlite3_last_insert_rowid(m_connection->handle()));
    if (pastEnd)
        m_position = count();
}

void Recordset::deleteCurrent() {
    requireOpen();
    requireUpdatable();
    requireCurrent();
    leaveEditMode();
    Statement statement =
        m_connection->cached(QStringLiteral("delete from ") + quotedName(m_table) + QStringLiteral(" where rowid=?1"));
    sqlite3_bind_int64(statement.get(), 1, m_rowids[static_cast<std::size_t>(m_position)]);
    statement.step();
    m_connection->noteWrite();
    m_rowids.erase(m_rowids.begin() + m_position);
    m_currentDeleted = true;
    m_currentPosition = -2;
}

std::vector<bool> Recordset::matchingRows(const QString& criteria) const {
    const QString condition = jetToSqlite(criteria);
    std::vector<bool> matches(static_cast<std::size_t>(count()), false);
    if (m_updatable) {
        Statement statement =
            m_connection->prepare(QStringLiteral("select ") + m_qualifier + QStringLiteral(".rowid from ") + m_source +
                                  QStringLiteral(" where (") + condition + QLatin1Char(')'));
        QSet<std::int64_t> found;
        while (statement.step()) found.insert(sqlite3_column_int64(statement.get(), 0));
        for (std::size_t i = 0; i < m_rowids.size(); ++i) matches[i] = found.contains(m_rowids[i]);
        return matches;
    }
    // A computed row has no table to ask: each row's values are put to the condition in turn.
    QString columns;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        columns += (i == 0 ? QStringLiteral("?") : QStringLiteral(", ?")) +
                   (m_columns[i].kind == FieldKind::Text ? QStringLiteral(" collate nocase") : QString()) +
                   QStringLiteral(" as ") + quotedColumn(m_columns[i].name);
    }
    Statement statement = m_connection->prepare(QStringLiteral("select 1 from (select ") + columns +
                                                QStringLiteral(") where (") + condition + QLatin1Char(')'));
    for (std::size_t row = 0; row < m_snapshot.size(); ++row) {
        sqlite3_reset(statement.get());
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            bindField(statement.get(), static_cast<int>(i + 1), m_snapshot[row][i]);
        matches[row] = statement.step();
    }
    return matches;
}

void Recordset::find(const QString& criteria, long start) {
    requireOpen();
    leaveEditMode();
    const std::vector<bool> matches = matchingRows(criteria);
    for (long row = std::max(start, 0L); row < count(); ++row) {
        if (matches[static_cast<std::size_t>(row)]) {
            m_position = row;
            m_currentDeleted = false;
            m_noMatch = false;
            return;
        }
    }
    m_noMatch = true;
}

void Recordset::findFirst(const QString& criteria) {
    find(criteria, 0);
}

void Recordset::findNext(const QString& criteria) {
    find(criteria, m_currentDeleted ? m_position : m_position + 1);
}

void Recordset::close() {
    leaveEditMode();
    m_closed = true;
    m_rowids.clear();
    m_snapshot.clear();
    m_current.clear();
    m_connection.reset();
}

}  // namespace ostravel
