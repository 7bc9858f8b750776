// The screen frmnewsymbol, "Add New Stocksymbol", as state: a stock added to the symbol list.
#pragma once

#include <functional>

#include "context/controls.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;

class NewSymbol : public FormState<NewSymbol> {
public:
    static inline const QString kCaption = QStringLiteral("Add New Stocksymbol");
    static inline const QString kHint = QStringLiteral(
        "If you Do Not know the Yahoo code, enter any part of the company name In Stock name text Box and clik Find "
        "Code");

    explicit NewSymbol(Program& program);

    TextBox txtnewsymbol;  // the exchange's symbol
    TextBox txtnewstock;   // the company's name
    TextBox Text1;         // the quote service's symbol
    Button cmdadd{QStringLiteral("Add")};
    // The symbol lookup opens in the web navigator, which this build doesn't have yet.
    Button Command1{QStringLiteral("Find Now"), false};
    Button cmdclose{QStringLiteral("Close")};
    // The control the screen puts the focus on, by its name; empty for no change.
    QString focus;

    // The search criterion for the symbol in txtnewsymbol.
    QString generatesql() const;
    void cmdadd_Click();
    void cmdclose_Click();
};

}  // namespace ostravel
