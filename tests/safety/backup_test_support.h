// Program folders for the backup and restore tests, each with its own database, program and
// scripted prompt; and the content of a database file read table by table.
#pragma once

#include <QString>
#include <QStringList>

#include "tests/support/program_folder.h"

namespace ostravel::test {

// The tables of a database file, by name.
QStringList tablesOf(const QString& databasePath);
// Every row of a table in rowid order, each value with its storage class.
QStringList tableRows(const QString& databasePath, const QString& table);

}  // namespace ostravel::test
