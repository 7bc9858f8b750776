// The dialog frmmodel, "Model": three option buttons with their descriptions and "Next". It
// mirrors FrmModel; closing it any other way takes the cancel path.
#pragma once

#include <QDialog>
#include <array>

class QLabel;
class QRadioButton;

namespace ostravel {

class FrmModel;
class Program;

class FrmModelForm : public QDialog {
    Q_OBJECT
public:
    // portfolioName: the name typed in Create, which the chosen model suffixes.
    FrmModelForm(Program& program, const QString& portfolioName, QWidget* parent = nullptr);
    ~FrmModelForm() override;

    void refresh();
    void reject() override;

private:
    FrmModel& m_state;
    QString m_portfolioName;
    std::array<QRadioButton*, 3> m_Option1{};
    std::array<QLabel*, 3> m_descriptions{};
    bool m_unloaded = false;
};

}  // namespace ostravel
