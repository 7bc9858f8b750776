// The price update: the prices the user types (updateprice), one request for the whole open
// portfolio ("Update All Prices"), the latest closes of the day-file store, and the main
// frame's line for the price of the stock in work.
#pragma once

#include <QString>
#include <functional>

#include "market/connectivity.h"

namespace ostravel {

class Program;

struct PriceUpdate {
    // The system's connection state as updateprice asks it.
    std::function<bool()> online = Online;
    // Set by the frame's window: an empty list sends the user to the portfolio box.
    std::function<void()> focusCmbportfolio;
};

inline const QString kSelectProperPortfolio = QStringLiteral("Select the Proper portfolio");
inline const QString kPortfolioError = QStringLiteral("Portfolio error");

// MDIForm1's currentprice: panel 6 names the price of the stock in work, or the simulation.
void currentprice(Program& program);

// The typed price of each stock of Portfolioexplorer's list, from its selected entry on; a
// cancel ends the pass. Asks nothing while the system is offline.
void updateprice(Program& program);

// Portfolioexplorer's "Update All Prices": one quote request for the index and every holding
// from the list's selected entry on; each holding's price, averages and volumes, and one
// currentprice row a day.
void cmdupdate_Click(Program& program);

// "Update Prices from Day Files": each holding of the open portfolio takes its latest close in
// the day-file store, with the writes of "Update All Prices"; the day of the close dates its
// currentprice row. Tells the user what was found.
void UpdatePricesFromDayFiles(Program& program);

// Wires the overview's "Update All Prices" to cmdupdate_Click and enables it.
void installPriceUpdate(Program& program);

}  // namespace ostravel
