#include "safety/ui/restore_view.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "safety/ui/drive_views.h"
#include "widgets/close_form.h"

namespace ostravel {

FRM_RESTORE::FRM_RESTORE(Program& program, QWidget* parent)
    : QWidget(parent),
      m_state(program),
      m_Drive1(new DriveList(this)),
      m_Dir1(new FolderTree(this)),
      m_File1(new FileList(this)),
      m_Label1(new QLabel(this)),
      m_Label3(new QLabel(this)),
      m_ProgressBar1(new QProgressBar(this)),
      m_CMD_RESTORE(new QPushButton(QStringLiteral("Restore"), this)) {
    setObjectName(QStringLiteral("FRM_RESTORE"));
    setWindowTitle(Restore::kCaption);
    setProperty("keepsSize", true);

    m_Drive1->setObjectName(QStringLiteral("Drive1"));
    m_Dir1->setObjectName(QStringLiteral("Dir1"));
    m_File1->setObjectName(QStringLiteral("File1"));
    m_Label1->setObjectName(QStringLiteral("Label1"));
    m_Label1->setFrameShape(QFrame::Panel);
    m_Label1->setFrameShadow(QFrame::Sunken);
    m_Label3->setObjectName(QStringLiteral("Label3"));
    m_ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    m_ProgressBar1->setRange(0, 100);
    keepRoomWhenHidden(m_Label3);
    keepRoomWhenHidden(m_ProgressBar1);
    m_CMD_RESTORE->setObjectName(QStringLiteral("CMD_RESTORE"));

    auto* grid = new QGridLayout(this);
    grid->addWidget(m_Drive1, 0, 0);
    grid->addWidget(m_Dir1, 1, 0);
    grid->addWidget(m_File1, 0, 1, 2, 1);
    grid->addWidget(m_Label1, 2, 0, 1, 2);
    grid->addWidget(m_Label3, 3, 0, 1, 2);
    grid->addWidget(m_ProgressBar1, 4, 0, 1, 2);
    grid->addWidget(m_CMD_RESTORE, 5, 1, Qt::AlignRight);
    grid->setRowStretch(1, 1);

    m_state.unload = [this] { closeForm(this); };
    m_state.changed = [this] { refresh(); };
    m_state.restored = [this] { Q_EMIT restored(); };
    connect(m_Drive1, &DriveList::driveChosen, this, [this](const QString& drive) {
        m_state.Drive1 = drive;
        m_state.Drive1_Change();
        refresh();
    });
    connect(m_Dir1, &FolderTree::folderChosen, this, [this](const QString& folder) {
        m_state.Dir1 = folder;
        m_state.Dir1_Change();
        refresh();
    });
    connect(m_File1, &FileList::fileChosen, this, [this](const QString& fileName) {
        m_state.File1_Click(fileName);
        refresh();
    });
    connect(m_CMD_RESTORE, &QPushButton::clicked, this, [this] { m_state.CMD_RESTORE_Click(); });

    m_state.Form_Load();
    refresh();
    resize(600, 420);
}

void FRM_RESTORE::refresh() {
    m_Drive1->showDrive(m_state.Drive1);
    m_Dir1->showFolder(m_state.Drive1, m_state.Dir1);
    m_File1->showFolder(m_state.File1);
    m_Label1->setText(m_state.Label1);
    m_Label3->setText(m_state.Label3);
    m_Label3->setVisible(m_state.Label3Visible);
    m_ProgressBar1->setValue(m_state.ProgressBar1);
    m_ProgressBar1->setVisible(m_state.ProgressBar1Visible);
    for (QWidget* control : {static_cast<QWidget*>(m_Drive1), static_cast<QWidget*>(m_Dir1),
                             static_cast<QWidget*>(m_File1), static_cast<QWidget*>(m_CMD_RESTORE)})
        control->setEnabled(!m_state.busy());
}

void FRM_RESTORE::closeEvent(QCloseEvent* event) {
    // A running restore is finished first; the form then closes itself.
    if (m_state.busy())
        event->ignore();
    else
        event->accept();
}

}  // namespace ostravel
