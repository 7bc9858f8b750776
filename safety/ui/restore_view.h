// The screen FRM_RESTORE, "Restore Database ....": drive, folder and file lists, the file
// chosen, "Restore", and the stage text and progress bar of the running restore. It mirrors
// Restore and forwards the user's actions to it.
#pragma once

#include <QWidget>

#include "safety/restore.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace ostravel {

class DriveList;
class FileList;
class FolderTree;
class Program;

class FRM_RESTORE : public QWidget {
    Q_OBJECT
public:
    explicit FRM_RESTORE(Program& program, QWidget* parent = nullptr);

    void refresh();

Q_SIGNALS:
    // The live database is the restored one now: the frame shows its data.
    void restored();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    Restore m_state;
    DriveList* m_Drive1;
    FolderTree* m_Dir1;
    FileList* m_File1;
    QLabel* m_Label1;
    QLabel* m_Label3;
    QProgressBar* m_ProgressBar1;
    QPushButton* m_CMD_RESTORE;
};

}  // namespace ostravel
