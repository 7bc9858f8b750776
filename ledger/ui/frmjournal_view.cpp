#include "ledger/ui/frmjournal_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include "context/program.h"
#include "ledger/frmjournal.h"
#include "ledger/ui/ledger_screen.h"

namespace ostravel {

FrmJournalForm::FrmJournalForm(Program& program, QWidget* parent)
    : QDialog(parent), m_program(program), m_state(program.module<FrmJournal>()) {
    setObjectName(QStringLiteral("frmjournal"));
    setWindowTitle(FrmJournal::kCaption);
    setModal(true);
    m_state.load();

    m_Combo1 = makeListBox(QStringLiteral("Combo1"), this);
    m_Combo2 = makeListBox(QStringLiteral("Combo2"), this);
    auto* filters = new QHBoxLayout;
    filters->addWidget(new QLabel(QStringLiteral("Portfolio"), this));
    filters->addWidget(m_Combo1);
    filters->addWidget(new QLabel(QStringLiteral("Symbol"), this));
    filters->addWidget(m_Combo2);
    filters->addStretch();

    m_lstchanges = new QTreeWidget(this);
    m_lstchanges->setObjectName(QStringLiteral("lstchanges"));
    m_lstchanges->setHeaderLabels(FrmJournal::kHeadings);
    m_lstchanges->setRootIsDecorated(true);
    m_lstchanges->setUniformRowHeights(true);

    m_cmdrestore = new QPushButton(m_state.cmdrestore.caption, this);
    m_cmdrestore->setObjectName(QStringLiteral("cmdrestore"));
    m_cmdclose = new QPushButton(m_state.cmdclose.caption, this);
    m_cmdclose->setObjectName(QStringLiteral("cmdclose"));
    m_cmdclose->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdrestore);
    buttons->addWidget(m_cmdclose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filters);
    layout->addWidget(m_lstchanges, 1);
    layout->addLayout(buttons);
    resize(900, 560);

    m_state.closeView = [this] { accept(); };
    for (auto [combo, box] : {std::pair{m_Combo1, &m_state.Combo1}, std::pair{m_Combo2, &m_state.Combo2}})
        connect(combo, &QComboBox::currentTextChanged, this, [this, box = box](const QString& text) {
            box->text = text;
            m_state.Combo_Click();
            refresh();
        });
    connect(m_lstchanges, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        while (item && item->parent()) item = item->parent();
        m_state.select(item ? m_lstchanges->indexOfTopLevelItem(item) : -1);
        m_cmdrestore->setEnabled(m_state.cmdrestore.enabled);
    });
    connect(m_cmdrestore, &QPushButton::clicked, this, [this] {
        m_state.cmdrestore_Click();
        refresh();
        m_program.frame().showChanges();
    });
    connect(m_cmdclose, &QPushButton::clicked, this, [this] { m_state.cmdclose_Click(); });
    refresh();
}

FrmJournalForm::~FrmJournalForm() {
    m_state.closeView = nullptr;
}

void FrmJournalForm::refresh() {
    mirrorList(m_Combo1, m_state.Combo1);
    mirrorList(m_Combo2, m_state.Combo2);
    const QSignalBlocker blocker(m_lstchanges);
    m_lstchanges->clear();
    for (const FrmJournal::ActionLine& line : m_state.lines) {
        auto* item = new QTreeWidgetItem(m_lstchanges, line.cells);
        // The rows of an action stand under "What", below its summary.
        for (const QString& row : line.rows)
            new QTreeWidgetItem(item, {QString(), QString(), QString(), QString(), row});
    }
    // Every column as wide as its heading and its texts.
    for (int col = 0; col < m_lstchanges->columnCount(); ++col) m_lstchanges->resizeColumnToContents(col);
    if (m_state.selected >= 0)
        m_lstchanges->setCurrentItem(m_lstchanges->topLevelItem(m_state.selected));
    m_cmdrestore->setEnabled(m_state.cmdrestore.enabled);
}

void FrmJournalForm::reject() {
    // Esc and the window's close button unload the screen, as Close does.
    m_state.closeView = nullptr;
    if (m_state.loaded)
        m_state.cmdclose_Click();
    QDialog::reject();
}

}  // namespace ostravel
