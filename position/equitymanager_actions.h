// The equity manager's own events: its activation, "Recalculate", "What if" and "Add Trade".
// The two that lead on into the ledger's screens (Newholding, trade) ask the ledger to make them
// ready through LedgerRequests, which the ledger fills at start-up.
#pragma once

#include <QString>
#include <functional>

namespace ostravel {

class Program;

// What the equity manager asks of the ledger's screens before it shows them; set by the ledger
// (installLedgerRequests). Left empty, the screen is shown as it stands.
struct LedgerRequests {
    // Newholding, loaded and on its "New holding" choice. Errors go to the report under `place`.
    std::function<void(const QString& place)> newHolding;
    // trade, loaded on the advised trade: its shares and price boxes, a sell or a buy, and the
    // caption that names the company. Errors go to the report under `place`.
    std::function<void(const QString& shares, const QString& price, bool sell, const QString& place)> adviceTrade;
};

// What the equity manager asks of the simulation, which stands above it; set by the frame at
// start-up. Left empty, the request does nothing.
struct SimulationRequests {
    std::function<void()> cdmrunsimulation;  // the frame's "Run Simulation"
    std::function<void()> runsimulation;     // one run over the history as it stands
};

class EquityManagerActions {
public:
    static inline const QString kNoEquity =
        QStringLiteral("You do not have any Equity holding , Do you want to Create new holding");
    static inline const QString kNoEquityTitle = QStringLiteral("No Equity Exist");
    static inline const QString kNoPortfolio = QStringLiteral("You Need to Create Portfolio to Hold Equity");
    static inline const QString kNoPortfolioTitle = QStringLiteral("Add PortFolio");
    static inline const QString kSelectEquity = QStringLiteral("Select the Equity");
    static inline const QString kSelectEquityTitle = QStringLiteral("Select Equity");
    static inline const QString kNotInPortfolio = QStringLiteral(" is not in your portfolio");

    explicit EquityManagerActions(Program& program);

    // The screen comes to the front: with no holding at all (outside "Simulation") the user is
    // offered the way to create one; then Run Simulation's state and the rule's settings.
    void Form_Activate();

    enum class Recalculated { Done, SelectEquity };
    // "Recalculate": advises on the selection, or under "Simulation" runs the simulation again
    // over its history, and shows the company's name in the caption.
    // SelectEquity: the code is not in the symbol list; the main frame's cmbequity wants the focus.
    Recalculated Command5_Click();

    // "Run Simulation": the frame's button of the same name.
    void Command3_Click();

    // "What if": shows the advice and, for a real portfolio, advises at a price the user gives.
    void cmdwhatif_Click();

    enum class TradeStart { Shown, NotInPortfolio };
    // "Add Trade": the trade screen opens on the advised trade, a sell when the advice says
    // "SELL" and a buy otherwise. NotInPortfolio: the main frame's cmbequity wants the focus.
    TradeStart cmdaddtrade_Click();

private:
    Program& m_program;
};

}  // namespace ostravel
