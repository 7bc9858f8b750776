// The screen frmsplit: the sentence "<symbol> has comleted a <n> For <m> Split" with its two
// number lists, and "Add Split". It mirrors FrmSplit and forwards the user's actions to it.
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

namespace ostravel {

class FrmSplit;
class Program;

class FrmSplitForm : public QDialog {
    Q_OBJECT
public:
    explicit FrmSplitForm(Program& program, QWidget* parent = nullptr);
    ~FrmSplitForm() override;

    void refresh();

protected:
    void reject() override;

private:
    FrmSplit& m_state;
    QLabel* m_Label2;
    QComboBox* m_Combo1;
    QComboBox* m_Combo2;
    QPushButton* m_Command1;
    QPushButton* m_cmdclose;
};

}  // namespace ostravel
