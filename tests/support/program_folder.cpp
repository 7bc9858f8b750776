#include "tests/support/program_folder.h"

#include <QDir>
#include <stdexcept>

#include "context/program_folder.h"
#include "runtime/apppath.h"
#include "store/store.h"

namespace ostravel::test {

void throwProgramEnded() {
    throw std::logic_error("the program was ended");
}

ProgramFolder::ProgramFolder(const QString& path, FolderSetup setup, ErrorReporter::EndProgram ended) : m_path(path) {
    if (!QDir().mkpath(path))
        throw std::runtime_error("can't make " + path.toStdString());
    enter();
    if (setup == FolderSetup::Prepared) {
        const QString error = prepareProgramFolder();
        if (!error.isEmpty())
            throw std::runtime_error(error.toStdString());
    }
    program = std::make_unique<Program>(prompt, std::move(ended));
    program->store().connection();
}

ProgramFolder::~ProgramFolder() = default;

void ProgramFolder::enter() const {
    setAppPath(m_path);
}

QString ProgramFolder::file(const QString& relative) const {
    return QDir(m_path).filePath(relative);
}

QString ProgramFolder::live() const {
    return file(kLiveDatabase);
}

QStringList ProgramFolder::databaseFiles() const {
    return QDir(file(QStringLiteral("database"))).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

}  // namespace ostravel::test
