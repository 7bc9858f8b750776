#include "safety/backup.h"

#include <QCoreApplication>
#include <QDir>
#include <QScopedValueRollback>

#include "context/program.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "safety/backup_snapshot.h"

namespace ostravel {

namespace {

const QString kBackUpPlace = QStringLiteral("(Form) FRM_BACK_UP::Sub but_gen_rpt_Click");

}  // namespace

BackUp::BackUp(Program& program) : m_program(program) {}

void BackUp::Form_Load() {
    Huffman.Huffman_Progress = [this](std::int16_t value) { Huffman_Progress(value); };
    Label3Visible = false;
    ProgressBar1Visible = false;
}

void BackUp::but_gen_rpt_Click() {
    if (m_busy)
        return;
    if (Text2.isEmpty()) {
        m_program.prompt().message(QStringLiteral("Select Backup File Path and then Click Create Backup Button..."),
                                   Buttons::OK, Icon::None, QStringLiteral("Select Backup Path ..."));
        return;
    }
    const QScopedValueRollback<bool> running(m_busy, true);
    Label3Visible = true;
    const QString destination = QDir(Text2).filePath(kFileName);
    ProgressBar1Visible = true;
    if (changed)
        changed();

    trapped(m_program.reporter(), kBackUpPlace, [&] {
        const DatabaseSnapshot snapshot(m_program.store().database(), appFile(kLiveDatabase));
        Huffman.EncodeFile(snapshot.path(), destination, m_program.prompt());
    });

    ProgressBar1 = 0;
    m_busy = false;
    if (unload)
        unload();
}

void BackUp::Form_KeyDown(int KeyCode) {
    if (KeyCode == kEscapeKey && !m_busy && unload)
        unload();
}

void BackUp::Huffman_Progress(std::int16_t value) {
    Label3 = kCompressing;
    ProgressBar1 = value;
    if (ProgressBar1 == 100)
        Label3 = kSaving;
    if (changed)
        changed();
    // The screens repaint meanwhile; clicks and keys wait until the backup is done.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace ostravel
