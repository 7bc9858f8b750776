#include "cli/headless_prompt.h"

#include <QTextStream>
#include <cstdlib>

#include "position/advice.h"
#include "runtime/vberror.h"

namespace ostravel::cli {

Answer HeadlessPrompt::message(const QString& text, Buttons buttons, Icon, const QString&) {
    QTextStream(stderr) << text << '\n';
    switch (buttons) {
        case Buttons::YesNo:
        case Buttons::YesNoCancel:
            return Answer::Yes;
        case Buttons::YesNoDefaultNo:
            return Answer::No;
        case Buttons::RetryCancel:
            return Answer::Retry;
        case Buttons::AbortRetryIgnore:
            return Answer::Abort;
        case Buttons::OK:
        case Buttons::OKCancel:
            break;
    }
    return Answer::OK;
}

std::optional<QString> HeadlessPrompt::input(const QString& text, const QString&, const QString&) {
    return text == kWhatIfPrompt ? whatIfPrice : std::nullopt;
}

// Cancel is never the answer here, so the error log's box never ends the run.
HeadlessRun::HeadlessRun() : m_program(m_prompt, [] { std::exit(1); }) {}

Program* HeadlessRun::open(const QString& symbol) {
    try {
        m_program.store().connection();
    } catch (const VbError& error) {
        QTextStream(stderr) << "ostravel-cli: " << error.description() << '\n';
        return nullptr;
    }
    if (!symbol.isEmpty())
        m_program.frame().cmbequity = symbol;
    return &m_program;
}

}  // namespace ostravel::cli
