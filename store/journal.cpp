#include "store/journal.h"

#include <sqlite3.h>

#include <QDateTime>
#include <QHash>
#include <map>

#include "store/database.h"
#include "store/dberrors.h"
#include "store/recordset.h"
#include "store/schema.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

const QString kOtherChange = QStringLiteral("Other change");
const QString kBefore = QStringLiteral("before");
const QString kAfter = QStringLiteral("after");
const QString kTimePattern = QStringLiteral("yyyy-MM-dd hh:mm:ss");
// The journal's own columns in front of each image's copy of the row.
constexpr int kImageColumnsAhead = 2;

// A journaled table: its key, and how a row names its portfolio and its stock. R stands for
// the row, NEW or OLD.
struct Journaled {
    QString table;
    QString key;
    QString portname;
    QString symbol;
};

const std::vector<Journaled>& journaled() {
    static const std::vector<Journaled> tables = {
        {QStringLiteral("portfolio"), QStringLiteral("pkPortfolioID"), QStringLiteral("R.PortfolioName"),
         QStringLiteral("NULL")},
        {QStringLiteral("equity"), QStringLiteral("pkEquityID"), QStringLiteral("R.portname"),
         QStringLiteral("R.EquitySymbol")},
        {QStringLiteral("trades"), QStringLiteral("pktradeid"), QStringLiteral("R.portname"),
         QStringLiteral("R.EquitySymbol")},
        // A price names its holding by key only; the holding names the portfolio.
        {QStringLiteral("currentprice"), QStringLiteral("rowid"),
         QStringLiteral("(SELECT portname FROM equity WHERE pkEquityID = R.fkequityid)"),
         QStringLiteral("R.equitysymbol")},
    };
    return tables;
}

const Journaled& journaledTable(const QString& table) {
    for (const Journaled& t : journaled())
        if (t.table == table)
            return t;
    raise(dberr::TableNotFound, table);
}

const TableShape& shapeOf(const QString& table) {
    for (const TableShape& shape : schemaTables())
        if (shape.name == table)
            return shape;
    raise(dberr::TableNotFound, table);
}

QString quoted(const QString& name) {
    return QLatin1Char('"') + name + QLatin1Char('"');
}

QString imageTable(const QString& table) {
    return QStringLiteral("journal_") + table;
}

QStringList columnNames(const QString& table) {
    QStringList names;
    for (const ColumnShape& column : shapeOf(table).columns) names << column.name;
    return names;
}

QString columnList(const QStringList& columns, const QString& prefix = {}) {
    QStringList parts;
    for (const QString& column : columns) parts << prefix + quoted(column);
    return parts.join(QStringLiteral(", "));
}

QString declaredType(ColumnType type) {
    switch (type) {
        case ColumnType::AutoNumber:
        case ColumnType::Integer:
            return QStringLiteral("INTEGER");
        case ColumnType::Real:
            return QStringLiteral("REAL");
        case ColumnType::Text:
            return QStringLiteral("TEXT");
        case ColumnType::Date:
            return QStringLiteral("DATE");
    }
    return {};
}

// The journal entry of this action for the row R.
QString entryOf(const Journaled& t, const QString& row) {
    return QStringLiteral(
               "(SELECT j.pkJournalID FROM journal j, journal_now n WHERE j.actionID = n.actionID AND "
               "j.tablename = '%1' AND j.rowkey = %2.%3)")
        .arg(t.table, row, t.key);
}

