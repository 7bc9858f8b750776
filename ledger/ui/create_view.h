// The dialog Create, "Portfolio Management Wizard": the portfolio's name and start date, the
// list of portfolios, and the buttons that add, rename, delete and go on to the holding wizard.
// It mirrors PortfolioWizard and forwards the user's actions to it.
#pragma once

#include <QDialog>
#include <utility>

#include "context/controls.h"

class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ostravel {

class HelpPanel;
class DatePicker;
class PortfolioWizard;
class Program;

class Create : public QDialog {
    Q_OBJECT
public:
    explicit Create(Program& program, QWidget* parent = nullptr);
    ~Create() override;

    void refresh();
    // Escape and the close box: the way "Close" goes, and only while it can be pressed.
    void reject() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    QPushButton* addButton(const QString& name, const Button& button, void (PortfolioWizard::*click)());
    // Runs one of the state's procedures and shows what it changed.
    void act(void (PortfolioWizard::*procedure)());
    void cellChosen(int tableRow, int col, void (PortfolioWizard::*procedure)(int, int));

    Program& m_program;
    PortfolioWizard& m_state;
    QLineEdit* m_Text1;
    QPushButton* m_cmddate;
    QTableWidget* m_MSFlexGrid1;
    QList<std::pair<QPushButton*, const Button*>> m_buttons;
    DatePicker* m_DatePicker1;
    HelpPanel* m_helpArea;
    bool m_unloaded = false;  // the state has unloaded and closed this screen
};

}  // namespace ostravel
