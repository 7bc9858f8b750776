// The screen frmportwizard, "Portfolio Manager", as state: the holdings of a chosen portfolio,
// a holding's symbol and start date corrected or the holding deleted, and the two wizards.
#pragma once

#include <functional>

#include "context/controls.h"
#include "context/gridformat.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;
class VbError;

class PortfolioManager : public FormState<PortfolioManager> {
public:
    static inline const QString kCaption = QStringLiteral("Portfolio Manager");
    // Kept: the grid's last heading and width at load differ from those a choice of portfolio
    // gives.
    static inline const QString kLoadFormat = QStringLiteral(
        "^Nos|^Symbol|^Initial Price|^Initial shares|^Initial cash|^Current Price|^Cost Per share|^Equity Start Date");
    static inline const QString kChosenFormat = QStringLiteral(
        "^Nos|^Symbol|^Initial Price|^Initial shares|^Initial cash|^Current Price|^Cost Per share|^Traded Date");
    static constexpr int kGridCols = 8;
    static constexpr int kGridRows = 2;
    static constexpr int kColWidth = 1200;
    static constexpr int kLoadDateWidth = 1500;  // column 7 at load
    static constexpr int kSymbolCol = 1;
    static constexpr int kDateCol = 7;
    static inline const QString kBeginDate = QStringLiteral("Equity Begin Date :");

    explicit PortfolioManager(Program& program);

    ComboBox Combo1;  // the portfolios
    Button cmdpwizard{QStringLiteral("Portfolio Wizard")};
    Button cmdtwizard{QStringLiteral("Trade Wizard")};
    bool Frame2Visible = true;  // "Equity Details"
    bool Frame2Enabled = true;
    TextBox Text1;  // the symbol, as the user corrects it
    TextBox Text2;  // the symbol as loaded, which finds the holding
    Button cmdestartdate{kBeginDate};
    Button cmdadd{QStringLiteral("Add")};
    Button cmddelete{QStringLiteral("Delete")};
    Button cmdupdate{QStringLiteral("Update")};
    Button cmdclose{QStringLiteral("Close")};
    FlexGridData MSFlexGrid1{kGridRows, kGridCols};
    int row = 0;  // the grid's current cell
    int col = 0;
    bool DatePicker1Visible = false;
    double DatePicker1Value = 0;  // date serial
    // The control the screen puts the focus on, by its name; empty for no change.
    QString focus;

    void Form_Load();
    // A portfolio chosen: the grid shows its holdings.
    void Combo1_Click();
    // A row chosen: its symbol and start date come into "Equity Details".
    void MSFlexGrid1_Click(int row, int col);

    // Both find the holding by its symbol alone, whatever portfolio holds it.
    void cmdupdate_Click();
    void cmddelete_Click();

    void cmdpwizard_Click();
    void cmdadd_Click();
    void cmdtwizard_Click();
    void cmdclose_Click();

    void cmdestartdate_Click();
    void DatePicker1_OK(double serial);
    void DatePicker1_Cancel();

private:
    // The grid cleared and filled with the holdings of Combo1's portfolio.
    void fillGrid(const QString& formatString, int dateWidth);
    // The screen's handler; at load a missing portfolio row is no error.
    void handle(const VbError& error, bool atLoad = false);
    template <class Statement>
    bool statement(Statement&& body, bool atLoad = false);
};

}  // namespace ostravel