QString triggerBody(const Journaled& t, const QString& event) {
    const bool added = event == QLatin1String("INSERT");
    const bool deleted = event == QLatin1String("DELETE");
    const QString row = deleted ? QStringLiteral("OLD") : QStringLiteral("NEW");
    const QStringList columns = columnNames(t.table);
    const QString images = quoted(imageTable(t.table));
    const QString imageColumns = QStringLiteral("fkJournalID, image, ") + columnList(columns);
    QString portname = t.portname;
    QString symbol = t.symbol;
    portname.replace(QStringLiteral("R."), row + QLatin1Char('.'));
    symbol.replace(QStringLiteral("R."), row + QLatin1Char('.'));

    // A write outside any action opens one of its own.
    QString body =
        QStringLiteral(
            "UPDATE journal_now SET actionID = (SELECT coalesce(max(actionID), 0) + 1 FROM journal), action = '%1', "
            "at = datetime('now', 'localtime') WHERE actionID IS NULL; ")
            .arg(kOtherChange);
    // One entry for each row an action touches: the first write finds the row as it was.
    body += QStringLiteral(
                "INSERT INTO journal (actionID, action, at, tablename, rowkey, portname, symbol) "
                "SELECT n.actionID, n.action, n.at, '%1', %2.%3, %4, %5 FROM journal_now n WHERE NOT EXISTS "
                "(SELECT 1 FROM journal j WHERE j.actionID = n.actionID AND j.tablename = '%1' AND j.rowkey = %2.%3); ")
                .arg(t.table, row, t.key, portname, symbol);
    if (!added)
        body += QStringLiteral(
                    "INSERT INTO %1 (%2) SELECT e.id, '%3', %4 FROM (SELECT %5 AS id) e WHERE NOT EXISTS "
                    "(SELECT 1 FROM %1 s WHERE s.fkJournalID = e.id); ")
                    .arg(images, imageColumns, kBefore, columnList(columns, QStringLiteral("OLD.")),
                         entryOf(t, QStringLiteral("OLD")));
    body +=
        QStringLiteral("DELETE FROM %1 WHERE image = '%2' AND fkJournalID = %3; ").arg(images, kAfter, entryOf(t, row));
    if (deleted) {
        // A row added and deleted by the same action leaves nothing to tell.
        body += QStringLiteral(
                    "DELETE FROM journal WHERE pkJournalID = %1 AND NOT EXISTS "
                    "(SELECT 1 FROM %2 s WHERE s.fkJournalID = journal.pkJournalID); ")
                    .arg(entryOf(t, QStringLiteral("OLD")), images);
    } else {
        body += QStringLiteral("INSERT INTO %1 (%2) SELECT %3, '%4', %5; ")
                    .arg(images, imageColumns, entryOf(t, QStringLiteral("NEW")), kAfter,
                         columnList(columns, QStringLiteral("NEW.")));
    }
    return body;
}

Statement bound(SqliteConnection& connection, const QString& sql, std::initializer_list<long long> values) {
    Statement statement = connection.prepare(sql);
    int index = 1;
    for (long long value : values) sqlite3_bind_int64(statement.get(), index++, value);
    return statement;
}

long long countOf(SqliteConnection& connection, const QString& sql, std::initializer_list<long long> values) {
    Statement statement = bound(connection, sql, values);
    statement.step();
    return sqlite3_column_int64(statement.get(), 0);
}

void write(SqliteConnection& connection, const QString& sql, std::initializer_list<long long> values) {
    Statement statement = bound(connection, sql, values);
    while (statement.step()) {
    }
    connection.noteWrite();
}

void putBack(SqliteConnection& connection, const JournalEntry& entry) {
    const Journaled& t = journaledTable(entry.table);
    if (t.key != QLatin1String("rowid") &&
        countOf(connection, QStringLiteral("SELECT count(*) FROM %1 WHERE %2 = ?1").arg(quoted(t.table), t.key),
                {entry.key}) > 0)
        throw JournalClash(JournalClash::Reason::KeyInUse, entry);
    const QString columns = columnList(entry.columns);
    try {
        write(connection,
              QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM %3 WHERE fkJournalID = ?1 AND image = '%4'")
                  .arg(quoted(t.table), columns, quoted(imageTable(t.table)), kBefore),
              {entry.id});
    } catch (const VbError& e) {
        if (e.number() == dberr::DuplicateKey)
            throw JournalClash(JournalClash::Reason::Duplicate, entry);
        if (e.number() == dberr::RelatedRecordRequired)
            throw JournalClash(JournalClash::Reason::MissingParent, entry);
        throw;
    }
}

