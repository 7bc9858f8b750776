#include "charts/ui/frmindicators_view.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "charts/frmindicators.h"
#include "charts/picture_box.h"
#include "charts/ui/dialog_controls.h"

namespace ostravel {

namespace {

bool isEnter(const QKeyEvent* key) {
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

}  // namespace

FrmIndicatorsForm::FrmIndicatorsForm(Program& program, QWidget* parent)
    : QDialog(parent), m_state(std::make_unique<FrmIndicators>(program)) {
    setObjectName(QStringLiteral("frmIndicators"));
    setWindowTitle(QStringLiteral("Indicators & Options"));
    setModal(true);

    m_Frame1 = new QGroupBox(this);
    m_Frame1->setObjectName(QStringLiteral("Frame1"));
    m_header = new QLabel(m_Frame1);
    m_list = new QTreeWidget(m_Frame1);
    m_list->setObjectName(QStringLiteral("lstVwSettings"));
    m_list->setColumnCount(2);
    m_list->setHeaderLabels({QStringLiteral("Parameter"), QStringLiteral("Value")});
    m_list->setRootIsDecorated(false);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->header()->setSectionResizeMode(QHeaderView::Stretch);
    m_list->installEventFilter(this);
    m_list->setMinimumSize(320, 260);
    m_txtEdit = new QLineEdit(m_list->viewport());
    m_txtEdit->setObjectName(QStringLiteral("txtEdit"));
    m_txtEdit->installEventFilter(this);
    m_txtEdit->hide();
    connect(m_txtEdit, &QLineEdit::textEdited, this,
            [this](const QString& text) { act([this, text] { m_state->txtEdit_Change(text); }); });
    connect(m_list, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        const int row = m_list->indexOfTopLevelItem(item);
        act([this, row] { m_state->lstVwSettings_DblClick(row); });
    });
    connect(m_list, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item) { m_state->selected = m_list->indexOfTopLevelItem(item); });
    auto* frameLayout = new QVBoxLayout(m_Frame1);
    frameLayout->addWidget(m_header);
    frameLayout->addWidget(m_list);

    m_cmdType = makeDialogButton("cmdType", QString(), this);
    m_cmdChangeInd = makeDialogButton("cmdChangeInd", QString(), this);
    m_cmdChangeInd->setMouseTracking(true);
    m_cmdChangeInd->installEventFilter(this);
    m_cmdUndo = makeDialogButton("cmdUndo", QString(), this);
    auto* cmdSave = makeDialogButton("cmdSave", QStringLiteral("Save && E&xit"), this);
    auto* cmdCancel = makeDialogButton("cmdCancel", QStringLiteral("&Cancel && Exit"), this);
    connect(m_cmdType, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdType_Click(); }); });
    connect(m_cmdChangeInd, &QPushButton::clicked, this, [this] {
        const bool ok = m_changeX < 0 || FrmIndicators::okSideOf(m_changeX, m_cmdChangeInd->width());
        m_changeX = -1;
        act([this, ok] { m_state->cmdChangeInd_Click(ok); });
    });
    connect(m_cmdUndo, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdUndo_Click(); }); });
    connect(cmdSave, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdSave_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdCancel_Click(); }); });

    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {m_cmdType, m_cmdChangeInd, m_cmdUndo, cmdSave, cmdCancel}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_Frame1);
    layout->addLayout(buttons);

    loadInto(this, *m_state);
    refresh();
    m_list->setFocus();
}

FrmIndicatorsForm::~FrmIndicatorsForm() {
    m_list->removeEventFilter(this);
    m_txtEdit->removeEventFilter(this);
    m_cmdChangeInd->removeEventFilter(this);
    m_state->unload = nullptr;
}

int FrmIndicatorsForm::currentRow() const {
    return m_list->indexOfTopLevelItem(m_list->currentItem());
}

void FrmIndicatorsForm::refresh() {
    const FrmIndicators& s = *m_state;
    m_Frame1->setTitle(s.Frame1);
    m_header->setText(s.header);
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const FrmIndicators::Row& row : s.lstVwSettings) {
            auto* item = new QTreeWidgetItem(m_list, {row.Parameter, row.Value});
            if (row.blank)
                item->setFlags(Qt::NoItemFlags);
            if (row.colour) {
                // picColor: the value cell painted in the colour, its number readable on it.
                const QColor colour = programColour(row.Colour);
                item->setBackground(1, colour);
                item->setForeground(1, colour.lightness() < 128 ? Qt::white : Qt::black);
            }
        }
        m_list->setCurrentItem(m_list->topLevelItem(s.selected));
    }
    if (s.editRow >= 0) {
        // The editor stands over the value cell of its row.
        const QRect cell = m_list->visualRect(m_list->model()->index(s.editRow, 1));
        m_txtEdit->setGeometry(cell);
        if (m_txtEdit->text() != s.txtEdit.text)
            m_txtEdit->setText(s.txtEdit.text);
        if (!m_txtEdit->isVisible()) {
            m_txtEdit->show();
            m_txtEdit->setFocus();
        }
    } else if (m_txtEdit->isVisible()) {
        m_txtEdit->hide();
        m_list->setFocus();
    }
    m_cmdType->setText(s.cmdType.caption);
    m_cmdChangeInd->setText(s.cmdChangeInd.caption);
    m_cmdChangeInd->setToolTip(s.cmdChangeIndTip);
    m_cmdUndo->setText(s.cmdUndo.caption);
    m_cmdUndo->setEnabled(s.cmdUndo.enabled);
}

void FrmIndicatorsForm::act(const std::function<void()>& procedure) {
    procedure();
    refresh();
}

void FrmIndicatorsForm::done(int result) {
    // Whichever way the dialog goes, its indicator and averages are saved once.
    if (!m_unloaded) {
        m_unloaded = true;
        m_state->Form_Unload();
    }
    QDialog::done(result);
}

void FrmIndicatorsForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        act([this] { m_state->Escape(); });
        return;
    }
    QDialog::keyPressEvent(event);
}

bool FrmIndicatorsForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_cmdChangeInd) {
        if (event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonPress) {
            const int x = static_cast<int>(static_cast<QMouseEvent*>(event)->position().x());
            m_changeX = x;
            m_state->cmdChangeInd_MouseMove(FrmIndicators::okSideOf(x, m_cmdChangeInd->width()));
            m_cmdChangeInd->setToolTip(m_state->cmdChangeIndTip);
        }
        return QDialog::eventFilter(watched, event);
    }
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (watched == m_txtEdit) {
        if (isEnter(key)) {
            act([this] { m_state->txtEdit_Accept(); });
            return true;
        }
        if (key->key() == Qt::Key_Escape) {
            act([this] { m_state->txtEdit_Cancel(); });
            return true;
        }
        return key->text().size() == 1 && m_state->txtEditKey(key->text().front().unicode()) == 0;
    }
    if (watched == m_list && !isEnter(key) && key->text().size() == 1 && key->text().front().isPrint()) {
        const int row = currentRow();
        const QChar typed = key->text().front();
        act([this, row, typed] { m_state->lstVwSettings_KeyPress(row, typed); });
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace ostravel
