#include "store/row_appender.h"

#include <sqlite3.h>

#include "runtime/trap.h"
#include "runtime/vberror.h"
#include "store/database.h"
#include "store/dberrors.h"
#include "store/queryshape.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

// One bit a column in the mask of the columns set.
constexpr int kMostColumns = 64;

bool isSet(std::uint64_t columns, int position) {
    return (columns & (std::uint64_t{1} << position)) != 0;
}

}  // namespace

RowAppender::RowAppender(Database& database, const QString& table, int group)
    : m_connection(database.connection()), m_table(table), m_group(std::max(group, 1)) {
    if (!m_connection || !m_connection->isOpen())
        raise(dberr::ObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    Statement columns = m_connection->prepare(QStringLiteral("select * from ") + quotedName(table));
    const int count = sqlite3_column_count(columns.get());
    if (count > kMostColumns)
        raise(err::InvalidProcedureCall);
    for (int i = 0; i < count; ++i)
        m_columns.push_back({QString::fromUtf8(sqlite3_column_name(columns.get(), i)),
                             fieldKindOf(sqlite3_column_decltype(columns.get(), i))});
}

RowAppender::~RowAppender() {
    // A destructor can't report: whoever wants to hear of an error flushes first.
    passedOver([&] { flush(); });
}

void RowAppender::addNew() {
    m_buffer.assign(m_columns.size(), Variant::null());
    m_set = 0;
    m_adding = true;
}

void RowAppender::setField(int position, const Variant& value) {
    if (position < 0 || position >= fieldCount())
        raise(err::ItemNotFound);
    if (!m_adding)
        raise(err::UpdateWithoutAddNew);
    const auto at = static_cast<std::size_t>(position);
    m_buffer[at] = toFieldValue(value, m_columns[at].kind);
    m_set |= std::uint64_t{1} << position;
}

void RowAppender::setField(const QString& name, const Variant& value) {
    for (int i = 0; i < fieldCount(); ++i)
        if (m_columns[static_cast<std::size_t>(i)].name.compare(name, Qt::CaseInsensitive) == 0)
            return setField(i, value);
    raise(err::ItemNotFound);
}

const QString& RowAppender::insertFor(std::uint64_t columns, int rows) {
    for (const Insert& insert : m_inserts)
        if (insert.columns == columns && insert.rows == rows)
            return insert.sql;
    QString names;
    QString marks;
    for (int i = 0; i < fieldCount(); ++i) {
        if (!isSet(columns, i))
            continue;
        names += (names.isEmpty() ? QString() : QStringLiteral(", ")) + quotedName(m_columns[std::size_t(i)].name);
        marks += marks.isEmpty() ? QStringLiteral("?") : QStringLiteral(", ?");
    }
    QString sql = QStringLiteral("insert into ") + quotedName(m_table);
    if (names.isEmpty()) {
        sql += QStringLiteral(" default values");
    } else {
        sql += QStringLiteral(" (") + names + QStringLiteral(") values ");
        for (int row = 0; row < rows; ++row)
            sql += (row == 0 ? QString() : QStringLiteral(", ")) + QLatin1Char('(') + marks + QLatin1Char(')');
    }
    m_inserts.push_back({columns, rows, std::move(sql)});
    return m_inserts.back().sql;
}

void RowAppender::update() {
    if (!m_adding)
        raise(err::UpdateWithoutAddNew);
    if (m_waitingRows > 0 && m_set != m_waitingSet)
        flush();
    for (int i = 0; i < fieldCount(); ++i)
        if (isSet(m_set, i))
            m_waiting.push_back(m_buffer[static_cast<std::size_t>(i)]);
    m_waitingSet = m_set;
    ++m_waitingRows;
    // As on a recordset, the row handed over ends the new row.
    m_adding = false;
    if (m_waitingRows >= m_group)
        flush();
}

void RowAppender::flush() {
    if (m_waitingRows == 0)
        return;
    // The rows leave the waiting list before they are written, so that a group that fails is
    // not written again; both lists keep their room for the next group.
    std::swap(m_waiting, m_writing);
    const std::uint64_t columns = m_waitingSet;
    // A table's own defaults fill a row with no field set, one row to a statement.
    const int rows = columns == 0 ? 1 : m_waitingRows;
    const int times = columns == 0 ? m_waitingRows : 1;
    m_waiting.clear();
    m_waitingRows = 0;
    for (int time = 0; time < times; ++time) {
        Statement insert = m_connection->cached(insertFor(columns, rows));
        int index = 1;
        for (const Variant& value : m_writing) bindField(insert.get(), index++, value);
        insert.step();
        m_connection->noteWrite();
    }
}

}  // namespace ostravel
