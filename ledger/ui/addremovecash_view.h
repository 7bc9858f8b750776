// The screen addremovecash: portfolio and holding, the balance line, the amount and the
// movement's option. It mirrors AddRemoveCash and forwards the user's actions to it.
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace ostravel {

class AddRemoveCash;
class Program;

class AddRemoveCashForm : public QDialog {
    Q_OBJECT
public:
    explicit AddRemoveCashForm(Program& program, QWidget* parent = nullptr);
    ~AddRemoveCashForm() override;

    void refresh();

protected:
    void reject() override;

private:
    template <class Action>
    void act(Action&& action);

    AddRemoveCash& m_state;
    QComboBox* m_Combo1;
    QComboBox* m_Combo2;
    QLabel* m_Label3;
    QLineEdit* m_txtamount;
    QRadioButton* m_Option1;
    QRadioButton* m_Option2;
    QRadioButton* m_Option3;
    QPushButton* m_cmdupdate;
    QPushButton* m_cmdclose;
};

}  // namespace ostravel
