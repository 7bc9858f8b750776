// The life of a screen's state: loaded on first use, as a form is on the first reference to it,
// and put back to its design values when unloaded, after which its widget closes.
#pragma once

#include <functional>
#include <utility>

namespace ostravel {

class Program;

template <class Form>
class FormState {
public:
    bool loaded = false;
    // The widget's request: close itself (after the state has unloaded).
    std::function<void()> closeView;

    // Runs Form_Load once; openers call it before they write the screen's controls.
    void load() {
        if (loaded)
            return;
        loaded = true;
        self().Form_Load();
    }

    // The controls go back to their design values; a test's hook between writes stays.
    void unload() {
        auto close = std::move(closeView);
        if constexpr (requires(Form & f) { f.betweenWrites; }) {
            auto hook = std::move(self().betweenWrites);
            self() = Form(*m_program);
            self().betweenWrites = std::move(hook);
        } else {
            self() = Form(*m_program);
        }
        if (close)
            close();
    }

protected:
    explicit FormState(Program& program) : m_program(&program) {}

    Program* m_program;

private:
    Form& self() { return static_cast<Form&>(*this); }
};

}  // namespace ostravel
