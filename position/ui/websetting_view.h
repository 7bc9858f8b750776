// The dialog websetting, "Configuration Setting": the users row on three tabs, with OK, Cancel
// and Apply. It mirrors WebSetting and forwards the buttons; Escape unloads it.
#pragma once

#include <QDialog>
#include <utility>

#include "context/controls.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace ostravel {

class Program;
class WebSetting;

class WebSettingForm : public QDialog {
    Q_OBJECT
public:
    explicit WebSettingForm(Program& program, QWidget* parent = nullptr);
    ~WebSettingForm() override;

    void refresh();

private:
    QWidget* positionTab();
    QWidget* serviceTab();
    QWidget* userTab();
    QLineEdit* box(const char* name, TextBox& state, QWidget* parent, bool numeric);
    QComboBox* combo(const char* name, ComboBox& state, QWidget* parent, const char* toolTip);
    void press(void (WebSetting::*button)());

    WebSetting& m_state;
    QTabWidget* m_SSTab1;
    QList<std::pair<QLineEdit*, const TextBox*>> m_boxes;
    QList<std::pair<QComboBox*, const ComboBox*>> m_combos;
    QCheckBox* m_Check2 = nullptr;
};

}  // namespace ostravel
