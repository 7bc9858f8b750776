// The screen trade as state: the one place where a real buy or sell enters the ledger, in normal
// mode against a running position, or in setting mode as the first position of a new holding.
#pragma once

#include <functional>

#include "context/controls.h"
#include "context/gridformat.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;

class Trade : public FormState<Trade> {
public:
    static inline const QString kGridFormat =
        QStringLiteral("^Nos|<Trade ID|^Symbol|^Date|^Shares|^Price|^Commision|^Buy sell");
    static constexpr int kGridCols = 8;
    static constexpr int kColWidth = 1000;  // columns 1 to 7, twips
    static constexpr int kTradeIdCol = 1;
    static inline const QString kBuy = QStringLiteral("Buy");
    static inline const QString kSell = QStringLiteral("Sell");
    static inline const QString kEnterEquity = QStringLiteral("Enter Equity");
    static inline const QString kHelp = QStringLiteral("Help");
    static inline const QString kClose = QStringLiteral("Close");
    static inline const QString kPickedDatePattern = QStringLiteral("dd/MMM/yyyy");
    // The form grows by RichTextBox1's height and this much more while its help is shown.
    static constexpr int kHelpExtraTwips = 250;
    // The captions the openers write, each followed by the main frame's caption.
    static inline const QString kSettingCaption = QStringLiteral("Setting Trade for ");
    static inline const QString kTradeCaption = QStringLiteral("Trade Details of  ");

    static inline const QString kEmptyField = QStringLiteral("Please Dont Leave any Field Empty");
    static inline const QString kNullField = QStringLiteral("This Feild Cannot Have null Value");
    static inline const QString kNothingToSell = QStringLiteral("You do not have Equity to Sell");
    static inline const QString kLessCashTitle = QStringLiteral("Less Cash in Account");

    explicit Trade(Program& program);

    QString caption;
    TextBox txtequity, txtshare, txtprice, txtcommision;
    ComboBox cmbmethod;  // "Buy" or "Sell" in text
    Button cmddate;      // its caption is the trade date
    Button cmdadd{QStringLiteral("Add Trade")};
    Button cmddelete{QStringLiteral("Delete trade")};
    Button cmdclose{QStringLiteral("Close")};
    Button cmdhelp{kHelp};
    bool Option1 = false;  // setting mode: the first position of a holding just created
    FlexGridData MSFlexGrid1{2, kGridCols};
    int row = 0;  // the grid's current cell
    int col = 0;
    bool DatePicker1Visible = false;
    double DatePicker1Value = 0;  // date serial
    bool helpShown = false;
    // The control the screen puts the focus on, by its name; empty for no change.
    QString focus;

    // Called by tests between the writes of an action, with a name for the point reached; a
    // test kills the process there to see that the action's rows come all or not at all.
    std::function<void(const char* point)> betweenWrites;

    void Form_Load();
    // Format string, column count and column widths of the trade list.
    void gridtradesetting();
    // cmbmethod's ListIndex: 0 "Buy", 1 "Sell".
    void setMethodIndex(int listIndex);
    // Proposes the commission for the price and shares typed.
    void txtprice_LostFocus();
    // A cell of the trade list chosen: its row comes into the boxes and Delete is enabled.
    void MSFlexGrid1_Click(int row, int col);

    void cmdadd_Click();
    void cmddelete_Click();
    void cmdclose_Click();
    void cmdhelp_Click();

    void cmddate_Click();
    void DatePicker1_OK(double serial);
    void DatePicker1_Cancel();
    void Form_Click();

private:
    void reached(const char* point);
};

}  // namespace ostravel
