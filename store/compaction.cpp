#include "store/compaction.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <QMap>

#include "runtime/vberror.h"
#include "store/dberrors.h"
#include "store/durablefile.h"
#include "store/filecheck.h"
#include "store/queryshape.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

const QString kReplacementSuffix = QStringLiteral(".compact");

using TableCounts = QMap<QString, long long>;

SqliteConnection openReadOnly(const QString& path) {
    return SqliteConnection(openSqliteHandle(path, SQLITE_OPEN_READONLY), path);
}

TableCounts countRows(SqliteConnection& connection) {
    TableCounts counts;
    Statement tables =
        connection.prepare(QStringLiteral("select name from sqlite_master where type='table' order by name"));
    while (tables.step()) {
        const QString table = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(tables.get(), 0)));
        Statement count = connection.prepare(QStringLiteral("select count(*) from ") + quotedName(table));
        count.step();
        counts.insert(table, sqlite3_column_int64(count.get(), 0));
    }
    return counts;
}

TableCounts countRows(const QString& path) {
    SqliteConnection connection = openReadOnly(path);
    return countRows(connection);
}

QString quotedText(const QString& text) {
    QString inner = text;
    inner.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

// VACUUM INTO a file that must not exist yet; the result is forced to the disk and checked
// against the source: sound, and the same tables with the same numbers of rows.
void compactInto(const QString& source, const QString& target, const TableCounts& expected, const CompactionHook& hook,
                 CompactionPoint written) {
    {
        SqliteConnection connection = openReadOnly(source);
        connection.run(QStringLiteral("VACUUM INTO ") + quotedText(target));
    }
    if (hook)
        hook(written);
    syncFile(target);
    if (const std::optional<QString> problem = databaseFileProblem(target))
        raise(dberr::CannotOpen,
              QStringLiteral("The compacted copy '") + target + QStringLiteral("' is unsound: ") + *problem);
    if (countRows(target) != expected)
        raise(dberr::CannotOpen, QStringLiteral("The compacted copy '") + target +
                                     QStringLiteral("' doesn't hold the rows of '") + source + QStringLiteral("'."));
}

}  // namespace

QString compactionCopyPath(const QString& livePath) {
    const QFileInfo live(livePath);
    const QString suffix = live.suffix().isEmpty() ? QString() : QLatin1Char('.') + live.suffix();
    return live.path() + QLatin1Char('/') + live.completeBaseName() + QStringLiteral("temp") + suffix;
}

void compactDatabase(const QString& livePath, const CompactionHook& hook) {
    const auto at = [&](CompactionPoint point) {
        if (hook)
            hook(point);
    };
    const QString copy = compactionCopyPath(livePath);
    const QString replacement = livePath + kReplacementSuffix;

    if (!QFileInfo(livePath).isFile())
        raise(dberr::CouldNotFindFile, QStringLiteral("Could not find file '") + livePath + QStringLiteral("'."));
    if (hasHotJournal(livePath))
        raise(dberr::FileInUse, QStringLiteral("The database '") + livePath +
                                    QStringLiteral("' has an unfinished write and is not compacted now."));
    if (const std::optional<QString> problem = headerProblem(livePath))
        raise(err::NotADatabase, QStringLiteral("Unrecognized database format '") + livePath + QStringLiteral("'. (") +
                                     *problem + QLatin1Char(')'));
    const TableCounts expected = countRows(livePath);

    at(CompactionPoint::RemoveStaleCopy);
    removeFile(copy);
    removeFile(replacement);

    at(CompactionPoint::CompactIntoCopy);
    compactInto(livePath, copy, expected, hook, CompactionPoint::VerifyCopy);

    at(CompactionPoint::WriteReplacement);
    try {
        compactInto(copy, replacement, expected, hook, CompactionPoint::VerifyReplacement);
        at(CompactionPoint::ReplaceLive);
        // The only step that touches the live name, and it is atomic: old file or new one.
        replaceFile(replacement, livePath);
    } catch (...) {
        QFile::remove(replacement);
        throw;
    }

    at(CompactionPoint::RemoveCopy);
    removeFile(copy);
}

void recoverCompactionCopy(const QString& livePath) {
    const QString copy = compactionCopyPath(livePath);
    if (QFileInfo::exists(livePath) || !QFileInfo(copy).isFile())
        return;
    if (databaseFileProblem(copy))
        return;
    renameNoReplace(copy, livePath);
}

}  // namespace ostravel
