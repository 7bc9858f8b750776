#include "charts/frmdrawingtools.h"

#include <iterator>

#include "charts/chart_settings.h"
#include "charts/drawing_tools.h"
#include "charts/mfunctions.h"
#include "charts/profile_file.h"
#include "context/program.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

QString place(const char* procedure) {
    return QStringLiteral("(Form) frmDrawingTools::Sub ") + QString::fromLatin1(procedure);
}

// The keys of [DrawingToolDefaults], in the order the section is first written.
const char* const kKeys[] = {"DrawColor",  "DrawStyle", "DrawWidth", "DrawMode", "FillColor", "FillStyle",
                             "TLExtRight", "TLExtLeft", "PerfSqr",   "PerfCirc", "UseOrigin"};

// A combo box takes only a row it has, as setting its index to another raises 380.
int comboRow(const QString& text, const QStringList& rows) {
    const std::int16_t row = wholeSetting(text);
    if (row < 0 || row >= rows.size())
        raise(err::InvalidPropertyValue);
    return row;
}

}  // namespace

const std::array<QString, 7> FrmDrawingTools::kButtons = {
    QStringLiteral("Cancel & Exit"),    QStringLiteral("TrendLine"), QStringLiteral("Parallel TL"),
    QStringLiteral("Elipse"),           QStringLiteral("Rectangle"), QStringLiteral("Fib Retrace"),
    QStringLiteral("(For Future Use)"),
};

const QStringList FrmDrawingTools::kStyles = {QStringLiteral("Solid"), QStringLiteral("Dash"), QStringLiteral("Dot"),
                                              QStringLiteral("DashDot"), QStringLiteral("DashDotDot")};

const QStringList FrmDrawingTools::kWidths = {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                                              QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("6"),
                                              QStringLiteral("8"), QStringLiteral("10")};

const QStringList FrmDrawingTools::kModes = {
    QStringLiteral("Blackness"),   QStringLiteral("NotMergePen"), QStringLiteral("MaskNotPen"),
    QStringLiteral("NotCopyPen"),  QStringLiteral("MaskPenNot"),  QStringLiteral("Invert"),
    QStringLiteral("XorPen"),      QStringLiteral("NotMaskPen"),  QStringLiteral("MaskPen"),
    QStringLiteral("NotXorPen"),   QStringLiteral("MergeNotPen"), QStringLiteral("CopyPen"),
    QStringLiteral("MergePenNot"), QStringLiteral("MergePen"),    QStringLiteral("Whiteness"),
};

const QStringList FrmDrawingTools::kFillStyles = {
    QStringLiteral("Solid"),        QStringLiteral("TRANSPARENT"),    QStringLiteral("HorizontalLine"),
    QStringLiteral("VerticalLine"), QStringLiteral("UpwardDiagonal"), QStringLiteral("DownwardDiagonal"),
    QStringLiteral("Cross"),        QStringLiteral("DiagonalCross"),
};

FrmDrawingTools::FrmDrawingTools(Program& program, CDrawingToolschart& tools)
    : m_program(program), m_tools(tools), m_settings(program.module<ChartSettings>()) {}

std::int16_t FrmDrawingTools::modeOfRow(int row) {
    // Kept: the rows leave out the mode that does nothing, so from "MergeNotPen" on a row's
    // mode is the one before its name: "CopyPen" merges, and "MergePenNot" copies.
    return static_cast<std::int16_t>(row + 1);
}

void FrmDrawingTools::Form_Load() {
    trapped(m_program.reporter(), place("Form_Load"), [&] {
        if (GetNumIniKeys(m_settings.IniFile, kSection) > 0)
            GetDrawToolSettings();
    });
}

void FrmDrawingTools::cboStyle_Click(int row) {
    cboStyle = row;
    cboWidthEnabled = row == 0;
}

void FrmDrawingTools::lblColor_Click() {
    lblColor = GetColorDlg(m_program.prompt(), lblColor, owner);
}

void FrmDrawingTools::lblFillColor_Click() {
    lblFillColor = GetColorDlg(m_program.prompt(), lblFillColor, owner);
}

