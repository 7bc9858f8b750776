// The program's database: one SQLite file opened by path, its statements in Jet's dialect.
// Writes are durable when they return (rollback journal, full sync), and a file that is not a
// database, or is damaged, is refused and never written to.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>

#include "runtime/vberror.h"
#include "store/recordset.h"

namespace ostravel {

class SqliteConnection;

// A file that can't be the database: not SQLite, cut short or damaged. Raised as error 3343;
// the caller shows it and ends the program, leaving the file for the user to rescue.
class DatabaseUnusable : public VbError {
public:
    DatabaseUnusable(QString path, QString reason);
    const QString& path() const noexcept { return m_path; }
    const QString& reason() const noexcept { return m_reason; }

private:
    QString m_path;
    QString m_reason;
};

class Database {
public:
    Database() = default;
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Opens an existing file; raises 3024 when there is none and DatabaseUnusable for a file
    // that is no database or is damaged.
    void open(const QString& path);
    // Makes a new file with every table, the users row and the symbol list, then opens it.
    // The file appears whole or not at all; raises 3204 when the file already exists.
    void create(const QString& path);
    bool isOpen() const;
    QString path() const;

    void execute(const QString& jetSql);
    // Rows changed by the last execute.
    long long recordsAffected() const { return m_recordsAffected; }
    // A table by name, or a query; positioned on its first row.
    std::shared_ptr<Recordset> openRecordset(const QString& tableNameOrSql);
    // A query's rows read once, for a long read that other writes must not slow down; read-only.
    std::shared_ptr<Recordset> openSnapshot(const QString& sql);

    // The tables in the order of their making, and the rows of one.
    QStringList tableNames() const;
    long long rowCount(const QString& table) const;

    // Recordsets still open on this database refuse further work (3420).
    void close();

    std::shared_ptr<SqliteConnection> connection() const { return m_connection; }

private:
    SqliteConnection& live() const;

    std::shared_ptr<SqliteConnection> m_connection;
    long long m_recordsAffected = 0;
};

// A unit of work: begins a transaction, or joins the one already running, which then decides.
// Not committed by the end of its scope, the outermost one rolls back. The outermost one names
// the user action that its changes are journaled under ("Add Trade", "Close").
class Transaction {
public:
    Transaction(Database& database, const QString& action);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    std::shared_ptr<SqliteConnection> m_connection;
    bool m_outermost = false;
    bool m_committed = false;
};

}  // namespace ostravel