void setBack(SqliteConnection& connection, const JournalEntry& entry) {
    const Journaled& t = journaledTable(entry.table);
    const QString table = quoted(t.table);
    const QString images = quoted(imageTable(t.table));
    if (countOf(connection, QStringLiteral("SELECT count(*) FROM %1 WHERE %2 = ?1").arg(table, t.key), {entry.key}) ==
        0)
        throw JournalClash(JournalClash::Reason::RowGone, entry);
    const QStringList changed = entry.changedColumns();
    QStringList assignments;
    for (const QString& column : changed) {
        const QString name = quoted(column);
        if (countOf(connection,
                    QStringLiteral("SELECT count(*) FROM %1 r, %2 a WHERE r.%3 = ?1 AND a.fkJournalID = ?2 AND "
                                   "a.image = '%4' AND r.%5 IS a.%5")
                        .arg(table, images, t.key, kAfter, name),
                    {entry.key, entry.id}) == 0)
            throw JournalClash(JournalClash::Reason::ChangedSince, entry, column);
        assignments << QStringLiteral("%1 = (SELECT %1 FROM %2 WHERE fkJournalID = ?2 AND image = '%3')")
                           .arg(name, images, kBefore);
    }
    if (!assignments.isEmpty())
        write(
            connection,
            QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?1").arg(table, assignments.join(QStringLiteral(", ")), t.key),
            {entry.key, entry.id});
}

}  // namespace

const QStringList& journaledTables() {
    static const QStringList names = [] {
        QStringList list;
        for (const Journaled& t : journaled()) list << t.table;
        return list;
    }();
    return names;
}

bool hasJournal(SqliteConnection& connection) {
    Statement statement = connection.cached(
        QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = 'journal_now'"));
    statement.step();
    return sqlite3_column_int64(statement.get(), 0) > 0;
}

namespace {

void createJournal(SqliteConnection& connection) {
    connection.run(QStringLiteral(
        "CREATE TABLE IF NOT EXISTS journal (pkJournalID INTEGER PRIMARY KEY AUTOINCREMENT, actionID INTEGER NOT NULL, "
        "action TEXT, at TEXT, tablename TEXT NOT NULL, rowkey INTEGER, portname TEXT, symbol TEXT)"));
    connection.run(
        QStringLiteral("CREATE INDEX IF NOT EXISTS journal_by_row ON journal (actionID, tablename, rowkey)"));
    for (const Journaled& t : journaled()) {
        QStringList columns = {QStringLiteral("fkJournalID INTEGER NOT NULL"), QStringLiteral("image TEXT NOT NULL")};
        for (const ColumnShape& column : shapeOf(t.table).columns)
            columns << quoted(column.name) + QLatin1Char(' ') + declaredType(column.type);
        const QString images = imageTable(t.table);
        connection.run(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (%2)")
                           .arg(quoted(images), columns.join(QStringLiteral(", "))));
        connection.run(QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (fkJournalID)")
                           .arg(quoted(images + QStringLiteral("_by_entry")), quoted(images)));
        for (const char* event : {"INSERT", "UPDATE", "DELETE"}) {
            const QString name = QString::fromLatin1(event);
            connection.run(QStringLiteral("CREATE TRIGGER IF NOT EXISTS %1 AFTER %2 ON %3 BEGIN %4END")
                               .arg(quoted(images + QLatin1Char('_') + name.toLower()), name, quoted(t.table),
                                    triggerBody(t, name)));
        }
    }
    // Made last: its presence tells that the journal is whole.
    connection.run(QStringLiteral("CREATE TABLE IF NOT EXISTS journal_now (actionID INTEGER, action TEXT, at TEXT)"));
    connection.run(QStringLiteral("INSERT INTO journal_now DEFAULT VALUES"));
}

}  // namespace

void installJournal(SqliteConnection& connection) {
    if (hasJournal(connection))
        return;
    // All of it or nothing, inside a transaction or on its own; what a file has of it already
    // stays, and the rest is made.
    connection.run(QStringLiteral("SAVEPOINT journal_install"));
    try {
        createJournal(connection);
    } catch (...) {
        sqlite3_exec(connection.handle(), "ROLLBACK TO journal_install; RELEASE journal_install", nullptr, nullptr,
                     nullptr);
        throw;
    }
    connection.run(QStringLiteral("RELEASE journal_install"));
}

void beginJournalAction(SqliteConnection& connection, const QString& action) {
    if (!hasJournal(connection))
        return;
    Statement statement =
        connection.prepare(QStringLiteral("UPDATE journal_now SET actionID = (SELECT coalesce(max(actionID), 0) + 1 "
                                          "FROM journal), action = ?1, at = ?2"));
    const QByteArray label = action.toUtf8();
    const QByteArray at = QDateTime::currentDateTime().toString(kTimePattern).toUtf8();
    sqlite3_bind_text(statement.get(), 1, label.constData(), int(label.size()), SQLITE_TRANSIENT);
    sqlite3_bind_text(statement.get(), 2, at.constData(), int(at.size()), SQLITE_TRANSIENT);
    statement.step();
}

void endJournalAction(SqliteConnection& connection) {
    if (hasJournal(connection))
        connection.run(QStringLiteral("UPDATE journal_now SET actionID = NULL, action = NULL, at = NULL"));
}

JournalEntry::Kind JournalEntry::kind() const {
    if (!before)
        return Kind::Added;
    return after ? Kind::Changed : Kind::Deleted;
}

QStringList JournalEntry::changedColumns() const {
    QStringList changed;
    if (!before || !after)
        return changed;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        const Variant& a = before->at(std::size_t(i));
        const Variant& b = after->at(std::size_t(i));
        if (a.isNull() != b.isNull() || (!a.isNull() && !(a == b)))
            changed << columns.at(i);
    }
    return changed;
}

