// The copy of the live database that a backup packs: one consistent state of it, taken through
// the engine while the program has the file open, never the bytes of a file that may be
// mid-write.
#pragma once

#include <QString>
#include <QTemporaryFile>

namespace ostravel {

class Database;

class DatabaseSnapshot {
public:
    // Copies the open database into a temporary file beside `livePath`. A database that is
    // not open is packed as it lies, since nothing writes to it: path() is then `livePath`.
    // Raises the engine's error when the copy can't be made.
    DatabaseSnapshot(Database& database, const QString& livePath);
    DatabaseSnapshot(const DatabaseSnapshot&) = delete;
    DatabaseSnapshot& operator=(const DatabaseSnapshot&) = delete;

    // The file to pack; the copy is removed with this object.
    QString path() const { return m_path; }

private:
    QTemporaryFile m_copy;
    QString m_path;
};

}  // namespace ostravel
