// frmIndicators, "Indicators & Options": the current indicator's parameters, or the price
// averages', listed from Chart.INI and edited in place, each accepted edit written at once; the
// choice of the current indicator; and the way back to the values the dialog opened with.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "context/controls.h"

class QObject;

namespace ostravel {

class MIdicators;
class Program;
struct ChartSettings;

class FrmIndicators {
public:
    static inline const QString kIndicators = QStringLiteral("Indicators");
    static inline const QString kAverages = QStringLiteral("Averages");
    static inline const QString kChange = QStringLiteral("C&hange");

    // A row of lstVwSettings: a key of the file and its value. A colour row's value cell is
    // painted in its colour; a blank row stands between the averages for looks.
    struct Row {
        QString Parameter;
        QString Value;
        QString section;
        bool colour = false;
        bool blank = false;
        std::int32_t Colour = 0;  // a colour row's value as a colour
    };

    explicit FrmIndicators(Program& program);

    // What the dialog shows.
    QString Frame1;
    QString header;  // above the list: what a double click does
    std::vector<Row> lstVwSettings;
    int selected = 0;  // the list's current row
    Button cmdType{kAverages};
    Button cmdChangeInd{kChange};
    Button cmdUndo{QStringLiteral("&Undo Edit"), false};
    QString cmdChangeIndTip;
    TextBox txtEdit;
    int editRow = -1;  // the row txtEdit stands over; -1 when it is hidden
    bool DirtyFlag = false;

    const QObject* owner = nullptr;  // the dialog's window, which its own dialogs centre on
    std::function<void()> unload;    // the widget closes itself

    void Form_Load();
    // Lists the parameters of "Indicators" (the current one's section) or "Averages".
    void LoadCurrentSettings(const QString& kind);
    // A double click or Enter on a row: picks an indicator in the list of indicators, opens the
    // colour dialog on a colour row, toggles True and False, else opens the editor.
    void lstVwSettings_DblClick(int row);
    // A character typed on a row opens the editor with it.
    void lstVwSettings_KeyPress(int row, QChar key);
    // The editor's keys: a number's characters on a number's row, any on a True/False row.
    int txtEditKey(int keyAscii) const;
    // Typing in a True/False cell: "T", "1" and "-1" read True, "F" and "0" False.
    void txtEdit_Change(const QString& text);
    void txtEdit_Accept();
    void txtEdit_Cancel();
    // Esc: closes the editor, else leaves the list of indicators, else Cancel & Exit.
    void Escape();

    void cmdUndo_Click();
    void cmdType_Click();
    // While the list of indicators shows, the button's left half is OK and its right half Esc.
    static bool okSideOf(int x, int width);
    void cmdChangeInd_Click(bool okSide);
    void cmdChangeInd_MouseMove(bool okSide);
    void cmdSave_Click();
    void cmdCancel_Click();
    // Whichever way the dialog goes, what stands in the indicator and the averages reaches the file.
    void Form_Unload();

    void DirtyFlagRoutine();
    // The values in force when the dialog opened, and its indicator, put back.
    void ResetValues();

private:
    struct Edit {
        QString section;
        QString key;
        QString old;
    };
    struct Section {
        QString name;
        std::vector<std::pair<QString, QString>> values;
    };

    bool trueFalseRow(int row) const;
    static Row makeRow(const QString& section, const QString& key, const QString& value);
    bool changing() const { return cmdChangeInd.caption != kChange; }
    void write(int row, const QString& value);
    void pick(const QString& name);
    void showIndicator();
    void showList();

    Program& m_program;
    ChartSettings& m_settings;
    MIdicators& m_indicators;
    QString m_kind = kIndicators;  // the list in work when the list of indicators isn't up
    QString m_openedIndicator;
    std::vector<Section> m_opened;  // the sections as the dialog found them
    std::optional<Edit> m_undo;
};

}  // namespace ostravel
