#include "ledger/ui/addremovecash_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "context/program.h"
#include "ledger/addremovecash.h"
#include "widgets/control_binding.h"
#include "widgets/flexgrid.h"

namespace ostravel {

namespace {

constexpr int kLabel3WidthTwips = 5000;

QRadioButton* makeOption(const QString& name, const OptionButton& option, QWidget* parent) {
    auto* button = new QRadioButton(option.caption, parent);
    button->setObjectName(name);
    return button;
}

void mirror(QRadioButton* button, const OptionButton& option) {
    button->setChecked(option.value);
    button->setEnabled(option.enabled);
}

}  // namespace

AddRemoveCashForm::AddRemoveCashForm(Program& program, QWidget* parent)
    : QDialog(parent), m_state(program.module<AddRemoveCash>()) {
    setObjectName(QStringLiteral("addremovecash"));
    setModal(true);
    m_state.load();

    m_Combo1 = new QComboBox(this);
    m_Combo1->setObjectName(QStringLiteral("Combo1"));
    m_Combo1->setMinimumContentsLength(16);
    m_Combo2 = makeComboBox(QStringLiteral("Combo2"), m_state.Combo2, this);
    m_Combo2->setMinimumContentsLength(16);
    m_Label3 = new QLabel(this);
    m_Label3->setObjectName(QStringLiteral("Label3"));
    m_Label3->setWordWrap(true);
    m_Label3->setFixedWidth(twipsToPixels(kLabel3WidthTwips));
    // Room for the two lines of the balance, so that the boxes below don't move when it shows.
    m_Label3->setMinimumHeight(2 * m_Label3->fontMetrics().lineSpacing());
    m_txtamount = makeTextBox(QStringLiteral("txtamount"), m_state.txtamount, this, true);

    auto* fields = new QGridLayout;
    const auto caption = [&](const char* text, QWidget* buddy) {
        auto* label = new QLabel(QString::fromUtf8(text), this);
        label->setBuddy(buddy);
        return label;
    };
    fields->addWidget(caption("Select Portfolio", m_Combo1), 0, 0);
    fields->addWidget(m_Combo1, 0, 1);
    fields->addWidget(caption("Select Equity", m_Combo2), 1, 0);
    fields->addWidget(m_Combo2, 1, 1);
    fields->addWidget(m_Label3, 2, 0, 1, 2);
    fields->addWidget(caption("Enter Amount", m_txtamount), 3, 0);
    fields->addWidget(m_txtamount, 3, 1);

    auto* options = new QGroupBox(QStringLiteral("Options"), this);
    options->setObjectName(QStringLiteral("Frame1"));
    m_Option1 = makeOption(QStringLiteral("Option1"), m_state.Option1, options);
    m_Option2 = makeOption(QStringLiteral("Option2"), m_state.Option2, options);
    m_Option3 = makeOption(QStringLiteral("Option3"), m_state.Option3, options);
    auto* optionLayout = new QVBoxLayout(options);
    for (QRadioButton* option : {m_Option1, m_Option2, m_Option3}) optionLayout->addWidget(option);

    m_cmdupdate = new QPushButton(this);
    m_cmdupdate->setObjectName(QStringLiteral("cmdupdate"));
    m_cmdupdate->setDefault(true);
    m_cmdclose = new QPushButton(m_state.cmdclose.caption, this);
    m_cmdclose->setObjectName(QStringLiteral("cmdclose"));
    m_cmdclose->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdupdate);
    buttons->addWidget(m_cmdclose);

    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(fields);
    layout->addWidget(options);
    layout->addLayout(buttons);

    setTabOrder(m_Combo1, m_Combo2);
    setTabOrder(m_Combo2, m_txtamount);
    setTabOrder(m_txtamount, m_cmdupdate);
    setTabOrder(m_cmdupdate, m_cmdclose);

    m_state.closeView = [this] { accept(); };
    connect(m_Combo1, &QComboBox::activated, this, [this](int index) {
        act([&] {
            m_state.Combo1.text = m_Combo1->itemText(index);
            m_state.Combo1_Click();
        });
    });
    connect(m_Combo2, &QComboBox::activated, this, [this](int index) {
        act([&] {
            m_state.Combo2.text = m_Combo2->itemText(index);
            m_state.Combo2_Click();
        });
    });
    connect(m_Combo2->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        act([&] {
            m_state.Combo2.text = text;
            m_state.Combo2_Change();
        });
    });
    connect(m_cmdupdate, &QPushButton::clicked, this, [this] { act([&] { m_state.cmdupdate_Click(); }); });
    connect(m_cmdclose, &QPushButton::clicked, this, [this] { act([&] { m_state.cmdclose_Click(); }); });
    refresh();
    m_Combo2->setFocus();
}

AddRemoveCashForm::~AddRemoveCashForm() {
    m_state.closeView = nullptr;
}

template <class Action>
void AddRemoveCashForm::act(Action&& action) {
    action();
    if (m_state.loaded)
        refresh();
}

void AddRemoveCashForm::refresh() {
    setWindowTitle(m_state.caption);
    {
        const QSignalBlocker blocker(m_Combo1);
        QStringList shown;
        for (int i = 0; i < m_Combo1->count(); ++i) shown << m_Combo1->itemText(i);
        if (shown != m_state.Combo1.items) {
            m_Combo1->clear();
            m_Combo1->addItems(m_state.Combo1.items);
        }
        m_Combo1->setCurrentIndex(m_Combo1->findText(m_state.Combo1.text));
    }
    {
        const QSignalBlocker blocker(m_Combo2);
        mirror(m_Combo2, m_state.Combo2);
    }
    m_Label3->setText(m_state.Label3.caption);
    mirror(m_txtamount, m_state.txtamount);
    mirror(m_Option1, m_state.Option1);
    mirror(m_Option2, m_state.Option2);
    mirror(m_Option3, m_state.Option3);
    m_cmdupdate->setText(m_state.cmdupdate.caption);
}

void AddRemoveCashForm::reject() {
    // Esc and the window's close button unload the screen, as Close does.
    m_state.closeView = nullptr;
    if (m_state.loaded)
        m_state.cmdclose_Click();
    QDialog::reject();
}

}  // namespace ostravel
