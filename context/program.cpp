#include "context/program.h"

#include <atomic>

namespace ostravel {

std::size_t Program::nextModuleIndex() {
    static std::atomic<std::size_t> next{0};
    return next++;
}

Program::Program(Prompt& prompt, ErrorReporter::EndProgram endProgram)
    : m_prompt(prompt), m_reporter(prompt, std::move(endProgram)), m_store(m_reporter), m_frame(*this) {}

}  // namespace ostravel
