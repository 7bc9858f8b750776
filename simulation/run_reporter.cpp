#include "simulation/run_reporter.h"

#include "runtime/reporterror.h"

namespace ostravel {

void RunReporter::report(const VbError& error, const QString& place) {
    const std::pair<int, QString> key{error.number(), place};
    if (m_shown.contains(key)) {
        m_reporter.log(error, place);
        return;
    }
    m_shown.insert(key);
    m_reporter.report(error, place);
}

}  // namespace ostravel
