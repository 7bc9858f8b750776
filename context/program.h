// The state that lives for a run of the program: the user's prompt, the error trap, the store
// with its module-level recordsets, the main frame's selection, and the module-level state
// of each subsystem (a screen's state object, a module's variables), made on first use.
#pragma once

#include <memory>
#include <vector>

#include "context/mainframe.h"
#include "runtime/reporterror.h"
#include "store/store.h"

namespace ostravel {

class Program {
public:
    explicit Program(Prompt& prompt, ErrorReporter::EndProgram endProgram = {});

    Prompt& prompt() { return m_prompt; }
    ErrorReporter& reporter() { return m_reporter; }
    Store& store() { return m_store; }
    MainFrame& frame() { return m_frame; }

    // The one instance of a subsystem's state for this run, such as the equity manager's
    // screen state; made on first use, with the program when T takes it.
    template <class T>
    T& module() {
        const std::size_t index = moduleIndex<T>();
        if (index >= m_modules.size())
            m_modules.resize(index + 1);
        std::shared_ptr<void>& slot = m_modules[index];
        if (!slot) {
            if constexpr (std::is_constructible_v<T, Program&>)
                slot = std::make_shared<T>(*this);
            else
                slot = std::make_shared<T>();
        }
        return *static_cast<T*>(slot.get());
    }

private:
    // Each state type's place in m_modules, the same in every program: the day loop of a run
    // reaches its modules many times a day, and a place needs no hashing of the type's name.
    static std::size_t nextModuleIndex();
    template <class T>
    static std::size_t moduleIndex() {
        static const std::size_t index = nextModuleIndex();
        return index;
    }

    Prompt& m_prompt;
    ErrorReporter m_reporter;
    Store m_store;
    MainFrame m_frame;
    std::vector<std::shared_ptr<void>> m_modules;
};

}  // namespace ostravel
