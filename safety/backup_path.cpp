#include "safety/backup_path.h"

#include "safety/backup.h"
#include "safety/backup_drives.h"

namespace ostravel {

SelPath::SelPath(Prompt& prompt, BackUp& backUp) : m_prompt(prompt), m_backUp(backUp) {}

void SelPath::Form_Load() {
    Drive1 = kStartDrive;
    Drive1_Change();
}

void SelPath::Drive1_Change() {
    Dir1 = openDrive(m_prompt, Drive1);
    Dir1_Change();
}

void SelPath::Dir1_Change() {
    Label1 = kLabelCaption + QLatin1Char('\n') + Dir1;
}

void SelPath::SelectButton_Click() {
    m_backUp.Text2 = Dir1;
    if (unload)
        unload();
}

void SelPath::Form_KeyDown(int KeyCode) {
    if (KeyCode == BackUp::kEscapeKey && unload)
        unload();
}

}  // namespace ostravel
