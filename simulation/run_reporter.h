// The error report of a run of many days: an error shows its box the first time it happens at
// its place in a run and is only logged when it comes again, so that a fault of every day (a
// beginning of 0 shares) does not bring thousands of boxes, one of which could end the program.
#pragma once

#include <QSet>
#include <QString>
#include <utility>

namespace ostravel {

class ErrorReporter;
class VbError;

class RunReporter {
public:
    explicit RunReporter(ErrorReporter& reporter) : m_reporter(reporter) {}

    // A new run: every error shows its box again.
    void newRun() { m_shown.clear(); }
    void report(const VbError& error, const QString& place);

private:
    ErrorReporter& m_reporter;
    QSet<std::pair<int, QString>> m_shown;
};

}  // namespace ostravel