void FrmDrawingTools::picButton_MouseUp(int index) {
    trapped(m_program.reporter(), place("picButton_MouseUp"), [&] {
        CDrawingToolschart& t = m_tools;
        t.ToolColor = lblColor;
        t.ToolMode = modeOfRow(cboMode);
        t.ToolStyle = cboStyle;
        t.ToolWidth = static_cast<int>(Val(kWidths.value(cboWidth)));
        t.Extend = static_cast<std::int16_t>((chkExtend ? 2 : 0) + (chkExtendLeft ? 1 : 0));
        t.ToolFillStyle = cboFillStyle;
        t.ToolFillColor = lblFillColor;
        t.UseOrigin = optCircPt[1];
        Visible = false;
        switch (index) {
            case 1:
                t.TrendLine();
                break;
            case 2:
                t.TrendLine(true);
                break;
            case 3:
                t.CircleElipseTool(chkCircle);
                break;
            case 4:
                t.RectAndSquareTool(chkSquare);
                break;
            case 5:
                t.FibRetrace();
                break;
            default:
                break;
        }
    });
    if (unload)
        unload();
}

void FrmDrawingTools::cmdSetDefault_Click() {
    trapped(m_program.reporter(), place("cmdSetDefault_Click"), [&] {
        QByteArray text = ProfileFile::read(m_settings.IniFile).text();
        // The first save adds the section at the end of the file with its keys empty.
        if (GetNumIniKeys(m_settings.IniFile, kSection) == 0) {
            text += "[" + kSection.toLatin1() + "]\r\n";
            for (const char* key : kKeys) text += QByteArray(key) + "=\r\n";
        }
        ProfileFile profile(text);
        const QString values[] = {
            QString::number(lblColor),  QString::number(cboStyle),      QString::number(cboWidth),
            QString::number(cboMode),   QString::number(lblFillColor),  QString::number(cboFillStyle),
            QString::number(chkExtend), QString::number(chkExtendLeft), QString::number(chkSquare),
            QString::number(chkCircle), flagWordText(optCircPt[1]),
        };
        for (std::size_t i = 0; i < std::size(kKeys); ++i)
            profile.setValue(kSection, QString::fromLatin1(kKeys[i]), values[i]);
        profile.write(m_settings.IniFile, QStringLiteral("cmdSetDefault_Click"));
        CntrMsgBox(m_program.prompt(), owner,
                   QStringLiteral("Current Settings have been saved as Defaults...\nIf the main program defaults are "
                                  "ever reset,\nthese settings will be erased...."),
                   Buttons::OK, QStringLiteral("Successful Save"));
    });
}

void FrmDrawingTools::GetDrawToolSettings() {
    const ProfileFile profile = ProfileFile::read(m_settings.IniFile);
    const auto text = [&](const char* key) {
        return profile.value(kSection, QString::fromLatin1(key)).value_or(QString());
    };
    const QString where = place("GetDrawToolSettings");
    ErrorReporter& reporter = m_program.reporter();
    trapped(reporter, where, [&] { lblColor = longSetting(text("DrawColor")); });
    trapped(reporter, where, [&] { cboStyle_Click(comboRow(text("DrawStyle"), kStyles)); });
    trapped(reporter, where, [&] { cboWidth = comboRow(text("DrawWidth"), kWidths); });
    trapped(reporter, where, [&] { cboMode = comboRow(text("DrawMode"), kModes); });
    trapped(reporter, where, [&] { lblFillColor = longSetting(text("FillColor")); });
    trapped(reporter, where, [&] { cboFillStyle = comboRow(text("FillStyle"), kFillStyles); });
    trapped(reporter, where, [&] { chkExtend = flagSetting(text("TLExtRight")); });
    trapped(reporter, where, [&] { chkExtendLeft = flagSetting(text("TLExtLeft")); });
    trapped(reporter, where, [&] { chkSquare = flagSetting(text("PerfSqr")); });
    trapped(reporter, where, [&] { chkCircle = flagSetting(text("PerfCirc")); });
    trapped(reporter, where, [&] {
        // The two options are a group: one of them stands.
        const bool origin = flagSetting(text("UseOrigin"));
        optCircPt = {!origin, origin};
    });
}

}  // namespace ostravel
