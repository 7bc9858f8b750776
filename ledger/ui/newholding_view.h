// The dialog Newholding, "Create New Holding Wizad": exchange, company, portfolio, start date
// and ticker of a new holding. It mirrors NewHolding and forwards the user's actions to it.
#pragma once

#include <QDialog>
#include <array>
#include <utility>

#include "context/controls.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace ostravel {

class HelpPanel;
class DatePicker;
class NewHolding;
class Program;

class NewHoldingForm : public QDialog {
    Q_OBJECT
public:
    explicit NewHoldingForm(Program& program, QWidget* parent = nullptr);
    ~NewHoldingForm() override;

    void refresh();
    void reject() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    QPushButton* addButton(const QString& name, const Button& button, void (NewHolding::*click)());
    void act(void (NewHolding::*procedure)());

    Program& m_program;
    NewHolding& m_state;
    std::array<QRadioButton*, 2> m_optnsebse{};
    QRadioButton* m_Option1;
    QComboBox* m_Combo1;
    QComboBox* m_cmbport;
    QPushButton* m_Command1;
    QLineEdit* m_txtequitysymbol;
    QList<std::pair<QPushButton*, const Button*>> m_buttons;
    DatePicker* m_DatePicker1;
    HelpPanel* m_helpArea;
    bool m_unloaded = false;  // the state has unloaded and closed this screen
};

}  // namespace ostravel
