// The state that lives for a run of the program: the user's prompt, the error trap, the store
// with its module-level recordsets, and the main frame's selection.
#pragma once

#include "app/base/reporterror.h"
#include "app/mainframe.h"
#include "store/store.h"

namespace ostravel {

class Program {
public:
    explicit Program(Prompt& prompt, ErrorReporter::EndProgram endProgram = {});

    Prompt& prompt() { return m_prompt; }
    ErrorReporter& reporter() { return m_reporter; }
    Store& store() { return m_store; }
    MainFrame& frame() { return m_frame; }

private:
    Prompt& m_prompt;
    ErrorReporter m_reporter;
    Store m_store;
    MainFrame m_frame;
};

}  // namespace ostravel
