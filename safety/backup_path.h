// The screen frm_sel_path, "Select Path ...": a drive and a folder list, and the button that
// hands the folder shown to FRM_BACK_UP.
#pragma once

#include <QString>
#include <functional>

namespace ostravel {

class BackUp;
class Prompt;

class SelPath {
public:
    static inline const QString kCaption = QStringLiteral("Select Path ...");
    static inline const QString kLabelCaption = QStringLiteral("Current Selected Path ...");

    SelPath(Prompt& prompt, BackUp& backUp);

    QString Drive1;
    QString Dir1;    // the folder shown
    QString Label1;  // the caption and, below it, the folder

    std::function<void()> unload;

    void Form_Load();
    // Run after Drive1 and Dir1 were set, as their change events are.
    void Drive1_Change();
    void Dir1_Change();
    // Writes the folder shown to Text2 of FRM_BACK_UP.
    void SelectButton_Click();
    // Escape closes the form.
    void Form_KeyDown(int KeyCode);

private:
    Prompt& m_prompt;
    BackUp& m_backUp;
};

}  // namespace ostravel
