#include "ledger/ui/frmsplit_view.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "context/program.h"
#include "ledger/frmsplit.h"

namespace ostravel {

namespace {

QComboBox* makeNumberList(const QString& name, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    return combo;
}

void mirror(QComboBox* combo, const ComboBox& box) {
    const QSignalBlocker blocker(combo);
    if (combo->count() != box.items.size()) {
        combo->clear();
        combo->addItems(box.items);
    }
    combo->setCurrentIndex(combo->findText(box.text));
}

}  // namespace

FrmSplitForm::FrmSplitForm(Program& program, QWidget* parent) : QDialog(parent), m_state(program.module<FrmSplit>()) {
    setObjectName(QStringLiteral("frmsplit"));
    setWindowTitle(FrmSplit::kCaption);
    setModal(true);
    m_state.load();

    m_Label2 = new QLabel(this);
    m_Label2->setObjectName(QStringLiteral("Label2"));
    m_Combo1 = makeNumberList(QStringLiteral("Combo1"), this);
    auto* Label1 = new QLabel(QStringLiteral("For"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    m_Combo2 = makeNumberList(QStringLiteral("Combo2"), this);
    auto* Label3 = new QLabel(QStringLiteral("Split"), this);
    Label3->setObjectName(QStringLiteral("Label3"));
    auto* sentence = new QHBoxLayout;
    for (QWidget* part : std::initializer_list<QWidget*>{m_Label2, m_Combo1, Label1, m_Combo2, Label3})
        sentence->addWidget(part);

    m_Command1 = new QPushButton(m_state.Command1.caption, this);
    m_Command1->setObjectName(QStringLiteral("Command1"));
    m_Command1->setDefault(true);
    m_cmdclose = new QPushButton(m_state.cmdclose.caption, this);
    m_cmdclose->setObjectName(QStringLiteral("cmdclose"));
    m_cmdclose->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_Command1);
    buttons->addWidget(m_cmdclose);

    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(sentence);
    layout->addLayout(buttons);

    m_state.closeView = [this] { accept(); };
    connect(m_Combo1, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { m_state.Combo1.text = text; });
    connect(m_Combo2, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { m_state.Combo2.text = text; });
    connect(m_Command1, &QPushButton::clicked, this, [this] {
        m_state.Command1_Click();
        if (m_state.loaded)
            refresh();
    });
    connect(m_cmdclose, &QPushButton::clicked, this, [this] { m_state.cmdclose_Click(); });
    refresh();
    m_Combo1->setFocus();
}

FrmSplitForm::~FrmSplitForm() {
    m_state.closeView = nullptr;
}

void FrmSplitForm::refresh() {
    m_Label2->setText(m_state.Label2.caption);
    mirror(m_Combo1, m_state.Combo1);
    mirror(m_Combo2, m_state.Combo2);
}

void FrmSplitForm::reject() {
    // Esc and the window's close button unload the screen, as Close does.
    m_state.closeView = nullptr;
    if (m_state.loaded)
        m_state.cmdclose_Click();
    QDialog::reject();
}

}  // namespace ostravel
