#include "runtime/reporterror.h"

#include <QFile>
#include <QTextStream>
#include <cstdio>
#include <cstdlib>

#include "runtime/apppath.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"

namespace ostravel {

namespace {

const QString kProgramName = QStringLiteral("ostravel");

// A log that can't be written must not take the program down: the box has been shown.
void appendToLog(const QString& text) {
    QFile log(appFile(QStringLiteral("ErrorLog.txt")));
    if (log.open(QIODevice::Append | QIODevice::Text))
        QTextStream(&log) << errorLogEntry(text, now());
    else
        std::fprintf(stderr, "ErrorLog.txt: %s\n", qPrintable(log.errorString()));
}

}  // namespace

QString composeErrorText(const ErrorInfo& error, const QString& place) {
    QString text = QStringLiteral("Error ") + QString::number(error.number) + QStringLiteral(" in ") + place;
    if (error.line != 0)
        text += QStringLiteral(" (Line #: ") + QString::number(error.line) + QLatin1Char(')');
    const int revision = OSTRAVEL_VERSION_PATCH;
    text += QLatin1Char('\n') + QStringLiteral("while running ") + kProgramName + QStringLiteral(".exe v") +
            formatNumber(OSTRAVEL_VERSION_MAJOR, QStringLiteral("#")) + QLatin1Char('.') +
            formatNumber(OSTRAVEL_VERSION_MINOR, QStringLiteral("0#")) + QLatin1Char('.') +
            formatNumber(revision, QStringLiteral("#0")) + QStringLiteral(" (Build ") + QString::number(revision) +
            QStringLiteral(")") + QLatin1Char('\n');
    text += QStringLiteral("Error = '") + error.description + QStringLiteral("'") + QLatin1Char('\n') +
            QStringLiteral(" ( Click 'OK' to continue)    ");
    return text;
}

QString errorLogEntry(const QString& text, double serialNow) {
    return QStringLiteral("\n") + kProgramName + QLatin1Char(' ') + dateToString(serialNow) + QLatin1Char(' ') + text +
           QLatin1Char('\n');
}

ErrorReporter::ErrorReporter(Prompt& prompt, EndProgram endProgram)
    : m_prompt(prompt), m_endProgram(std::move(endProgram)) {
    if (!m_endProgram)
        m_endProgram = [] {
            std::fflush(nullptr);
            std::_Exit(0);
        };
}

void ErrorReporter::report(const ErrorInfo& error, const QString& place) {
    if (error.number == 0)
        return;
    const QString text = composeErrorText(error, place);
    const Answer answer = m_prompt.message(text, Buttons::OKCancel, Icon::Critical, QStringLiteral("Error"));
    appendToLog(text);
    if (answer == Answer::Cancel)
        m_endProgram();
}

void ErrorReporter::log(const VbError& error, const QString& place) {
    if (error.number() != 0)
        appendToLog(composeErrorText(ErrorInfo{error.number(), error.description(), 0}, place));
}

void ErrorReporter::report(const VbError& error, const QString& place) {
    report(ErrorInfo{error.number(), error.description(), 0}, place);
}

}  // namespace ostravel
