// The screen Newholding, "Create New Holding Wizad", as state: a new holding in a chosen
// portfolio for a stock of the symbol list, handed straight on to its setting trade.
#pragma once

#include <array>
#include <functional>

#include "context/controls.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;

class NewHolding : public FormState<NewHolding> {
public:
    static inline const QString kCaption = QStringLiteral("Create New Holding Wizad");
    static constexpr int kBSE = 0;
    static constexpr int kNSE = 1;
    static inline const QString kHelp = QStringLiteral("Help");
    static inline const QString kClose = QStringLiteral("Close");
    static inline const QString kHelpFile = QStringLiteral("help/EquityHelp.rtf");
    static constexpr int kHelpExtraTwips = 250;

    explicit NewHolding(Program& program);

    std::array<bool, 2> optnsebse{};  // index 0 "BSE", 1 "NSE"
    bool Option1 = false;             // "New holding"
    ComboBox Combo1;                  // the companies of the symbol list
    ComboBox cmbport;                 // the portfolios
    Button Command1;                  // its caption is the holding's start date
    TextBox txtequitysymbol;          // the ticker
    Button cmdok{QStringLiteral("OK")};
    Button cmdclose{QStringLiteral("Cancel")};
    Button cmdnew{QStringLiteral("New")};
    Button cmdhelp{kHelp};
    bool DatePicker1Visible = false;
    double DatePicker1Value = 0;  // date serial
    bool helpShown = false;
    // The control the screen puts the focus on, by its name; empty for no change.
    QString focus;

    void Form_Load();
    // Either exchange button: the company list filled again, its first entry picked.
    void optnsebse_Click(int index);
    // A company picked: its code for the exchange set goes to the ticker and the main frame.
    void Combo1_Click();
    // The ticker changed: the company of that ticker is shown.
    void txtequitysymbol_Change();
    // A portfolio picked: it becomes the main frame's portfolio.
    void cmbport_Click();
    // The search criterion for the ticker in txtequitysymbol.
    QString generatesql() const;

    // Checks, writes the holding row and hands over to the trade screen in setting mode.
    void cmdok_Click();
    void cmdnew_Click();
    void cmdclose_Click();
    void cmdhelp_Click();

    void Command1_Click();
    void DatePicker1_OK(double serial);
    void DatePicker1_Cancel();
    void Form_Click();
};

}  // namespace ostravel
