// The screen frmtradehistory as state: the trades of the stock in work above its prices. Under
// a real portfolio the holding's trades and the prices seen; under "Simulation" the simulated
// trades and the history the run went over. Read-only: all is done in its load.
#pragma once

#include <QRect>

#include "context/controls.h"
#include "context/gridformat.h"
#include "ledger/form_state.h"

namespace ostravel {

class Program;

class FrmTradeHistory : public FormState<FrmTradeHistory> {
public:
    static inline const QString kTradesFormat = QStringLiteral("^Nos|^Date|^Shares|^Price|^Buy sell");
    static inline const QString kPricesFormat = QStringLiteral("^Nos|^Date|^Price");
    static inline const QString kHistoryFormat = QStringLiteral("^Nos|^Date|^Open|^High|^Low|^Close|^Volume");

    explicit FrmTradeHistory(Program& program);

    QString caption;
    Label Label2{QStringLiteral("Trading Details")};
    Label Label1{QStringLiteral("Historical Data")};
    FlexGridData MSFlexGrid1;  // trades
    FlexGridData MSFlexGrid2;  // prices

    void Form_Load();
};

// Where the labels and grids stand on a form of that top, height and inner width, in twips:
// the trades above, the prices below them, each about half of the form high.
struct TradeHistoryLayout {
    QRect Label2, MSFlexGrid1, Label1, MSFlexGrid2;
};
TradeHistoryLayout tradeHistoryLayout(int formTop, int formHeight, int innerWidth);

}  // namespace ostravel
