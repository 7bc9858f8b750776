// Why a file can't serve as the program's database. The checks only read: a file that fails
// them is left exactly as it was.
#pragma once

#include <QString>
#include <optional>

struct sqlite3;

namespace ostravel {

// From the first page alone: empty, too short, not SQLite, a damaged header, cut short.
std::optional<QString> headerProblem(const QString& path);
// PRAGMA quick_check on an open handle; a file SQLite can't read at all is a problem too.
std::optional<QString> integrityProblem(sqlite3* handle);
// Both, on a handle of its own opened read-only.
std::optional<QString> databaseFileProblem(const QString& path);

// A rollback journal or write-ahead log with content beside the file: an unfinished write
// that the next open of the file completes or undoes.
bool hasHotJournal(const QString& path);

}  // namespace ostravel
