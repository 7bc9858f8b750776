// A program folder with its own program and scripted prompt, as a test starts the program in it.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>

#include "context/program.h"
#include "runtime/reporterror.h"
#include "runtime/scripted_prompt.h"

namespace ostravel::test {

// What the folder holds before the store opens.
enum class FolderSetup {
    Bare,      // nothing: the store makes the folders it needs and a new database
    Prepared,  // the sub-folders and help files too, as the program puts them in place at start
};

// Where the program would end: a test run must not stop there, so it throws.
void throwProgramEnded();

class ProgramFolder {
public:
    // Makes the folder, points App.Path at it and opens the store; the store makes a new
    // database unless the folder has one. `ended` runs where the program would end.
    explicit ProgramFolder(const QString& path, FolderSetup setup = FolderSetup::Prepared,
                           ErrorReporter::EndProgram ended = throwProgramEnded);
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

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

}  // namespace ostravel::test
