#include "ledger/ui/portfolioexplorer_view.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "context/program.h"
#include "ledger/portfolioexplorer.h"
#include "widgets/flexgrid.h"

namespace ostravel {

namespace {

// MSFlexGrid2 stands this far below the top of the form.
constexpr int kGrid2TopTwips = 4000;

QTableWidget* makeGrid(const QString& name, QWidget* parent) {
    auto* grid = new QTableWidget(parent);
    grid->setObjectName(name);
    setUpFlexGrid(*grid);
    return grid;
}

}  // namespace

PortfolioExplorerForm::PortfolioExplorerForm(Program& program, QWidget* parent)
    : QWidget(parent), m_program(program), m_state(program.module<PortfolioExplorer>()) {
    setObjectName(QStringLiteral("Portfolioexplorer"));
    setWindowTitle(QStringLiteral("Portfolio Explorer"));

    m_MSFlexGrid1 = makeGrid(QStringLiteral("MSFlexGrid1"), this);
    m_MSFlexGrid2 = makeGrid(QStringLiteral("MSFlexGrid2"), this);

    m_lbladvise = new QLabel(this);
    m_lbladvise->setObjectName(QStringLiteral("lbladvise"));
    // A label wraps its text within its width.
    m_lbladvise->setWordWrap(true);

    m_cmbequity = new QComboBox(this);
    m_cmbequity->setObjectName(QStringLiteral("cmbequity"));
    m_cmbequity->setEditable(true);
    m_cmbequity->setInsertPolicy(QComboBox::NoInsert);
    m_cmbequity->setMinimumContentsLength(14);
    m_cmbequity->setToolTip(QStringLiteral("Enter Ticket"));

    m_Command1 = addButton(QStringLiteral("Command1"), m_state.Command1.caption, m_state.Command1.toolTip);
    m_cmdadd = addButton(QStringLiteral("cmdadd"), m_state.cmdadd.caption, m_state.cmdadd.toolTip);
    m_cmdupdate = addButton(QStringLiteral("cmdupdate"), m_state.cmdupdate.caption, m_state.cmdupdate.toolTip);
    m_cmdcreate = addButton(QStringLiteral("cmdcreate"), m_state.cmdcreate.caption, m_state.cmdcreate.toolTip);

    m_Timer1 = new QTimer(this);
    m_Timer1->setObjectName(QStringLiteral("Timer1"));
    m_Timer1->setSingleShot(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_cmbequity);
    for (QPushButton* button : {m_Command1, m_cmdadd, m_cmdupdate, m_cmdcreate}) buttons->addWidget(button);
    buttons->addStretch();

    auto* layout = new QVBoxLayout(this);
    m_MSFlexGrid1->setFixedHeight(twipsToPixels(kGrid2TopTwips) - m_lbladvise->sizeHint().height() -
                                  2 * layout->spacing());
    layout->addWidget(m_MSFlexGrid1);
    layout->addWidget(m_lbladvise);
    layout->addWidget(m_MSFlexGrid2, 1);
    layout->addLayout(buttons);

    connect(m_MSFlexGrid1, &QTableWidget::cellClicked, this, [this](int row, int) { MSFlexGrid1_Click(row); });
    connect(m_MSFlexGrid1, &QTableWidget::cellDoubleClicked, this, [this](int row, int) {
        m_state.MSFlexGrid1_DblClick(row + 1);
        refreshFrame();
    });
    connect(m_cmbequity, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { m_state.cmbequity.text = text; });
    connect(m_Command1, &QPushButton::clicked, this, &PortfolioExplorerForm::Command1_Click);
    connect(m_cmdadd, &QPushButton::clicked, this, [this] {
        m_state.cmdadd_Click();
        refreshFrame();
    });
    connect(m_cmdupdate, &QPushButton::clicked, this, [this] {
        if (m_state.updateAllPrices)
            m_state.updateAllPrices();
        refreshFrame();
    });
    connect(m_cmdcreate, &QPushButton::clicked, this, [this] {
        m_state.cmdcreate_Click();
        refreshFrame();
    });
    connect(m_Timer1, &QTimer::timeout, this, [this] { m_state.Timer1_Timer(); });
    connect(&m_state, &PortfolioExplorer::changed, this, &PortfolioExplorerForm::refresh);
    refresh();
}

QPushButton* PortfolioExplorerForm::addButton(const QString& name, const QString& caption, const QString& toolTip) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    return button;
}

void PortfolioExplorerForm::refresh() {
    showFlexGrid(*m_MSFlexGrid1, m_state.MSFlexGrid1);
    showFlexGrid(*m_MSFlexGrid2, m_state.MSFlexGrid2);

    const QSignalBlocker blocker(m_cmbequity);
    m_cmbequity->clear();
    m_cmbequity->addItems(m_state.cmbequity.items);
    m_cmbequity->setEditText(m_state.cmbequity.text);

    // The line wraps within its width, but never between "Rs." and its figure.
    m_lbladvise->setText(
        QString(m_state.lbladvise.caption).replace(QStringLiteral("Rs. "), QStringLiteral("Rs.\u00A0")));
    m_lbladvise->setFixedWidth(twipsToPixels(m_state.lbladvise.width));
    m_lbladvise->setVisible(m_state.lbladvise.visible);
    if (!m_state.Timer1.enabled)
        m_Timer1->stop();

    m_Command1->setEnabled(m_state.Command1.enabled);
    m_cmdadd->setEnabled(m_state.cmdadd.enabled);
    m_cmdupdate->setEnabled(m_state.cmdupdate.enabled);
    m_cmdcreate->setEnabled(m_state.cmdcreate.enabled);
}

void PortfolioExplorerForm::MSFlexGrid1_Click(int tableRow) {
    // The table's rows start below the grid's heading row.
    m_state.MSFlexGrid1_Click(tableRow + 1);
    // Setting the interval again starts the count afresh, as a second click does.
    if (m_state.Timer1.enabled)
        m_Timer1->start(m_state.Timer1.interval);
    refreshFrame();
}

void PortfolioExplorerForm::Command1_Click() {
    if (m_state.Command1_Click() == PortfolioExplorer::AdviseStart::ChoosePortfolio) {
        if (auto* portfolio = window()->findChild<QComboBox*>(QStringLiteral("cmbportfolio")))
            portfolio->setFocus();
        return;
    }
    refreshFrame();
}

void PortfolioExplorerForm::refreshFrame() {
    m_program.frame().showChanges();
}

}  // namespace ostravel
