// The GoogleTest fixture of a test that runs the program: a fresh folder for each test, App.Path
// pointing at it, the store open on a new database, and the prompt answering from a script.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/program_folder.h"
#include "tests/support/qstring_printer.h"

namespace ostravel::test {

class ProgramTest : public ::testing::Test {
protected:
    QTemporaryDir m_dir;
    ProgramFolder m_folder{m_dir.path(), FolderSetup::Bare, [] { FAIL() << "the program was ended"; }};
    ScriptedPrompt& m_prompt = m_folder.prompt;
    Program& m_program = *m_folder.program;
};

}  // namespace ostravel::test
