// The equity manager's own events: its activation, "Recalculate", "What if" and "Add Trade".
// They fill the ledger's screens (Create, Newholding, trade), so they stand with the ledger;
// the screen's state stays with the advice rule, which writes it.
#pragma once

#include <QString>

namespace ostravel {

class Program;

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
    // "Recalculate": advises on the selection and shows the company's name in the caption.
    // SelectEquity: the code is not in the symbol list; the main frame's cmbequity wants the focus.
    Recalculated Command5_Click();

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
