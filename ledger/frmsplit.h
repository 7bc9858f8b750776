// The screen frmsplit ("Stock Split") as state: adjusts the shares of the main frame's holding
// after a stock split, read as a sentence "<symbol> has comleted a <n> For <m> Split".
#pragma once

#include <functional>

#include "context/controls.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;

class FrmSplit : public FormState<FrmSplit> {
public:
    static inline const QString kCaption = QStringLiteral("Stock Split");
    static inline const QString kSelectPortfolio = QStringLiteral("Please Select The Portfolio");
    static inline const QString kSelectPortfolioTitle = QStringLiteral("Select Portfolio");
    static inline const QString kSelectEquity = QStringLiteral("Please Select The Equity Symbol");
    static inline const QString kSelectEquityTitle = QStringLiteral("Select Equity");
    static constexpr int kLargest = 50;

    explicit FrmSplit(Program& program);

    Label Label2;     // the sentence's head: the symbol and " has comleted a"
    ComboBox Combo1;  // new shares
    ComboBox Combo2;  // for old shares
    Button Command1{QStringLiteral("Add Split")};
    Button cmdclose{QStringLiteral("Close")};
    // The main frame's control that gets the focus after a refusal ("cmbportfolio" or
    // "cmbequity"); empty for none.
    QString frameFocus;

    // Called by tests between the steps of the split (see Trade::betweenWrites).
    std::function<void(const char* point)> betweenWrites;

    void Form_Load();
    void Command1_Click();
    void cmdclose_Click();
};

// The menu entry "Stock Split Adjust": the screen unloads and shows anew.
void showStockSplit(Program& program);

}  // namespace ostravel
