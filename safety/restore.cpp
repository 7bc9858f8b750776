#include "safety/restore.h"

#include <QCoreApplication>
#include <QDir>
#include <QScopedValueRollback>

#include "context/program.h"
#include "runtime/trap.h"
#include "safety/backup_drives.h"
#include "safety/restore_database.h"

namespace ostravel {

namespace {

const QString kRestorePlace = QStringLiteral("(Form) FRM_RESTORE::Sub CMD_RESTORE_Click");

}  // namespace

Restore::Restore(Program& program) : m_program(program) {}

void Restore::Form_Load() {
    Huffman.Huffman_Progress = [this](std::int16_t value) { Huffman_Progress(value); };
    Label3Visible = false;
    ProgressBar1Visible = false;
    Drive1 = kStartDrive;
    Drive1_Change();
}

void Restore::Drive1_Change() {
    Dir1 = openDrive(m_program.prompt(), Drive1);
    Dir1_Change();
}

void Restore::Dir1_Change() {
    if (!folderAccessible(Dir1)) {
        m_program.prompt().message(QStringLiteral("Folder Cannot be Accessed ..."), Buttons::OK, Icon::None,
                                   QStringLiteral("Drive not Accessed ..."));
        Drive1 = kStartDrive;
        Dir1 = openDrive(m_program.prompt(), Drive1);
    }
    File1 = Dir1;
}

void Restore::File1_Click(const QString& FileName) {
    Label1 = QDir(File1).filePath(FileName);
}

void Restore::CMD_RESTORE_Click() {
    if (m_busy)
        return;
    if (Label1.isEmpty()) {
        m_program.prompt().message(QStringLiteral("Select Backup File Path and then Click Restore Button..."),
                                   Buttons::OK, Icon::None, QStringLiteral("Select Path ..."));
        return;
    }
    const QScopedValueRollback<bool> running(m_busy, true);
    Label3Visible = true;
    ProgressBar1Visible = true;
    if (changed)
        changed();

    const bool done =
        trapped(m_program.reporter(), kRestorePlace, [&] { restoreDatabase(m_program.store(), Huffman, Label1); });
    if (done) {
        // The frame's lists and the overview are filled again from the restored data.
        m_program.frame().MDIForm_Load();
        if (restored)
            restored();
    }

    ProgressBar1 = 0;
    m_busy = false;
    if (unload)
        unload();
}

void Restore::Huffman_Progress(std::int16_t value) {
    Label3 = kUncompressing;
    ProgressBar1 = value;
    if (ProgressBar1 == 100)
        Label3 = kRestoring;
    if (changed)
        changed();
    // The screens repaint meanwhile; clicks and keys wait until the restore is done.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace ostravel
