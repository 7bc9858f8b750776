// The dialog frmDrawingTools, "Drawing Tools": the seven tool buttons and the draw settings. It
// mirrors FrmDrawingTools and forwards acts.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QPushButton;
class QRadioButton;

namespace ostravel {

class CDrawingToolschart;
class FrmDrawingTools;
class Program;

class FrmDrawingToolsForm : public QDialog {
    Q_OBJECT
public:
    FrmDrawingToolsForm(Program& program, CDrawingToolschart& tools, QWidget* parent = nullptr);
    ~FrmDrawingToolsForm() override;

    void refresh();

private:
    void act(const std::function<void()>& procedure);
    // A tool button released: it shows its press a moment, then the tool starts.
    void ToggleButton(int index);

    std::unique_ptr<FrmDrawingTools> m_state;
    std::array<QPushButton*, 7> m_buttons{};
    QPushButton* m_lblColor;
    QPushButton* m_lblFillColor;
    QComboBox* m_cboStyle;
    QComboBox* m_cboWidth;
    QComboBox* m_cboMode;
    QComboBox* m_cboFillStyle;
    QCheckBox* m_chkExtend;
    QCheckBox* m_chkExtendLeft;
    QCheckBox* m_chkSquare;
    QCheckBox* m_chkCircle;
    std::array<QRadioButton*, 2> m_optCircPt{};
};

}  // namespace ostravel
