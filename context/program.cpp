#include "context/program.h"

namespace ostravel {

Program::Program(Prompt& prompt, ErrorReporter::EndProgram endProgram)
    : m_prompt(prompt), m_reporter(prompt, std::move(endProgram)), m_store(m_reporter), m_frame(*this) {}

}  // namespace ostravel
