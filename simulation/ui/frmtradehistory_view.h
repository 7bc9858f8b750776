// The screen frmtradehistory: the trades of the stock in work above its prices, two read-only
// grids that mirror FrmTradeHistory, placed by the form's size.
#pragma once

#include <QWidget>

class QLabel;
class QTableWidget;

namespace ostravel {

class FrmTradeHistory;
class Program;

class TradeHistoryForm : public QWidget {
    Q_OBJECT
public:
    // Loads the state, which fills the grids.
    explicit TradeHistoryForm(Program& program, QWidget* parent = nullptr);
    // Closing the screen unloads it, so that its next opening loads anew.
    ~TradeHistoryForm() override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();

    FrmTradeHistory& m_state;
    QLabel* m_Label2 = nullptr;
    QLabel* m_Label1 = nullptr;
    QTableWidget* m_MSFlexGrid1 = nullptr;
    QTableWidget* m_MSFlexGrid2 = nullptr;
    bool m_unloaded = false;
};

}  // namespace ostravel
