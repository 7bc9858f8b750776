#include "ledger/ui/create_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "context/program.h"
#include "ledger/create.h"
#include "ledger/ui/ledger_screen.h"
#include "runtime/vbdate.h"
#include "widgets/control_binding.h"
#include "widgets/datepicker.h"
#include "widgets/flexgrid.h"
#include "widgets/help_panel.h"

namespace ostravel {

namespace {

constexpr int kGridHeightTwips = 3000;

}  // namespace

Create::Create(Program& program, QWidget* parent)
    : QDialog(parent), m_program(program), m_state(program.module<PortfolioWizard>()) {
    setObjectName(QStringLiteral("Create"));
    setWindowTitle(PortfolioWizard::kCaption);
    setModal(true);

    auto* Frame1 = new QGroupBox(QStringLiteral("Create Portfolio"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    m_Text1 = makeTextBox(QStringLiteral("Text1"), m_state.Text1, Frame1, false);
    m_Text1->setToolTip(QStringLiteral("Enter Portfolio Name"));
    m_cmddate = new QPushButton(Frame1);
    m_cmddate->setObjectName(QStringLiteral("cmddate"));
    m_cmddate->setAutoDefault(false);
    auto* fields = new QGridLayout(Frame1);
    fields->addWidget(new QLabel(QStringLiteral("Portfolio Name"), Frame1), 0, 0);
    fields->addWidget(m_Text1, 0, 1);
    fields->addWidget(new QLabel(QStringLiteral("Portfolio Start Date"), Frame1), 1, 0);
    fields->addWidget(m_cmddate, 1, 1);

    m_MSFlexGrid1 = new QTableWidget(this);
    m_MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    setUpFlexGrid(*m_MSFlexGrid1);
    m_MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectItems);
    m_MSFlexGrid1->setFixedHeight(twipsToPixels(kGridHeightTwips));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(addButton(QStringLiteral("cmdadd"), m_state.cmdadd, &PortfolioWizard::cmdadd_Click));
    buttons->addWidget(addButton(QStringLiteral("cmdupdate"), m_state.cmdupdate, &PortfolioWizard::cmdupdate_Click));
    buttons->addWidget(addButton(QStringLiteral("cmddelete"), m_state.cmddelete, &PortfolioWizard::cmddelete_Click));
    buttons->addWidget(addButton(QStringLiteral("cmdnext"), m_state.cmdnext, &PortfolioWizard::cmdnext_Click));
    buttons->addWidget(addButton(QStringLiteral("cmdhelp"), m_state.cmdhelp, &PortfolioWizard::cmdhelp_Click));
    buttons->addWidget(addButton(QStringLiteral("cmdclose"), m_state.cmdclose, &PortfolioWizard::cmdclose_Click));
    m_buttons.front().first->setDefault(true);

    m_helpArea = new HelpPanel(this, PortfolioWizard::kHelpExtraTwips, program.reporter(),
                               QStringLiteral("(Form) Create::Sub cmdhelp_Click"), PortfolioWizard::kHelpFile);

    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(Frame1);
    layout->addWidget(m_MSFlexGrid1);
    layout->addLayout(buttons);
    layout->addWidget(m_helpArea);

    m_DatePicker1 = new DatePicker(this);
    m_DatePicker1->setObjectName(QStringLiteral("DatePicker1"));

    connect(m_cmddate, &QPushButton::clicked, this, [this] { act(&PortfolioWizard::cmddate_Click); });
    connect(m_DatePicker1, &DatePicker::OK, this, [this](const QDate& date) {
        m_state.DatePicker1_OK(dateSerial(date));
        refresh();
    });
    connect(m_DatePicker1, &DatePicker::Cancel, this, [this] { act(&PortfolioWizard::DatePicker1_Cancel); });
    connect(m_MSFlexGrid1, &QTableWidget::cellClicked, this,
            [this](int r, int c) { cellChosen(r, c, &PortfolioWizard::MSFlexGrid1_Click); });
    connect(m_MSFlexGrid1, &QTableWidget::currentCellChanged, this, [this](int r, int c) {
        if (r >= 0 && c >= 0)
            cellChosen(r, c, &PortfolioWizard::MSFlexGrid1_Click);
    });
    connect(m_MSFlexGrid1, &QTableWidget::cellDoubleClicked, this,
            [this](int r, int c) { cellChosen(r, c, &PortfolioWizard::MSFlexGrid1_DblClick); });

    m_state.closeView = [view = QPointer<Create>(this)] {
        if (!view)
            return;
        view->m_unloaded = true;
        // The next screen may open at once: the frame shows the selection it starts from.
        view->m_program.frame().showChanges();
        view->done(QDialog::Rejected);
    };
    m_state.load();
    // The grid is as wide as its columns.
    refresh();
    m_MSFlexGrid1->setFixedWidth(m_MSFlexGrid1->horizontalHeader()->length() + 2 * m_MSFlexGrid1->frameWidth() + 20);
}

Create::~Create() {
    // A screen that goes without its Close takes its state with it.
    if (!m_unloaded && m_state.loaded) {
        m_state.closeView = nullptr;
        m_state.unload();
    }
}

QPushButton* Create::addButton(const QString& name, const Button& button, void (PortfolioWizard::*click)()) {
    auto* push = new QPushButton(button.caption, this);
    push->setObjectName(name);
    connect(push, &QPushButton::clicked, this, [this, click] { act(click); });
    m_buttons.append({push, &button});
    return push;
}

void Create::act(void (PortfolioWizard::*procedure)()) {
    (m_state.*procedure)();
    refresh();
    m_program.frame().showChanges();
}

void Create::cellChosen(int tableRow, int col, void (PortfolioWizard::*procedure)(int, int)) {
    // The table's rows start below the grid's heading row.
    (m_state.*procedure)(tableRow + 1, col);
    refresh();
}

void Create::refresh() {
    mirror(m_Text1, m_state.Text1);
    m_cmddate->setText(m_state.cmddate.caption);
    m_cmddate->setEnabled(m_state.cmddate.enabled);
    for (const auto& [push, button] : m_buttons) {
        push->setText(button->caption);
        push->setEnabled(button->enabled);
    }
    {
        const QSignalBlocker blocker(m_MSFlexGrid1);
        showFlexGrid(*m_MSFlexGrid1, m_state.MSFlexGrid1);
    }
    m_helpArea->mirror(m_state.helpShown);
    showDatePicker(m_DatePicker1, m_cmddate, m_state.DatePicker1Visible, m_state.DatePicker1Value);
    takeFocus(this, m_state.focus);
}

void Create::reject() {
    if (m_state.cmdclose.enabled)
        act(&PortfolioWizard::cmdclose_Click);
}

void Create::mousePressEvent(QMouseEvent* event) {
    m_state.Form_Click();
    refresh();
    QDialog::mousePressEvent(event);
}

}  // namespace ostravel
