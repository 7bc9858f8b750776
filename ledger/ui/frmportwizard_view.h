// The screen frmportwizard, "Portfolio Manager": a portfolio's holdings in a grid, the chosen
// holding's symbol and start date for correction, and the buttons to the two wizards. It
// mirrors PortfolioManager and forwards the user's actions to it.
#pragma once

#include <QWidget>
#include <utility>

#include "context/controls.h"

class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ostravel {

class DatePicker;
class PortfolioManager;
class Program;

class frmportwizard : public QWidget {
    Q_OBJECT
public:
    explicit frmportwizard(Program& program, QWidget* parent = nullptr);
    ~frmportwizard() override;

    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QPushButton* addButton(const QString& name, const Button& button, void (PortfolioManager::*click)(),
                           QWidget* parent);
    void act(void (PortfolioManager::*procedure)());

    Program& m_program;
    PortfolioManager& m_state;
    QComboBox* m_Combo1;
    QGroupBox* m_Frame2;
    QLineEdit* m_Text1;
    QLineEdit* m_Text2;
    QPushButton* m_cmdestartdate;
    QTableWidget* m_MSFlexGrid1;
    QList<std::pair<QPushButton*, const Button*>> m_buttons;
    DatePicker* m_DatePicker1;
    bool m_unloaded = false;  // the state has unloaded and closed this screen
};

}  // namespace ostravel
