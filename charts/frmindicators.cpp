#include "charts/frmindicators.h"

#include "charts/chart_settings.h"
#include "charts/mfunctions.h"
#include "charts/midicators.h"
#include "charts/profile_file.h"
#include "context/program.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kAvgSettings = QStringLiteral("AvgSettings");
const QString kIndicatorList = QStringLiteral("Indicators");
const QString kSettings = QStringLiteral("Settings");
const QString kCurrentIndicator = QStringLiteral("CurrentIndicator");
constexpr int kEnter = 13;

QString place(const char* procedure) {
    return QStringLiteral("(Form) frmIndicators::Sub ") + QString::fromLatin1(procedure);
}

bool isTrueFalse(const QString& value) {
    const QString word = value.trimmed().toUpper();
    return word == QLatin1String("TRUE") || word == QLatin1String("FALSE");
}

}  // namespace

FrmIndicators::FrmIndicators(Program& program)
    : m_program(program), m_settings(program.module<ChartSettings>()), m_indicators(program.module<MIdicators>()) {}

void FrmIndicators::Form_Load() {
    trapped(m_program.reporter(), place("Form_Load"), [&] {
        m_openedIndicator = m_indicators.CurrentIndicator;
        // What ResetValues puts back: the averages and every indicator's section.
        const ProfileFile profile = ProfileFile::read(m_settings.IniFile);
        QStringList sections{kAvgSettings};
        for (const QString& key : profile.keys(kIndicatorList))
            sections << profile.value(kIndicatorList, key).value_or(QString()) + kSettings;
        m_opened.clear();
        for (const QString& name : sections) {
            Section& section = m_opened.emplace_back(Section{name, {}});
            for (const QString& key : profile.keys(name))
                section.values.emplace_back(key, profile.value(name, key).value_or(QString()));
        }
    });
    showIndicator();
    LoadCurrentSettings(kIndicators);
}

void FrmIndicators::showIndicator() {
    Frame1 = QStringLiteral("Current Indicator Settings -> ") + m_indicators.CurrentIndicator;
}

void FrmIndicators::LoadCurrentSettings(const QString& kind) {
    trapped(m_program.reporter(), place("LoadCurrentSettings"), [&] {
        lstVwSettings.clear();
        selected = 0;
        editRow = -1;
        header = QStringLiteral("Dbl Click to Edit");
        m_kind = kind;
        const bool averages = kind == kAverages;
        // Names compare without regard to case: "STOCHSettings" finds [StochSettings].
        const QString section = averages ? kAvgSettings : m_indicators.CurrentIndicator + kSettings;
        const QString& file = m_settings.IniFile;
        const int count = GetNumIniKeys(file, section);
        for (int n = 1; n <= count; ++n) {
            const QString key = GetIniKey(file, section, n);
            lstVwSettings.push_back(makeRow(section, key, GetIni(file, section, key)));
            if (averages && n % 3 == 0 && n < count)
                lstVwSettings.push_back({{}, {}, {}, false, true, 0});
        }
    });
}

FrmIndicators::Row FrmIndicators::makeRow(const QString& section, const QString& key, const QString& value) {
    Row r{key, value, section, key.toUpper().contains(QLatin1String("COLOR")), false, 0};
    if (r.colour)
        passedOver([&] { r.Colour = longSetting(value); });
    return r;
}

bool FrmIndicators::trueFalseRow(int row) const {
    return row >= 0 && row < static_cast<int>(lstVwSettings.size()) && isTrueFalse(lstVwSettings[row].Value);
}

void FrmIndicators::write(int row, const QString& value) {
    Row& r = lstVwSettings[static_cast<std::size_t>(row)];
    m_undo = Edit{r.section, r.Parameter, r.Value};
    cmdUndo.enabled = true;
    WriteIni(m_settings.IniFile, r.section, r.Parameter, value);
    r = makeRow(r.section, r.Parameter, value);
    DirtyFlag = true;
    // The indicator and the averages read their settings again, so that the edit stands in them.
    m_indicators.GetIndicatorSettings();
}

void FrmIndicators::lstVwSettings_DblClick(int row) {
    trapped(m_program.reporter(), place("lstVwSettings_DblClick"), [&] {
        if (row < 0 || row >= static_cast<int>(lstVwSettings.size()))
            return;
        selected = row;
        const Row& r = lstVwSettings[static_cast<std::size_t>(row)];
        if (changing()) {
            pick(r.Value);
        } else if (r.blank) {
            return;
        } else if (r.colour) {
            const std::int32_t chosen = GetColorDlg(m_program.prompt(), r.Colour, owner);
            if (chosen != r.Colour)
                write(row, QString::number(chosen));
        } else if (isTrueFalse(r.Value)) {
            write(row, flagWordText(!flagSetting(r.Value)));
        } else {
            editRow = row;
            txtEdit.text = r.Value;
        }
    });
}

void FrmIndicators::lstVwSettings_KeyPress(int row, QChar key) {
    if (key.unicode() == kEnter) {
        lstVwSettings_DblClick(row);
        return;
    }
    if (changing() || row < 0 || row >= static_cast<int>(lstVwSettings.size()) || !key.isPrint())
        return;
    const Row& r = lstVwSettings[static_cast<std::size_t>(row)];
    if (r.blank || r.colour)
        return;
    editRow = row;
    if (txtEditKey(key.unicode()) == 0) {
        editRow = -1;
        return;
    }
    selected = row;
    txtEdit_Change(QString(key));
}

int FrmIndicators::txtEditKey(int keyAscii) const {
    if (keyAscii < ' ' || trueFalseRow(editRow))
        return keyAscii;
    return (keyAscii >= '0' && keyAscii <= '9') || keyAscii == '.' || keyAscii == '-' ? keyAscii : 0;
}

