// The state that lives for a run of the program: the user's prompt, the error trap, the store
// with its module-level recordsets, the main frame's selection, and the module-level state
// of each subsystem (a screen's state object, a module's variables), made on first use.
#pragma once

#include <memory>
#include <typeindex>
#include <unordered_map>

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
        auto& slot = m_modules[std::type_index(typeid(T))];
        if (!slot) {
            if constexpr (std::is_constructible_v<T, Program&>)
                slot = std::make_shared<T>(*this);
            else
                slot = std::make_shared<T>();
        }
        return *static_cast<T*>(slot.get());
    }

private:
    Prompt& m_prompt;
    ErrorReporter m_reporter;
    Store m_store;
    MainFrame m_frame;
    std::unordered_map<std::type_index, std::shared_ptr<void>> m_modules;
};

}  // namespace ostravel
