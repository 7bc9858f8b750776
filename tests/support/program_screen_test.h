// The base of a Qt Test class that drives the program's screens: each test function gets a
// fresh folder with the program started in it, made in init() and removed in cleanup().
#pragma once

#include <QObject>
#include <QTemporaryDir>
#include <QTest>
#include <exception>
#include <memory>

#include "tests/support/program_folder.h"

namespace ostravel::test {

class ProgramScreenTest : public QObject {
protected:
    explicit ProgramScreenTest(FolderSetup setup = FolderSetup::Prepared) : m_setup(setup) {}

    // For init(): false, with the reason logged, when the folder can't be made.
    bool openProgram() {
        m_dir = std::make_unique<QTemporaryDir>();
        try {
            m_folder = std::make_unique<ProgramFolder>(m_dir->path(), m_setup, [] { QFAIL("the program was ended"); });
        } catch (const std::exception& error) {
            qWarning("%s", error.what());
            return false;
        }
        m_prompt = &m_folder->prompt;
        m_program = m_folder->program.get();
        return true;
    }
    // For cleanup(): the program goes before its folder.
    void closeProgram() {
        m_program = nullptr;
        m_prompt = nullptr;
        m_folder.reset();
        m_dir.reset();
    }

    ScriptedPrompt* m_prompt = nullptr;
    Program* m_program = nullptr;

private:
    FolderSetup m_setup;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<ProgramFolder> m_folder;
};

}  // namespace ostravel::test
