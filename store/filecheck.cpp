#include "store/filecheck.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

namespace ostravel {

namespace {

constexpr qint64 kHeaderSize = 100;
const QByteArray kMagic("SQLite format 3\0", 16);

quint32 bigEndian(const QByteArray& bytes, int offset, int length) {
    quint32 value = 0;
    for (int i = 0; i < length; ++i) value = (value << 8) | static_cast<quint8>(bytes.at(offset + i));
    return value;
}

qint64 fileSize(const QString& path) {
    const QFileInfo info(path);
    return info.exists() ? info.size() : 0;
}

}  // namespace

bool hasHotJournal(const QString& path) {
    return fileSize(path + QStringLiteral("-journal")) > 0 || fileSize(path + QStringLiteral("-wal")) > 0;
}

std::optional<QString> headerProblem(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("the file can't be read: ") + file.errorString();
    const qint64 size = file.size();
    if (size == 0)
        return QStringLiteral("the file is empty");
    const QByteArray header = file.read(kHeaderSize);
    if (!header.startsWith(kMagic))
        return QStringLiteral("the file is not an SQLite database");
    if (header.size() < kHeaderSize)
        return QStringLiteral("the file is cut short inside its header");
    const quint32 written = bigEndian(header, 16, 2);
    const qint64 pageSize = written == 1 ? 65536 : written;
    if (pageSize < 512 || pageSize > 65536 || (pageSize & (pageSize - 1)) != 0)
        return QStringLiteral("the header is damaged (page size %1)").arg(pageSize);
    // While a journal waits to be played back the file may be mid-write; the open repairs it.
    if (hasHotJournal(path))
        return std::nullopt;
    if (size % pageSize != 0)
        return QStringLiteral("the file is cut short (%1 bytes is no whole number of %2-byte pages)")
            .arg(size)
            .arg(pageSize);
    const bool countValid = bigEndian(header, 24, 4) == bigEndian(header, 92, 4);
    const qint64 pages = bigEndian(header, 28, 4);
    if (countValid && pages * pageSize > size)
        return QStringLiteral("the file is cut short (%1 of %2 pages present)").arg(size / pageSize).arg(pages);
    return std::nullopt;
}

std::optional<QString> integrityProblem(sqlite3* handle) {
    sqlite3_stmt* statement = nullptr;
    int code = sqlite3_prepare_v2(handle, "PRAGMA quick_check", -1, &statement, nullptr);
    QString verdict;
    if (code == SQLITE_OK) {
        code = sqlite3_step(statement);
        if (code == SQLITE_ROW)
            verdict = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    if (code != SQLITE_ROW && code != SQLITE_DONE && code != SQLITE_OK)
        verdict = QString::fromUtf8(sqlite3_errmsg(handle));
    sqlite3_finalize(statement);
    if (verdict == QLatin1String("ok"))
        return std::nullopt;
    return QStringLiteral("the file is damaged: ") + verdict;
}

std::optional<QString> databaseFileProblem(const QString& path) {
    if (const std::optional<QString> problem = headerProblem(path))
        return problem;
    sqlite3* handle = nullptr;
    const QByteArray name = QFile::encodeName(path);
    const int code = sqlite3_open_v2(name.constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    std::optional<QString> problem;
    if (code != SQLITE_OK)
        problem = QStringLiteral("the file can't be opened: ") + QString::fromUtf8(sqlite3_errmsg(handle));
    else
        problem = integrityProblem(handle);
    sqlite3_close(handle);
    return problem;
}

}  // namespace ostravel
