#include "store/sqliteconnection.h"

#include <sqlite3.h>

#include <QFile>
#include <utility>

#include "runtime/vberror.h"
#include "store/dberrors.h"

namespace ostravel {

namespace {

bool onlyBlanksOrSemicolons(const char* tail) {
    for (; tail != nullptr && *tail != '\0'; ++tail) {
        if (*tail != ';' && *tail != ' ' && *tail != '\t' && *tail != '\r' && *tail != '\n')
            return false;
    }
    return true;
}

QString afterPrefix(const QString& message, const QString& prefix) {
    return message.mid(prefix.size()).trimmed();
}

}  // namespace

QString unrecognizedFormatText(const QString& path) {
    return QStringLiteral("Unrecognized database format '") + path + QStringLiteral("'.");
}

void raiseSqliteError(sqlite3* handle, int code, const QString& sql) {
    const int extended = handle != nullptr ? sqlite3_extended_errcode(handle) : code;
    const QString message = QString::fromUtf8(handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(code));
    const QString path = handle != nullptr ? QString::fromUtf8(sqlite3_db_filename(handle, "main")) : QString();

    switch (extended) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
            raise(dberr::DuplicateKey,
                  QStringLiteral("The changes you requested to the table were not successful because they would "
                                 "create duplicate values in the index, primary key, or relationship."));
        case SQLITE_CONSTRAINT_FOREIGNKEY:
            raise(dberr::RelatedRecordRequired,
                  QStringLiteral("You cannot add or change a record because a related record is required."));
        case SQLITE_CONSTRAINT_NOTNULL:
            raise(dberr::NullNotAllowed,
                  QStringLiteral("The field cannot contain a Null value. (") + message + QLatin1Char(')'));
        default:
            break;
    }
    switch (code & 0xff) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            raise(err::NotADatabase, unrecognizedFormatText(path));
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            raise(dberr::Locked, QStringLiteral("Couldn't update; currently locked."));
        case SQLITE_READONLY:
            raise(dberr::ReadOnly, QStringLiteral("Cannot update. Database or object is read-only."));
        case SQLITE_IOERR:
        case SQLITE_FULL:
            raise(dberr::DiskError, QStringLiteral("Disk or network error. (") + message + QLatin1Char(')'));
        case SQLITE_CANTOPEN:
            raise(dberr::CannotOpen, QStringLiteral("Can't open database '") + path + QStringLiteral("'."));
        default:
            break;
    }
    const QString noTable = QStringLiteral("no such table:");
    if (message.startsWith(noTable))
        raise(dberr::TableNotFound,
              QStringLiteral("The database engine cannot find the input table or query '") +
                  afterPrefix(message, noTable) +
                  QStringLiteral("'. Make sure it exists and that its name is spelled correctly."));
    if (message.startsWith(QStringLiteral("no such column:")))
        raise(dberr::TooFewParameters,
              QStringLiteral("Too few parameters. Expected 1. (") + message + QLatin1Char(')'));
    if (message.contains(QStringLiteral("syntax error")) || message.contains(QStringLiteral("incomplete input")))
        raise(dberr::SyntaxError, QStringLiteral("Syntax error in query expression '") + sql + QStringLiteral("'."));
    raise(err::DatabaseError, message);
}

Statement::Statement(Statement&& other) noexcept
    : m_statement(std::exchange(other.m_statement, nullptr)), m_cached(other.m_cached) {}

Statement::~Statement() {
    if (m_statement == nullptr)
        return;
    if (m_cached) {
        sqlite3_reset(m_statement);
        sqlite3_clear_bindings(m_statement);
    } else {
        sqlite3_finalize(m_statement);
    }
}

bool Statement::step() {
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE)
        return false;
    raiseSqliteError(sqlite3_db_handle(m_statement), code, QString::fromUtf8(sqlite3_sql(m_statement)));
}

bool Statement::readOnly() const {
    return sqlite3_stmt_readonly(m_statement) != 0;
}

SqliteConnection::SqliteConnection(sqlite3* handle, QString path) : m_handle(handle), m_path(std::move(path)) {}

SqliteConnection::~SqliteConnection() {
    close();
}

sqlite3* SqliteConnection::handle() const {
    if (m_handle == nullptr)
        raise(dberr::ObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    return m_handle;
}

sqlite3_stmt* SqliteConnection::compile(const QString& sql) const {
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    const int code = sqlite3_prepare_v2(handle(), text.constData(), static_cast<int>(text.size()), &statement, &tail);
    if (code != SQLITE_OK)
        raiseSqliteError(m_handle, code, sql);
    if (!onlyBlanksOrSemicolons(tail)) {
        sqlite3_finalize(statement);
        raise(dberr::TextAfterStatement, QStringLiteral("Characters found after end of SQL statement."));
    }
    if (statement == nullptr)
        raise(dberr::SyntaxError, QStringLiteral("Syntax error in query expression '") + sql + QStringLiteral("'."));
    return statement;
}

Statement SqliteConnection::prepare(const QString& sql) {
    return Statement(compile(sql), false);
}

Statement SqliteConnection::cached(const QString& sql) {
    const auto found = m_cache.constFind(sql);
    if (found != m_cache.constEnd()) {
        handle();
        return Statement(found.value(), true);
    }
    sqlite3_stmt* statement = compile(sql);
    m_cache.insert(sql, statement);
    return Statement(statement, true);
}

void SqliteConnection::run(const QString& sql) {
    Statement statement = prepare(sql);
    const bool writes = !statement.readOnly();
    while (statement.step()) {
    }
    if (writes)
        noteWrite();
}

ChangeStamp SqliteConnection::changeStamp() const {
    ChangeStamp stamp;
    stamp.writes = m_writes;
    if (m_handle != nullptr)
        sqlite3_file_control(m_handle, "main", SQLITE_FCNTL_DATA_VERSION, &stamp.version);
    return stamp;
}

bool SqliteConnection::inTransaction() const {
    return sqlite3_get_autocommit(handle()) == 0;
}

void SqliteConnection::close() {
    if (m_handle == nullptr)
        return;
    for (sqlite3_stmt* statement : std::as_const(m_cache)) sqlite3_finalize(statement);
    m_cache.clear();
    sqlite3_close_v2(m_handle);
    m_handle = nullptr;
}

namespace {

// How long a statement waits for another handle's lock before it reports the file as locked.
constexpr int kBusyTimeoutMilliseconds = 5000;

}  // namespace

sqlite3* openSqliteHandle(const QString& path, int flags) {
    sqlite3* handle = nullptr;
    const QByteArray name = QFile::encodeName(path);
    // A handle is only ever used by the one thread of the program, so the engine's own locks
    // around each call are not needed.
    const int code = sqlite3_open_v2(name.constData(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) {
        const QString message = QString::fromUtf8(sqlite3_errmsg(handle));
        sqlite3_close(handle);
        raise(dberr::CannotOpen,
              QStringLiteral("Can't open database '") + path + QStringLiteral("'. (") + message + QLatin1Char(')'));
    }
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, kBusyTimeoutMilliseconds);
    return handle;
}

}  // namespace ostravel
