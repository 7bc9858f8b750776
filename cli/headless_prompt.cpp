#include "cli/headless_prompt.h"

#include <QTextStream>
#include <cstdlib>

#include "position/advice.h"

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

HeadlessRun::HeadlessRun(const QString& symbol) : m_program(m_prompt, [] { std::exit(1); }) {
    m_program.store().connection();
    m_program.frame().cmbequity = symbol;
}

}  // namespace ostravel::cli