Variant JournalEntry::value(const std::vector<Variant>& image, const QString& column) const {
    const qsizetype index = columns.indexOf(column);
    return index < 0 ? Variant() : image.at(std::size_t(index));
}

bool JournalAction::deletedRows() const {
    for (const JournalEntry& entry : entries)
        if (entry.kind() == JournalEntry::Kind::Deleted)
            return true;
    return false;
}

std::vector<JournalAction> journalActions(Database& database) {
    // The images of every entry, by entry.
    std::map<long long, std::pair<std::optional<std::vector<Variant>>, std::optional<std::vector<Variant>>>> images;
    for (const Journaled& t : journaled()) {
        auto rows = database.openRecordset(QStringLiteral("select * from ") + imageTable(t.table));
        for (; !rows->eof(); rows->moveNext()) {
            std::vector<Variant> row;
            for (int i = kImageColumnsAhead; i < rows->fieldCount(); ++i) row.push_back(rows->field(i));
            auto& pair = images[rows->field(0).toLong()];
            (rows->field(1).toString() == kBefore ? pair.first : pair.second) = std::move(row);
        }
    }
    std::vector<JournalAction> actions;
    auto entries = database.openRecordset(
        QStringLiteral("select pkJournalID, actionID, action, at, tablename, rowkey, portname, symbol from journal "
                       "order by actionID desc, pkJournalID"));
    for (; !entries->eof(); entries->moveNext()) {
        const long long actionId = entries->field(1).toLong();
        if (actions.empty() || actions.back().id != actionId)
            actions.push_back({actionId, entries->field(2).toString(), entries->field(3).toString(), {}});
        JournalEntry entry;
        entry.id = entries->field(0).toLong();
        entry.table = entries->field(4).toString();
        entry.key = entries->field(5).toLong();
        entry.portname = entries->field(6).isNull() ? QString() : entries->field(6).toString();
        entry.symbol = entries->field(7).isNull() ? QString() : entries->field(7).toString();
        entry.columns = columnNames(entry.table);
        const auto found = images.find(entry.id);
        if (found != images.end()) {
            entry.before = found->second.first;
            entry.after = found->second.second;
        }
        actions.back().entries.push_back(std::move(entry));
    }
    return actions;
}

JournalClash::JournalClash(Reason reason, JournalEntry entry, QString column)
    : VbError(dberr::DuplicateKey, QStringLiteral("The rows of this change can't come back.")),
      m_reason(reason),
      m_entry(std::move(entry)),
      m_column(std::move(column)) {}

void restoreJournalAction(Database& database, const JournalAction& action) {
    SqliteConnection& connection = *database.connection();
    for (const QString& table : journaledTables()) {
        for (const JournalEntry& entry : action.entries) {
            if (entry.table != table)
                continue;
            if (entry.kind() == JournalEntry::Kind::Deleted)
                putBack(connection, entry);
            else if (entry.kind() == JournalEntry::Kind::Changed && table != QLatin1String("currentprice"))
                setBack(connection, entry);
        }
    }
}

}  // namespace ostravel
