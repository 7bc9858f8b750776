// The screen addremovecash as state: moves money in and out of one holding's cash account, as a
// deposit, a withdrawal or interest. The balance is overwritten; no movement is recorded.
#pragma once

#include <functional>

#include "context/controls.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;

enum class CashMovement { Deposit, Withdrawal, Interest };

struct OptionButton {
    QString caption;
    bool value = false;
    bool enabled = true;
};

class AddRemoveCash : public FormState<AddRemoveCash> {
public:
    static inline const QString kDepositCaption = QStringLiteral("Deposit Cash");
    static inline const QString kWithdrawCaption = QStringLiteral("Withdraw Cash");
    static inline const QString kInterestCaption = QStringLiteral("Add");

    static inline const QString kNoPortfolio = QStringLiteral("You have not created any portfolio Yet");
    static inline const QString kNoEquity = QStringLiteral("You do not have any Equity under this Portfolo");
    static inline const QString kSure = QStringLiteral("Are you sure you have selected the right equity");
    static inline const QString kTooMuch = QStringLiteral(" You cannot withdraw more then Available");

    explicit AddRemoveCash(Program& program);

    QString caption;
    ComboBox Combo1;  // portfolio
    ComboBox Combo2;  // holding
    Label Label3;     // the balance line
    TextBox txtamount;
    OptionButton Option1{QStringLiteral("Add Cash")};
    OptionButton Option2{QStringLiteral("Withdraw Cash")};
    OptionButton Option3{QStringLiteral("Add Interest or Dividend")};
    Button cmdupdate{QStringLiteral("Update")};  // its caption chooses the movement
    Button cmdclose{QStringLiteral("Close")};

    // Called by tests between the steps of an update (see Trade::betweenWrites).
    std::function<void(const char* point)> betweenWrites;

    // The opener's part: loads the screen, sets the movement's option and disables the other
    // two, and writes the movement's captions.
    void prepare(CashMovement movement);

    void Form_Load();
    void Combo1_Click();
    void Combo2_Click();
    // A holding's code typed into Combo2.
    void Combo2_Change();
    void cmdupdate_Click();
    void cmdclose_Click();
};

// The main frame's three menu entries: refused with a message while no portfolio exists,
// else the screen is prepared for the movement and shown.
void showCashMovement(Program& program, CashMovement movement);

}  // namespace ostravel
