// The dialog setting: the rule's minimums and resistances and the holding's beginning cash,
// with its help text shown below on demand. It mirrors Setting and forwards the buttons.
#pragma once

#include <QDialog>
#include <utility>

#include "context/controls.h"

class QLineEdit;
class QPushButton;

namespace ostravel {

class HelpPanel;
class Program;
class Setting;

class SettingForm : public QDialog {
    Q_OBJECT
public:
    explicit SettingForm(Program& program, QWidget* parent = nullptr);
    ~SettingForm() override;

    void refresh();

private:
    void cmdhelp_Click();

    Setting& m_state;
    QList<std::pair<QLineEdit*, const TextBox*>> m_boxes;
    QPushButton* m_cmdok;
    QPushButton* m_cmdhelp;
    HelpPanel* m_helpArea;
};

}  // namespace ostravel