void FrmIndicators::txtEdit_Change(const QString& text) {
    txtEdit.text = text;
    if (!trueFalseRow(editRow))
        return;
    const QString typed = text.trimmed().toUpper();
    if (typed == QLatin1String("T") || typed == QLatin1String("1") || typed == QLatin1String("-1"))
        txtEdit.text = flagWordText(true);
    else if (typed == QLatin1String("F") || typed == QLatin1String("0"))
        txtEdit.text = flagWordText(false);
}

void FrmIndicators::txtEdit_Accept() {
    if (editRow < 0)
        return;
    const int row = editRow;
    editRow = -1;
    if (txtEdit.text != lstVwSettings[static_cast<std::size_t>(row)].Value)
        trapped(m_program.reporter(), place("txtEdit_KeyDown"), [&] { write(row, txtEdit.text); });
}

void FrmIndicators::txtEdit_Cancel() {
    editRow = -1;
}

void FrmIndicators::Escape() {
    if (editRow >= 0)
        txtEdit_Cancel();
    else if (changing())
        cmdChangeInd_Click(false);
    else
        cmdCancel_Click();
}

void FrmIndicators::cmdUndo_Click() {
    trapped(m_program.reporter(), place("cmdUndo_Click"), [&] {
        if (!m_undo)
            return;
        WriteIni(m_settings.IniFile, m_undo->section, m_undo->key, m_undo->old);
        m_undo.reset();
        cmdUndo.enabled = false;
        m_indicators.GetIndicatorSettings();
        LoadCurrentSettings(m_kind);
    });
}

void FrmIndicators::cmdType_Click() {
    DirtyFlagRoutine();
    trapped(m_program.reporter(), place("cmdType_Click"), [&] {
        const bool averages = m_kind == kAverages;
        cmdType.caption = averages ? kAverages : kIndicators;
        cmdChangeInd.caption = kChange;
        LoadCurrentSettings(averages ? kIndicators : kAverages);
    });
}

bool FrmIndicators::okSideOf(int x, int width) {
    return 2 * x < width;
}

void FrmIndicators::cmdChangeInd_Click(bool okSide) {
    trapped(m_program.reporter(), place("cmdChangeInd_Click"), [&] {
        if (changing()) {
            if (okSide && selected >= 0 && selected < static_cast<int>(lstVwSettings.size()))
                pick(lstVwSettings[static_cast<std::size_t>(selected)].Value);
            else
                showList();
            return;
        }
        lstVwSettings.clear();
        editRow = -1;
        const QString& file = m_settings.IniFile;
        const int count = GetNumIniKeys(file, kIndicatorList);
        for (int n = 1; n <= count; ++n) {
            const QString key = GetIniKey(file, kIndicatorList, n);
            lstVwSettings.push_back({key, GetIni(file, kIndicatorList, key), kIndicatorList, false, false, 0});
            if (lstVwSettings.back().Value == m_indicators.CurrentIndicator)
                selected = n - 1;
        }
        header = QStringLiteral("Dbl Click to Change");
        cmdChangeInd.caption = QStringLiteral("OK  |  Esc");
    });
}

void FrmIndicators::cmdChangeInd_MouseMove(bool okSide) {
    if (!changing())
        cmdChangeIndTip.clear();
    else
        cmdChangeIndTip = okSide ? QStringLiteral("OK to Save") : QStringLiteral("Cancel Change");
}

void FrmIndicators::showList() {
    cmdChangeInd.caption = kChange;
    cmdChangeIndTip.clear();
    LoadCurrentSettings(m_kind);
}

void FrmIndicators::pick(const QString& name) {
    DirtyFlagRoutine();
    m_indicators.SetCurrentIndicator(name);
    m_settings.CurrentIndicator = name;
    WriteIni(m_settings.IniFile, kSettings, kCurrentIndicator, name);
    showIndicator();
    cmdType.caption = kAverages;
    m_kind = kIndicators;
    showList();
}

void FrmIndicators::DirtyFlagRoutine() {
    trapped(m_program.reporter(), place("DirtyFlagRoutine"), [&] {
        if (!DirtyFlag)
            return;
        const Answer answer = CntrMsgBox(m_program.prompt(), owner,
                                         QStringLiteral("Editting for the last Indicator has not been saved...\n"
                                                        "Do you want to save the changes?"),
                                         Buttons::YesNoDefaultNo, QStringLiteral("Changes Not Saved"));
        DirtyFlag = false;
        if (answer == Answer::No)
            ResetValues();
    });
}

void FrmIndicators::ResetValues() {
    trapped(m_program.reporter(), place("ResetValues"), [&] {
        ProfileFile profile = ProfileFile::read(m_settings.IniFile);
        for (const Section& section : m_opened)
            for (const auto& [key, value] : section.values) profile.setValue(section.name, key, value);
        profile.setValue(kSettings, kCurrentIndicator, m_openedIndicator);
        profile.write(m_settings.IniFile, QStringLiteral("ResetValues"));
    });
    m_undo.reset();
    cmdUndo.enabled = false;
    m_indicators.SetCurrentIndicator(m_openedIndicator);
    m_settings.CurrentIndicator = m_openedIndicator;
    m_indicators.GetIndicatorSettings();
    showIndicator();
    if (!changing())
        LoadCurrentSettings(m_kind);
}

void FrmIndicators::cmdSave_Click() {
    if (unload)
        unload();
}

void FrmIndicators::cmdCancel_Click() {
    ResetValues();
    if (unload)
        unload();
}

void FrmIndicators::Form_Unload() {
    m_indicators.SaveIndicatorSettings();
}

}  // namespace ostravel
