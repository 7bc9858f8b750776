// The day's results of both investors on equitymanager, and the day's row of compare. The
// advice and the simulation's days both end with it, so it stands with the advice rule.
#pragma once

namespace ostravel {

class Program;

// From the beginning and current boxes of equitymanager: the buy-and-hold and the rule's
// profit in rupees and per cent, the counts of sells and buys, and a row of compare for the
// simulation row at hand. Errors pass over in silence, statement by statement.
void pcaresult(Program& program);

}  // namespace ostravel
