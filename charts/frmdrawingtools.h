// frmDrawingTools, "Drawing Tools": the look of the next figure (colours, pen, fill, the trend
// line's extension, perfect square and circle, the ellipse's points), its defaults kept in
// Chart.INI, and the seven buttons, each of which hands the look to the tool and starts it.
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>

class QObject;

namespace ostravel {

class CDrawingToolschart;
class Program;
struct ChartSettings;

class FrmDrawingTools {
public:
    static const std::array<QString, 7> kButtons;  // picButton's captions, by index
    static const QStringList kStyles;              // cboStyle's rows: the pen styles
    static const QStringList kWidths;              // cboWidth's rows
    static const QStringList kModes;               // cboMode's rows: the pen modes
    static const QStringList kFillStyles;          // cboFillStyle's rows
    static inline const QString kSection = QStringLiteral("DrawingToolDefaults");

    FrmDrawingTools(Program& program, CDrawingToolschart& tools);

    // The controls, with the values the form is designed with; the combo boxes by row.
    std::int32_t lblColor = 10900825;
    int cboStyle = 0;
    int cboWidth = 0;
    bool cboWidthEnabled = true;
    int cboMode = 12;
    std::int32_t lblFillColor = 12632256;
    int cboFillStyle = 1;
    bool chkExtend = false;
    bool chkExtendLeft = false;
    bool chkSquare = false;
    bool chkCircle = false;
    std::array<bool, 2> optCircPt{true, false};  // "Opp.Pts", "Origin"
    bool Visible = true;

    const QObject* owner = nullptr;  // the dialog's window, which its own dialogs centre on
    std::function<void()> unload;    // the widget closes itself

    // The defaults from the file, when it has them.
    void Form_Load();
    // A pen other than solid draws one pixel wide whatever its width.
    void cboStyle_Click(int row);
    void lblColor_Click();
    void lblFillColor_Click();
    // A button released: the look goes to the tool, the form hides, the tool starts, the form goes.
    void picButton_MouseUp(int index);
    void cmdSetDefault_Click();
    void GetDrawToolSettings();

    // The pen mode of a cboMode row.
    static std::int16_t modeOfRow(int row);

private:
    Program& m_program;
    CDrawingToolschart& m_tools;
    ChartSettings& m_settings;
};

}  // namespace ostravel
