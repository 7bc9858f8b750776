// The screen frm_sel_path, "Select Path ...": a drive list, a folder tree and the folder
// chosen, with the button that hands it to FRM_BACK_UP. It mirrors SelPath.
#pragma once

#include <QDialog>

#include "safety/backup_path.h"

class QLabel;
class QPushButton;

namespace ostravel {

class BackUp;
class DriveList;
class FolderTree;
class Prompt;

class frm_sel_path : public QDialog {
    Q_OBJECT
public:
    frm_sel_path(Prompt& prompt, BackUp& backUp, QWidget* parent = nullptr);

    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    SelPath m_state;
    DriveList* m_Drive1;
    FolderTree* m_Dir1;
    QLabel* m_Label1;
    QPushButton* m_SelectButton;
};

}  // namespace ostravel
