// The ledger's side of what the equity manager asks of its screens.
#pragma once

namespace ostravel {

class Program;

// Fills the program's LedgerRequests with the ledger's screens; the program does this at start-up.
void installLedgerRequests(Program& program);

}  // namespace ostravel
