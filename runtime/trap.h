// The common trap for one statement of a procedure: the statement runs, a run-time error goes
// to the procedure's handler, and the procedure goes on with its next statement.
#pragma once

#include <QString>
#include <utility>

#include "runtime/reporterror.h"
#include "runtime/vberror.h"

namespace ostravel {

// Runs one statement; an error goes to `handler`, which treats the procedure's own error
// numbers and reports the rest. Returns whether the statement ran clean.
template <class Statement, class Handler>
bool trapped(Statement&& statement, Handler&& handler) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const VbError& e) {
        handler(e);
        return false;
    }
}

// The usual handler: every error goes to ReportError with the procedure's place.
template <class Statement>
bool trapped(ErrorReporter& reporter, const QString& place, Statement&& statement) {
    return trapped(std::forward<Statement>(statement), [&](const VbError& e) { reporter.report(e, place); });
}

// A statement of a procedure that passes its errors over in silence.
template <class Statement>
bool passedOver(Statement&& statement) {
    return trapped(std::forward<Statement>(statement), [](const VbError&) {});
}

// A statement that writes a grid's cell: a cell beyond the grid's rows (381) has `grow` add a
// row and the statement runs again. One row more is always enough for one cell, so a second
// 381 goes to the handler like every other error.
template <class Statement, class Grow, class Handler>
bool trappedGrowing(Grow&& grow, Statement&& statement, Handler&& handler) {
    bool grown = false;
    return trapped(
        [&] {
            for (;;) {
                try {
                    statement();
                    return;
                } catch (const VbError& e) {
                    if (e.number() != err::InvalidArrayIndex || grown)
                        throw;
                    grow();
                    grown = true;
                }
            }
        },
        std::forward<Handler>(handler));
}

}  // namespace ostravel
