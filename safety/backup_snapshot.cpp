#include "safety/backup_snapshot.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include "store/database.h"
#include "store/dberrors.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

const QString kOperation = QStringLiteral("backup of the database");

// Every page of `source` into the empty database file at `target`, in one step, so that no
// write of the program can come between two pages.
void copyPages(sqlite3* source, const QString& target) {
    sqlite3* handle = nullptr;
    const QByteArray name = QFile::encodeName(target);
    const int opened = sqlite3_open_v2(name.constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    SqliteConnection copy(handle, target);
    if (opened != SQLITE_OK)
        raiseSqliteError(handle, opened, kOperation);
    sqlite3_backup* backup = sqlite3_backup_init(handle, "main", source, "main");
    if (backup == nullptr)
        raiseSqliteError(handle, sqlite3_errcode(handle), kOperation);
    const int stepped = sqlite3_backup_step(backup, -1);
    const int finished = sqlite3_backup_finish(backup);
    if (stepped != SQLITE_DONE)
        raiseSqliteError(handle, stepped, kOperation);
    if (finished != SQLITE_OK)
        raiseSqliteError(handle, finished, kOperation);
}

}  // namespace

DatabaseSnapshot::DatabaseSnapshot(Database& database, const QString& livePath)
    : m_copy(QFileInfo(livePath).absolutePath() + QStringLiteral("/.ostravel_snapshot_XXXXXX.mdb")), m_path(livePath) {
    if (!database.isOpen())
        return;
    if (!m_copy.open())
        raise(dberr::DiskError, QStringLiteral("Disk or network error. (") + m_copy.errorString() + QLatin1Char(')'));
    m_copy.close();
    copyPages(database.connection()->handle(), m_copy.fileName());
    m_path = m_copy.fileName();
}

}  // namespace ostravel
