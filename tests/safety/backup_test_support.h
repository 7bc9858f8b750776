// Program folders for the backup and restore tests: each with its own database, program and
// scripted prompt; and the content of a database file read table by table.
#pragma once

#include "app/base/scripted_prompt.h"
#include "app/program.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace ostravel::test {

class ProgramFolder {
public:
    // Makes the folder with its sub-folders, points App.Path at it and opens the store; the
    // store makes a new database.
    explicit ProgramFolder(const QString& path);
    ~ProgramFolder();

    // Points App.Path at this folder again.
    void enter() const;
    QString file(const QString& relative) const;
    QString live() const;
    // The names of the database folder's files, hidden ones too: a leftover shows here.
    QStringList databaseFiles() const;

    ScriptedPrompt prompt;
    std::unique_ptr<Program> program;

private:
    QString m_path;
};

// The tables of a database file, by name.
QStringList tablesOf(const QString& databasePath);
// Every row of a table in rowid order, each value with its storage class.
QStringList tableRows(const QString& databasePath, const QString& table);

}  // namespace ostravel::test
