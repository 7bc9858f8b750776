#include "store/database.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include "store/dberrors.h"
#include "store/durablefile.h"
#include "store/filecheck.h"
#include "store/jetsql.h"
#include "store/journal.h"
#include "store/queryshape.h"
#include "store/schema.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

const QString kBuildingSuffix = QStringLiteral(".new");

const QString kObjectInvalid = QStringLiteral("Object invalid or no longer set.");

// Durable, consistent settings for every handle the program writes through.
void configure(SqliteConnection& connection) {
    connection.run(QStringLiteral("PRAGMA foreign_keys=ON"));
    connection.run(QStringLiteral("PRAGMA journal_mode=DELETE"));
    connection.run(QStringLiteral("PRAGMA synchronous=FULL"));
}

}  // namespace

DatabaseUnusable::DatabaseUnusable(QString path, QString reason)
    : VbError(err::NotADatabase, unrecognizedFormatText(path) + QStringLiteral(" (") + reason + QLatin1Char(')')),
      m_path(std::move(path)),
      m_reason(std::move(reason)) {}

Database::~Database() {
    close();
}

SqliteConnection& Database::live() const {
    if (!m_connection || !m_connection->isOpen())
        raise(dberr::ObjectInvalid, kObjectInvalid);
    return *m_connection;
}

bool Database::isOpen() const {
    return m_connection && m_connection->isOpen();
}

QString Database::path() const {
    return m_connection ? m_connection->path() : QString();
}

void Database::open(const QString& path) {
    close();
    if (!QFileInfo(path).isFile())
        raise(dberr::CouldNotFindFile, QStringLiteral("Could not find file '") + path + QStringLiteral("'."));
    if (const std::optional<QString> problem = headerProblem(path))
        throw DatabaseUnusable(path, *problem);
    sqlite3* handle = openSqliteHandle(path, SQLITE_OPEN_READWRITE);
    if (const std::optional<QString> problem = integrityProblem(handle)) {
        sqlite3_close(handle);
        throw DatabaseUnusable(path, *problem);
    }
    auto connection = std::make_shared<SqliteConnection>(handle, path);
    configure(*connection);
    m_connection = std::move(connection);
}

void Database::create(const QString& path) {
    close();
    if (QFileInfo::exists(path))
        raise(dberr::DatabaseExists, QStringLiteral("Database already exists."));
    // Built under a name of its own, so that a crash leaves no half-made database behind.
    const QString building = path + kBuildingSuffix;
    removeFile(building + QStringLiteral("-journal"));
    removeFile(building);
    try {
        {
            SqliteConnection connection(openSqliteHandle(building, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE),
                                        building);
            configure(connection);
            connection.run(QStringLiteral("BEGIN"));
            createSchema(connection);
            connection.run(QStringLiteral("COMMIT"));
        }
        syncFile(building);
        if (!renameNoReplace(building, path))
            raise(dberr::DatabaseExists, QStringLiteral("Database already exists."));
    } catch (...) {
        QFile::remove(building);
        QFile::remove(building + QStringLiteral("-journal"));
        throw;
    }
    open(path);
}

void Database::execute(const QString& jetSql) {
    SqliteConnection& connection = live();
    Statement statement = connection.prepare(jetToSqlite(jetSql));
    const bool writes = !statement.readOnly();
    while (statement.step()) {
    }
    if (writes)
        connection.noteWrite();
    m_recordsAffected = sqlite3_changes(connection.handle());
}

std::shared_ptr<Recordset> Database::openRecordset(const QString& tableNameOrSql) {
    live();
    return std::make_shared<Recordset>(m_connection, tableNameOrSql);
}

std::shared_ptr<Recordset> Database::openSnapshot(const QString& sql) {
    live();
    return std::make_shared<Recordset>(m_connection, sql, Recordset::Access::Snapshot);
}

QStringList Database::tableNames() const {
    Statement statement = live().prepare(QStringLiteral(
        "select name from sqlite_master where type='table' and name not like 'sqlite\\_%' escape '\\' order by rowid"));
    QStringList names;
    while (statement.step())
        names << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)));
    return names;
}

long long Database::rowCount(const QString& table) const {
    Statement statement = live().prepare(QStringLiteral("select count(*) from ") + quotedName(table));
    statement.step();
    return sqlite3_column_int64(statement.get(), 0);
}

void Database::close() {
    if (m_connection)
        m_connection->close();
    m_connection.reset();
}

Transaction::Transaction(Database& database, const QString& action) : m_connection(database.connection()) {
    if (!m_connection || !m_connection->isOpen())
        raise(dberr::ObjectInvalid, kObjectInvalid);
    m_outermost = !m_connection->inTransaction();
    if (!m_outermost)
        return;
    m_connection->run(QStringLiteral("BEGIN IMMEDIATE"));
    beginJournalAction(*m_connection, action);
}

void Transaction::commit() {
    if (m_committed)
        return;
    if (m_outermost) {
        endJournalAction(*m_connection);
        m_connection->run(QStringLiteral("COMMIT"));
    }
    m_committed = true;
}

Transaction::~Transaction() {
    if (m_committed || !m_outermost || !m_connection->isOpen() || !m_connection->inTransaction())
        return;
    sqlite3_exec(m_connection->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    m_connection->noteWrite();
}

}  // namespace ostravel
