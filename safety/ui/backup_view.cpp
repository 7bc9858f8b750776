#include "safety/ui/backup_view.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include "context/program.h"
#include "safety/ui/backup_path_view.h"
#include "widgets/close_form.h"

namespace ostravel {

FRM_BACK_UP::FRM_BACK_UP(Program& program, QWidget* parent)
    : QWidget(parent),
      m_program(program),
      m_state(program),
      m_Text2(new QLineEdit(this)),
      m_Command1(new QPushButton(QStringLiteral("..."), this)),
      m_but_gen_rpt(new QPushButton(QStringLiteral("Back UP"), this)),
      m_Label3(new QLabel(this)),
      m_ProgressBar1(new QProgressBar(this)) {
    setObjectName(QStringLiteral("FRM_BACK_UP"));
    setWindowTitle(BackUp::kCaption);
    setProperty("keepsSize", true);

    auto* caption = new QLabel(QStringLiteral("Backup Path :"), this);
    caption->setObjectName(QStringLiteral("Label1"));
    m_Text2->setObjectName(QStringLiteral("Text2"));
    m_Text2->setMinimumWidth(320);
    m_Command1->setObjectName(QStringLiteral("Command1"));
    m_Command1->setToolTip(SelPath::kCaption);
    m_but_gen_rpt->setObjectName(QStringLiteral("but_gen_rpt"));
    m_Label3->setObjectName(QStringLiteral("Label3"));
    m_ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    m_ProgressBar1->setRange(0, 100);
    keepRoomWhenHidden(m_Label3);
    keepRoomWhenHidden(m_ProgressBar1);

    auto* grid = new QGridLayout(this);
    grid->addWidget(caption, 0, 0);
    grid->addWidget(m_Text2, 0, 1);
    grid->addWidget(m_Command1, 0, 2);
    grid->addWidget(m_Label3, 1, 0, 1, 3);
    grid->addWidget(m_ProgressBar1, 2, 0, 1, 3);
    grid->addWidget(m_but_gen_rpt, 3, 2);
    grid->setRowStretch(4, 1);

    m_state.unload = [this] { closeForm(this); };
    m_state.changed = [this] { refresh(); };
    connect(m_Text2, &QLineEdit::textEdited, this, [this](const QString& text) { m_state.Text2 = text; });
    connect(m_Command1, &QPushButton::clicked, this, &FRM_BACK_UP::Command1_Click);
    connect(m_but_gen_rpt, &QPushButton::clicked, this, [this] { m_state.but_gen_rpt_Click(); });

    m_state.Form_Load();
    refresh();
    resize(sizeHint().expandedTo(QSize(520, 160)));
}

void FRM_BACK_UP::refresh() {
    if (m_Text2->text() != m_state.Text2)
        m_Text2->setText(m_state.Text2);
    m_Label3->setText(m_state.Label3);
    m_Label3->setVisible(m_state.Label3Visible);
    m_ProgressBar1->setValue(m_state.ProgressBar1);
    m_ProgressBar1->setVisible(m_state.ProgressBar1Visible);
    for (QWidget* control :
         {static_cast<QWidget*>(m_Text2), static_cast<QWidget*>(m_Command1), static_cast<QWidget*>(m_but_gen_rpt)})
        control->setEnabled(!m_state.busy());
}

void FRM_BACK_UP::Command1_Click() {
    frm_sel_path dialog(m_program.prompt(), m_state, this);
    dialog.exec();
    refresh();
}

void FRM_BACK_UP::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        m_state.Form_KeyDown(BackUp::kEscapeKey);
        return;
    }
    QWidget::keyPressEvent(event);
}

void FRM_BACK_UP::closeEvent(QCloseEvent* event) {
    // A running backup is finished first; the form then closes itself.
    if (m_state.busy())
        event->ignore();
    else
        event->accept();
}

}  // namespace ostravel
