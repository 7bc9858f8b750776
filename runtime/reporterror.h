// The common error trap: the composed report, its message box and the ErrorLog.txt entry.
#pragma once

#include <QString>
#include <functional>

#include "runtime/prompt.h"
#include "runtime/vberror.h"

namespace ostravel {

struct ErrorInfo {
    int number = 0;
    QString description;
    int line = 0;  // 0: the error has no line number
};

// The text of the report, in the order the box shows it.
QString composeErrorText(const ErrorInfo& error, const QString& place);

// The one log entry: an empty line, then program name, date and time, and the text.
QString errorLogEntry(const QString& text, double serialNow);

class ErrorReporter {
public:
    using EndProgram = std::function<void()>;

    // endProgram runs when the user answers Cancel: the program ends at once, without
    // compaction. The default ends the process.
    explicit ErrorReporter(Prompt& prompt, EndProgram endProgram = {});

    // ReportError: shows the box, appends to ErrorLog.txt. An error numbered 0 is none and is
    // not reported. A log that can't be written is passed over: the box has told the user.
    void report(const ErrorInfo& error, const QString& place);
    void report(const VbError& error, const QString& place);
    // The ErrorLog.txt entry alone, for an error whose box the user has already seen.
    void log(const VbError& error, const QString& place);

    Prompt& prompt() { return m_prompt; }

private:
    Prompt& m_prompt;
    EndProgram m_endProgram;
};

}  // namespace ostravel
