// The screen Create, "Portfolio Management Wizard", as state: adds, renames and deletes
// portfolios, and leads on to the holding wizard.
#pragma once

#include <functional>

#include "context/controls.h"
#include "context/gridformat.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;

class PortfolioWizard : public FormState<PortfolioWizard> {
public:
    static inline const QString kCaption = QStringLiteral("Portfolio Management Wizard");
    static inline const QString kGridFormat = QStringLiteral("^Nos|<Portfolio|^Date");
    static constexpr int kGridCols = 3;
    static constexpr int kColWidth = 2000;  // columns 1 and 2, twips
    static constexpr int kDateCol = 2;
    static inline const QString kHelp = QStringLiteral("Help");
    static inline const QString kClose = QStringLiteral("Close");
    static inline const QString kHelpFile = QStringLiteral("help/PortfolioHelp.rtf");
    // The form grows by RichTextBox1's height and this much more while its help is shown.
    static constexpr int kHelpExtraTwips = 250;

    explicit PortfolioWizard(Program& program);

    TextBox Text1;   // the portfolio's name
    Button cmddate;  // its caption is the portfolio's start date
    Button cmdadd{QStringLiteral("Add")};
    Button cmdupdate{QStringLiteral("Update")};
    Button cmddelete{QStringLiteral("Delete")};
    Button cmdnext{QStringLiteral("Next>")};
    Button cmdhelp{kHelp};
    Button cmdclose{QStringLiteral("Close")};
    // The grid is filled without being cleared, so it starts with its heading row alone.
    FlexGridData MSFlexGrid1{1, kGridCols};
    int row = 0;  // the grid's current cell
    int col = 0;
    bool DatePicker1Visible = false;
    double DatePicker1Value = 0;  // date serial
    bool helpShown = false;
    // The control the screen puts the focus on, by its name; empty for no change.
    QString focus;

    void Form_Load();
    // Refills the grid with every portfolio, row by row from the top.
    void addgrid();
    // The search criterion for the name in Text1.
    QString generatesql() const;

    // A cell chosen with a click: its text comes into Text1, its row's date onto the date button.
    void MSFlexGrid1_Click(int row, int col);
    // The grid's second event: the cell's text into Text1, and "Next>" disabled.
    void MSFlexGrid1_DblClick(int row, int col);

    void cmdadd_Click();
    void cmdupdate_Click();
    void cmddelete_Click();
    void cmdnext_Click();
    void cmdhelp_Click();
    void cmdclose_Click();

    void cmddate_Click();
    void DatePicker1_OK(double serial);
    void DatePicker1_Cancel();
    void Form_Click();

private:
    void selectCell(int row, int col);
    // The main frame's portfolio list made again from the table, "Simulation" first and chosen.
    void rebuildPortfolioList();
};

}  // namespace ostravel
