// The dialog setting ("Position Management Setting"): the rule's figures of the users row and
// the beginning cash of the holding in work.
#pragma once

#include <functional>

#include "context/controls.h"

namespace ostravel {

class Program;

class Setting {
public:
    static inline const QString kHelp = QStringLiteral("Help");
    static inline const QString kClose = QStringLiteral("Close");
    // The dialog grows by RichTextBox1's height and this much more while its help is shown.
    static constexpr int kHelpExtraTwips = 300;

    explicit Setting(Program& program);

    // Set by the trade screen before the dialog shows: "Setting for " and the frame's caption.
    QString caption;

    TextBox txtmsell;    // MinTradeSell, rupees
    TextBox txtmbuy;     // MinTradeBuy, rupees
    TextBox txtmtbuy;    // MinTradeBuySh, shares
    TextBox txtmtsell;   // MinTradeSellSh, shares
    TextBox txtbuyres;   // ResistBuy
    TextBox txtsellres;  // ResistSell
    TextBox txtbcash;    // CurrentCash and OriginalCash of the holding

    Button cmdhelp{kHelp};
    bool helpShown = false;  // the dialog is grown to show RichTextBox1

    // The widget closes itself when the dialog unloads.
    std::function<void()> unload;

    // A fresh load: the boxes start empty, and the beginning cash is proposed as two thirds of
    // the amount traded in the holding (0 with no trades).
    void Form_Load();
    // Writes the six figures to users and the cash to the holding, refills the overview, unloads.
    void cmdok_Click();
    void cmdhelp_Click();

private:
    Program& m_program;
};

}  // namespace ostravel
