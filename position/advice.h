// The advice rule: getadvise on a stored holding with its two front doors, and simulationstep,
// one day of the same idea over price history. The two differ on purpose and stay apart.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>

#include "runtime/variant.h"

namespace ostravel {

class Program;
class RowAppender;

// Module1's values of the rule, shared by getadvise and simulationstep.
struct AdviceValues {
    float adviseprice = 0;  // the price to advise at; 0 means the stored quote
    Variant sellcount = 0;  // sells counted (ledger or simulation)
    std::int16_t buycount = 0;

    // Requests to the screens that getadvise's failures make; unset, nothing is shown.
    std::function<void()> showPortfolioexplorer;  // error 11: show the overview
    std::function<void()> focusCmbequityname;     // error 3021: focus the frame's name box
};

// Module2's variables of a simulation run. runsimulation sets simportcontrol to 0 before a
// run, so that the first step initialises the rest.
struct SimulationValues {
    float simportcontrol = 0;
    float simportcontrol0 = 0;
    float simcash = 0;
    float simcps = 0;
    float simprice = 0;
    float simvalue = 0;
    float simsellamount = 0;
    float simsellprice = 0;
    float simbuyamount = 0;
    float simbuyprice = 0;
    float simlastprice = 0;
    std::int16_t simshares = 0;
    std::int16_t simprevshares = 0;
    std::int16_t simsellshares = 0;
    std::int16_t simbuyshares = 0;

    // The rule's resistances as users held them at the first step of the run: a run keeps the
    // settings it started with.
    Variant resistSell;
    Variant resistBuy;

    // The run's writers of simtrades and compare, open for the whole run; the day is the current
    // row of the store's simulation recordset. Without a writer of compare, pcaresult opens the
    // table afresh for its row, as an advice does.
    std::shared_ptr<RowAppender> simtrades;
    std::shared_ptr<RowAppender> compareRows;
};

// How an advice ended: stored, left by one of its two messages, or not run (a what-if answer
// that is no price).
enum class AdviceOutcome { Advised, NoSharesOrPrice, NotInPortfolio, NotRun };

inline const QString kNoSharesMessage =
    QStringLiteral("You have either your Shareqty= 0 or the price = 0 for the stock ");
inline const QString kNotInPortfolioMessage = QStringLiteral("Please select the stock available in your portfolio ");
inline const QString kWhatIfTitle = QStringLiteral("What if analysis");
inline const QString kWhatIfPrompt = QStringLiteral("Enter the Price");

// For the holding of the main frame's selection: stores the next sell and next buy in its row,
// shows them on equitymanager with "SELL", "BUY" or "HOLD", fills the position and the result
// labels. adviseprice is left as it was set (the front doors reset it).
AdviceOutcome getadvise(Program& program);
// Loads equitymanager, advises at the stored quote.
AdviceOutcome advise(Program& program);
// Asks for a price and advises at it; a what-if price is never remembered.
AdviceOutcome advisewhatif(Program& program);

// One simulated day on the simulation recordset's current row: trades carried out on the
// values in memory, shown on equitymanager, written to simtrades. Errors pass over silently.
void simulationstep(Program& program);

}  // namespace ostravel
