#include "safety/ui/backup_path_view.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "safety/backup.h"
#include "safety/ui/drive_views.h"

namespace ostravel {

frm_sel_path::frm_sel_path(Prompt& prompt, BackUp& backUp, QWidget* parent)
    : QDialog(parent),
      m_state(prompt, backUp),
      m_Drive1(new DriveList(this)),
      m_Dir1(new FolderTree(this)),
      m_Label1(new QLabel(this)),
      m_SelectButton(new QPushButton(QStringLiteral("Select"), this)) {
    setObjectName(QStringLiteral("frm_sel_path"));
    setWindowTitle(SelPath::kCaption);

    m_Drive1->setObjectName(QStringLiteral("Drive1"));
    m_Dir1->setObjectName(QStringLiteral("Dir1"));
    m_Label1->setObjectName(QStringLiteral("Label1"));
    m_Label1->setWordWrap(true);
    m_SelectButton->setObjectName(QStringLiteral("SelectButton"));
    m_SelectButton->setAutoDefault(false);

    auto* column = new QVBoxLayout(this);
    column->addWidget(m_Drive1);
    column->addWidget(m_Dir1, 1);
    column->addWidget(m_Label1);
    column->addWidget(m_SelectButton, 0, Qt::AlignRight);

    m_state.unload = [this] { accept(); };
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
    connect(m_SelectButton, &QPushButton::clicked, this, [this] { m_state.SelectButton_Click(); });

    m_state.Form_Load();
    refresh();
    resize(360, 420);
}

void frm_sel_path::refresh() {
    m_Drive1->showDrive(m_state.Drive1);
    m_Dir1->showFolder(m_state.Drive1, m_state.Dir1);
    m_Label1->setText(m_state.Label1);
}

void frm_sel_path::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        m_state.Form_KeyDown(BackUp::kEscapeKey);
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace ostravel
