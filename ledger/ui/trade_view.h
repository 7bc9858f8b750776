// The screen trade: the boxes of one trade, the holding's trade list with its total, the date
// button with its calendar, and the help text below on demand. It mirrors Trade and forwards
// the user's actions to it.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ostravel {

class HelpPanel;
class DatePicker;
class Program;
class Trade;

class TradeForm : public QDialog {
    Q_OBJECT
public:
    explicit TradeForm(Program& program, QWidget* parent = nullptr);
    ~TradeForm() override;

    // Mirrors the state into the widgets, and moves the focus where the state asks.
    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QPushButton* addButton(const QString& name, const QString& caption);
    // Runs one of the state's actions, then shows the state again.
    template <class Action>
    void act(Action&& action);

    Program& m_program;
    Trade& m_state;
    QLineEdit* m_txtequity;
    QLineEdit* m_txtshare;
    QLineEdit* m_txtprice;
    QLineEdit* m_txtcommision;
    QComboBox* m_cmbmethod;
    QPushButton* m_cmddate;
    QPushButton* m_cmdadd;
    QPushButton* m_cmddelete;
    QPushButton* m_cmdclose;
    QPushButton* m_cmdhelp;
    QTableWidget* m_MSFlexGrid1;
    HelpPanel* m_helpArea;
    DatePicker* m_DatePicker1;
};

}  // namespace ostravel
