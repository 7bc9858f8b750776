// One open SQLite file, shared by a Database and the recordsets opened on it: when the database
// is closed, every recordset that still holds it sees that and refuses further work.
#pragma once

#include <QHash>
#include <QString>
#include <cstdint>

struct sqlite3;
struct sqlite3_stmt;

namespace ostravel {

// A prepared statement: one made for a single use is finalized, a cached one only reset.
class Statement {
public:
    Statement(sqlite3_stmt* statement, bool cached) : m_statement(statement), m_cached(cached) {}
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&&) = delete;
    Statement(const Statement&) = delete;
    ~Statement();

    sqlite3_stmt* get() const { return m_statement; }
    // True when a row is ready, false when the statement ran to its end; errors raise.
    bool step();
    bool readOnly() const;

private:
    sqlite3_stmt* m_statement;
    bool m_cached;
};

// Writes through this handle move the stamp, and so do commits of other handles on the file:
// a recordset compares stamps to know when its current row must be read again.
struct ChangeStamp {
    std::uint64_t writes = 0;
    unsigned version = 0;
    bool operator==(const ChangeStamp&) const = default;
};

class SqliteConnection {
public:
    // Takes over an open handle.
    SqliteConnection(sqlite3* handle, QString path);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    bool isOpen() const { return m_handle != nullptr; }
    // The handle; raises 3420 once the database is closed.
    sqlite3* handle() const;
    const QString& path() const { return m_path; }

    // A statement for one use. Text after the first statement raises 3142.
    Statement prepare(const QString& sql);
    // A statement kept for reuse, such as the read of one row by its rowid.
    Statement cached(const QString& sql);
    // Runs a statement to its end; notes the write when it changes data.
    void run(const QString& sql);

    void noteWrite() { ++m_writes; }
    ChangeStamp changeStamp() const;
    bool inTransaction() const;

    void close();

private:
    sqlite3_stmt* compile(const QString& sql) const;

    sqlite3* m_handle;
    QString m_path;
    QHash<QString, sqlite3_stmt*> m_cache;
    std::uint64_t m_writes = 0;
};

// Opens a file with the given flags, raising 3049 with the engine's words when it can't.
sqlite3* openSqliteHandle(const QString& path, int flags);

// Raises the engine error that matches an SQLite failure, with the program's error numbers.
[[noreturn]] void raiseSqliteError(sqlite3* handle, int code, const QString& sql);

// "Unrecognized database format '<path>'.", the engine's words for a file it can't read.
QString unrecognizedFormatText(const QString& path);

}  // namespace ostravel
