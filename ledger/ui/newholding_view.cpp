#include "ledger/ui/newholding_view.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "context/program.h"
#include "ledger/newholding.h"
#include "ledger/ui/ledger_screen.h"
#include "runtime/keyfilters.h"
#include "runtime/vbdate.h"
#include "widgets/control_binding.h"
#include "widgets/datepicker.h"
#include "widgets/flexgrid.h"
#include "widgets/help_panel.h"
#include "widgets/key_filter.h"

namespace ostravel {

namespace {

constexpr int kCompanyWidthTwips = 5000;

}  // namespace

NewHoldingForm::NewHoldingForm(Program& program, QWidget* parent)
    : QDialog(parent), m_program(program), m_state(program.module<NewHolding>()) {
    setObjectName(QStringLiteral("Newholding"));
    setWindowTitle(NewHolding::kCaption);
    setModal(true);

    auto* exchange = new QGroupBox(QStringLiteral("Select Exchange"), this);
    exchange->setObjectName(QStringLiteral("Frame1"));
    exchange->setToolTip(QStringLiteral("Select the NSE or BSE Stock"));
    auto* exchangeLayout = new QHBoxLayout(exchange);
    const char* exchanges[] = {"BSE", "NSE"};
    for (int i = 0; i < 2; ++i) {
        auto* option = new QRadioButton(QString::fromLatin1(exchanges[i]), exchange);
        option->setObjectName(QStringLiteral("optnsebse_%1").arg(i));
        connect(option, &QRadioButton::clicked, this, [this, i] {
            m_state.optnsebse_Click(i);
            refresh();
            m_program.frame().showChanges();
        });
        exchangeLayout->addWidget(option);
        m_optnsebse[static_cast<std::size_t>(i)] = option;
    }

    auto* holdingType = new QGroupBox(QStringLiteral("Holding Type"), this);
    holdingType->setObjectName(QStringLiteral("Frame2"));
    m_Option1 = new QRadioButton(holdingType);
    m_Option1->setObjectName(QStringLiteral("Option1"));
    connect(m_Option1, &QRadioButton::toggled, this, [this](bool on) { m_state.Option1 = on; });
    auto* typeLayout = new QHBoxLayout(holdingType);
    typeLayout->addWidget(m_Option1);
    typeLayout->addWidget(new QLabel(QStringLiteral("New holding"), holdingType), 1);

    auto* base = new QGroupBox(QStringLiteral("Base details"), this);
    base->setObjectName(QStringLiteral("Frame3"));
    m_Combo1 = makeListBox(QStringLiteral("Combo1"), base);
    m_Combo1->setToolTip(QStringLiteral("select The equity"));
    m_Combo1->setMinimumWidth(twipsToPixels(kCompanyWidthTwips));
    m_cmbport = makeListBox(QStringLiteral("cmbport"), base);
    m_cmbport->setToolTip(QStringLiteral("Select The Portfolio"));
    m_Command1 = new QPushButton(base);
    m_Command1->setObjectName(QStringLiteral("Command1"));
    m_Command1->setToolTip(QStringLiteral("Select date equity Bought"));
    m_Command1->setAutoDefault(false);
    m_txtequitysymbol = new QLineEdit(base);
    m_txtequitysymbol->setObjectName(QStringLiteral("txtequitysymbol"));
    KeyFilter::install(m_txtequitysymbol, testtext);
    auto* fields = new QGridLayout(base);
    fields->addWidget(m_Combo1, 0, 0, 1, 2);
    fields->addWidget(new QLabel(QStringLiteral("Ticker"), base), 1, 0);
    fields->addWidget(m_txtequitysymbol, 1, 1);
    fields->addWidget(new QLabel(QStringLiteral("Portfolio"), base), 2, 0);
    fields->addWidget(m_cmbport, 2, 1);
    fields->addWidget(new QLabel(QStringLiteral("Start Date"), base), 3, 0);
    fields->addWidget(m_Command1, 3, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton* cmdok = addButton(QStringLiteral("cmdok"), m_state.cmdok, &NewHolding::cmdok_Click);
    cmdok->setToolTip(QStringLiteral("Confirm the Creation"));
    cmdok->setDefault(true);
    buttons->addWidget(cmdok);
    buttons->addWidget(addButton(QStringLiteral("cmdclose"), m_state.cmdclose, &NewHolding::cmdclose_Click));
    buttons->addWidget(addButton(QStringLiteral("cmdnew"), m_state.cmdnew, &NewHolding::cmdnew_Click));
    buttons->addWidget(addButton(QStringLiteral("cmdhelp"), m_state.cmdhelp, &NewHolding::cmdhelp_Click));

    m_helpArea = new HelpPanel(this, NewHolding::kHelpExtraTwips, program.reporter(),
                               QStringLiteral("(Form) NewHoldingForm::Sub cmdhelp_Click"), NewHolding::kHelpFile);

    auto* top = new QHBoxLayout;
    top->addWidget(exchange);
    top->addWidget(holdingType);
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(top);
    layout->addWidget(base);
    layout->addLayout(buttons);
    layout->addWidget(m_helpArea);

    m_DatePicker1 = new DatePicker(this);
    m_DatePicker1->setObjectName(QStringLiteral("DatePicker1"));

    connect(m_Combo1, &QComboBox::activated, this, [this](int index) {
        m_state.Combo1.text = m_Combo1->itemText(index);
        act(&NewHolding::Combo1_Click);
    });
    connect(m_cmbport, &QComboBox::activated, this, [this](int index) {
        m_state.cmbport.text = m_cmbport->itemText(index);
        act(&NewHolding::cmbport_Click);
    });
    connect(m_txtequitysymbol, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_state.txtequitysymbol.text = text;
        act(&NewHolding::txtequitysymbol_Change);
    });
    connect(m_Command1, &QPushButton::clicked, this, [this] { act(&NewHolding::Command1_Click); });
    connect(m_DatePicker1, &DatePicker::OK, this, [this](const QDate& date) {
        m_state.DatePicker1_OK(dateSerial(date));
        refresh();
    });
    connect(m_DatePicker1, &DatePicker::Cancel, this, [this] { act(&NewHolding::DatePicker1_Cancel); });

    m_state.closeView = [view = QPointer<NewHoldingForm>(this)] {
        if (!view)
            return;
        view->m_unloaded = true;
        // The next screen may open at once: the frame shows the selection it starts from.
        view->m_program.frame().showChanges();
        view->done(QDialog::Rejected);
    };
    // Filling the company list takes a moment.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_state.load();
    QApplication::restoreOverrideCursor();
    refresh();
    m_program.frame().showChanges();
}

NewHoldingForm::~NewHoldingForm() {
    if (!m_unloaded && m_state.loaded) {
        m_state.closeView = nullptr;
        m_state.unload();
    }
}

QPushButton* NewHoldingForm::addButton(const QString& name, const Button& button, void (NewHolding::*click)()) {
    auto* push = new QPushButton(button.caption, this);
    push->setObjectName(name);
    connect(push, &QPushButton::clicked, this, [this, click] { act(click); });
    m_buttons.append({push, &button});
    return push;
}

void NewHoldingForm::act(void (NewHolding::*procedure)()) {
    (m_state.*procedure)();
    refresh();
    m_program.frame().showChanges();
}

void NewHoldingForm::refresh() {
    for (std::size_t i = 0; i < m_optnsebse.size(); ++i) {
        const QSignalBlocker blocker(m_optnsebse[i]);
        m_optnsebse[i]->setChecked(m_state.optnsebse[i]);
    }
    {
        const QSignalBlocker blocker(m_Option1);
        m_Option1->setChecked(m_state.Option1);
    }
    mirrorList(m_Combo1, m_state.Combo1);
    mirrorList(m_cmbport, m_state.cmbport);
    m_Command1->setText(m_state.Command1.caption);
    mirror(m_txtequitysymbol, m_state.txtequitysymbol);
    for (const auto& [push, button] : m_buttons) {
        push->setText(button->caption);
        push->setEnabled(button->enabled);
    }
    m_helpArea->mirror(m_state.helpShown);
    showDatePicker(m_DatePicker1, m_Command1, m_state.DatePicker1Visible, m_state.DatePicker1Value);
    takeFocus(this, m_state.focus);
}

void NewHoldingForm::reject() {
    act(&NewHolding::cmdclose_Click);
}

void NewHoldingForm::mousePressEvent(QMouseEvent* event) {
    m_state.Form_Click();
    refresh();
    QDialog::mousePressEvent(event);
}

}  // namespace ostravel
