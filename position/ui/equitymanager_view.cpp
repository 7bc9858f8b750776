#include "position/ui/equitymanager_view.h"

#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPalette>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "context/program.h"
#include "position/equitymanager.h"
#include "position/equitymanager_actions.h"
#include "runtime/vbdate.h"
#include "widgets/control_binding.h"

namespace ostravel {

namespace {

const QString kDateFormat = QStringLiteral("dd/MM/yyyy");
constexpr int kAdviseFontSize = 18;

QLabel* caption(const QString& text, QWidget* parent) {
    return new QLabel(text, parent);
}

// The next-trade boxes show their figures on black: white for a figure only, red for a sell
// now, green for a buy now.
void darkBackground(QLineEdit* edit) {
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Base, Qt::black);
    edit->setPalette(palette);
}

QDateEdit* datePicker(const char* name, QWidget* parent) {
    auto* picker = new QDateEdit(parent);
    picker->setObjectName(QString::fromLatin1(name));
    picker->setCalendarPopup(true);
    picker->setDisplayFormat(kDateFormat);
    return picker;
}

}  // namespace

EquityManagerForm::EquityManagerForm(Program& program, QWidget* parent)
    : QWidget(parent),
      m_program(program),
      m_state(program.module<EquityManager>()),
      m_actions(program.module<EquityManagerActions>()) {
    setObjectName(QStringLiteral("equitymanager"));
    m_state.load();

    auto* positions = new QHBoxLayout;
    positions->addWidget(makeBeginning());
    positions->addWidget(makeCurrent());
    positions->addWidget(makeSettings());
    positions->addStretch();

    auto* work = new QHBoxLayout;
    work->addWidget(makeAdvice());
    work->addWidget(makeTradeHistory(), 1);

    auto* figures = new QVBoxLayout;
    figures->addLayout(positions);
    figures->addLayout(work);
    figures->addWidget(makeResults());
    figures->addStretch();

    // A simulation's narrative and the pages beside it stand to the right of the figures.
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(figures);
    layout->addWidget(makeSimulationPages(), 1);

    refresh();
}

EquityManagerForm::~EquityManagerForm() {
    m_state.unload();
}

QLineEdit* EquityManagerForm::box(const char* name, TextBox& state, QWidget* parent) {
    QLineEdit* edit = makeTextBox(QString::fromLatin1(name), state, parent, true);
    m_boxes.append({edit, &state});
    return edit;
}

QLineEdit* EquityManagerForm::figure(const char* name, TextBox& state, QWidget* parent) {
    // The figures of the positions and the advice are the program's to write: the user reads
    // and copies them, and Tab passes them by on its way to the settings and buttons.
    QLineEdit* edit = box(name, state, parent);
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::ClickFocus);
    return edit;
}

QLabel* EquityManagerForm::label(const char* name, Label& state, QWidget* parent) {
    auto* shown = new QLabel(parent);
    shown->setObjectName(QString::fromLatin1(name));
    m_labels.append({shown, &state});
    return shown;
}

QPushButton* EquityManagerForm::button(const char* name, const QString& text, QWidget* parent) {
    auto* pushButton = new QPushButton(text, parent);
    pushButton->setObjectName(QString::fromLatin1(name));
    return pushButton;
}

QGroupBox* EquityManagerForm::makeBeginning() {
    auto* Frame1 = new QGroupBox(QStringLiteral("Beginning Position"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new QGridLayout(Frame1);
    const std::pair<const char*, TextBox*> rows[] = {
        {"txtbegprice", &m_state.txtbegprice}, {"txtbegshare", &m_state.txtbegshare},
        {"txtbegcash", &m_state.txtbegcash},   {"txtbegstockvalue", &m_state.txtbegstockvalue},
        {"txtbegtotal", &m_state.txtbegtotal}, {"txtbegcps", &m_state.txtbegcps},
    };
    const QString captions[] = {QStringLiteral("Price"), QStringLiteral("Shares"),
                                QStringLiteral("Cash"),  QStringLiteral("Stock Value"),
                                QStringLiteral("Total"), QStringLiteral("Cost Per Share")};
    for (int i = 0; i < int(std::size(rows)); ++i) {
        grid->addWidget(caption(captions[i], Frame1), i, 0);
        grid->addWidget(figure(rows[i].first, *rows[i].second, Frame1), i, 1);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    return Frame1;
}

QGroupBox* EquityManagerForm::makeCurrent() {
    auto* Frame2_1 = new QGroupBox(QStringLiteral("Current Position Summary"), this);
    Frame2_1->setObjectName(QStringLiteral("Frame2_1"));
    auto* grid = new QGridLayout(Frame2_1);
    const std::pair<const char*, TextBox*> rows[] = {
        {"txtcurrprice", &m_state.txtcurrprice}, {"txtcurrshare", &m_state.txtcurrshare},
        {"txtcurrcash", &m_state.txtcurrcash},   {"txtcurrstockvalue", &m_state.txtcurrstockvalue},
        {"txtcurrtotal", &m_state.txtcurrtotal}, {"txtcurrcps", &m_state.txtcurrcps},
        {"txtcashper", &m_state.txtcashper},     {"txtsvper", &m_state.txtsvper},
        {"txtcashrisk", &m_state.txtcashrisk},
    };
    const QString captions[] = {QStringLiteral("Price"),
                                QStringLiteral("Shares"),
                                QStringLiteral("Cash"),
                                QStringLiteral("Stock Value"),
                                QStringLiteral("Total"),
                                QStringLiteral("Cost Per Share"),
                                QStringLiteral("% Increase in cash"),
                                QStringLiteral("% Increase in stock value"),
                                QStringLiteral("Percentage of cash at risk")};
    for (int i = 0; i < int(std::size(rows)); ++i) {
        grid->addWidget(caption(captions[i], Frame2_1), i, 0);
        grid->addWidget(figure(rows[i].first, *rows[i].second, Frame2_1), i, 1);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    return Frame2_1;
}

QGroupBox* EquityManagerForm::makeSettings() {
    m_Frame2_0 = new QGroupBox(QStringLiteral("Position Management Setting"), this);
    m_Frame2_0->setObjectName(QStringLiteral("Frame2_0"));
    auto* grid = new QGridLayout(m_Frame2_0);
    grid->addWidget(caption(QStringLiteral("Buy"), m_Frame2_0), 0, 1, Qt::AlignHCenter);
    grid->addWidget(caption(QStringLiteral("Sell"), m_Frame2_0), 0, 2, Qt::AlignHCenter);
    struct Row {
        QString caption;
        const char* buy;
        TextBox* buyBox;
        QString buyTip;
        const char* sell;
        TextBox* sellBox;
        QString sellTip;
    };
    const Row rows[] = {
        {QStringLiteral("Min Trade Amount"), "txtmtbuy", &m_state.txtmtbuy,
         QStringLiteral("Set Minimum buy Trade amount"), "txtmtsell", &m_state.txtmtsell,
         QStringLiteral("Set Minimum Sell Trade amount")},
        {QStringLiteral("Min. Share to Trade"), "txtmstradebuy", &m_state.txtmstradebuy,
         QStringLiteral("Set Minimum Share to Buy"), "txtmstradesell", &m_state.txtmstradesell,
         QStringLiteral("Set Minimum Share to Sell")},
        {QStringLiteral("Broker Commission (%)"), "txtfeebuy", &m_state.txtfeebuy,
         QStringLiteral("Enter The  Buy Broker Commission in %"), "txtfeesell", &m_state.txtfeesell,
         QStringLiteral("Enter The Sell Broker Commission in %")},
        {QStringLiteral("Resistance(Default 10%)"), "txtbuyres", &m_state.txtbuyres, QStringLiteral("Buy safe Margin"),
         "txtsellres", &m_state.txtsellres, QStringLiteral("Sell safe Margin")},
    };
    int line = 1;
    for (const Row& row : rows) {
        grid->addWidget(caption(row.caption, m_Frame2_0), line, 0);
        box(row.buy, *row.buyBox, m_Frame2_0)->setToolTip(row.buyTip);
        box(row.sell, *row.sellBox, m_Frame2_0)->setToolTip(row.sellTip);
        grid->addWidget(m_boxes.at(m_boxes.size() - 2).first, line, 1);
        grid->addWidget(m_boxes.last().first, line, 2);
        ++line;
    }
    grid->addWidget(caption(QStringLiteral("Beginning Cash"), m_Frame2_0), line, 0);
    grid->addWidget(box("txtbegincash", m_state.txtbegincash, m_Frame2_0), line, 1);
    m_Command6 = button("Command6", m_state.Command6.caption, m_Frame2_0);
    grid->addWidget(m_Command6, line + 1, 1, 1, 2);
    grid->setRowStretch(line + 2, 1);
    connect(m_Command6, &QPushButton::clicked, this, [this] {
        Command6_Click(m_program);
        refresh();
    });
    return m_Frame2_0;
}

QGroupBox* EquityManagerForm::makeAdvice() {
    auto* Frame3 = new QGroupBox(QStringLiteral("Current Trade Advise"), this);
    Frame3->setObjectName(QStringLiteral("Frame3"));

    m_lbladvise = new QLabel(Frame3);
    m_lbladvise->setObjectName(QStringLiteral("lbladvise"));
    auto* recommendation = new QHBoxLayout;
    recommendation->addWidget(caption(QStringLiteral("RECOMMENDATION :"), Frame3));
    recommendation->addWidget(m_lbladvise);
    recommendation->addStretch();

    // Frame4 holds the figures of the next trades; Recalculate and What if show it.
    m_Frame4 = new QWidget(Frame3);
    m_Frame4->setObjectName(QStringLiteral("Frame4"));
    auto* grid = new QGridLayout(m_Frame4);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(label("Label17_2", m_state.Label17_2, m_Frame4), 0, 0, 1, 6);
    struct Side {
        QString heading, qty, price;
        const char* sharesName;
        TextBox* shares;
        const char* priceName;
        TextBox* priceBox;
        const char* amountName;
        TextBox* amount;
    };
    const Side sides[] = {
        {QStringLiteral("Next Sell"), QStringLiteral("Next Sell Qty"), QStringLiteral("Next Sell Price"), "txtnextsell",
         &m_state.txtnextsell, "txtnextsellshare", &m_state.txtnextsellshare, "txtnextsellamount",
         &m_state.txtnextsellamount},
        {QStringLiteral("Next Buy"), QStringLiteral("Next Buy Qty"), QStringLiteral("Next Buy Price"), "txtnextbuy",
         &m_state.txtnextbuy, "txtnextbuyshare", &m_state.txtnextbuyshare, "txtnextbuyamount",
         &m_state.txtnextbuyamount},
    };
    int line = 1;
    for (const Side& side : sides) {
        grid->addWidget(caption(side.qty, m_Frame4), line, 1);
        grid->addWidget(caption(side.price, m_Frame4), line, 3);
        ++line;
        grid->addWidget(caption(side.heading, m_Frame4), line, 0);
        for (QLineEdit* edit :
             {figure(side.sharesName, *side.shares, m_Frame4), figure(side.priceName, *side.priceBox, m_Frame4),
              figure(side.amountName, *side.amount, m_Frame4)})
            darkBackground(edit);
        const auto count = m_boxes.size();
        grid->addWidget(m_boxes.at(count - 3).first, line, 1);
        grid->addWidget(caption(QStringLiteral("Share@ Rs."), m_Frame4), line, 2);
        grid->addWidget(m_boxes.at(count - 2).first, line, 3);
        grid->addWidget(caption(QStringLiteral("For Rs."), m_Frame4), line, 4);
        grid->addWidget(m_boxes.at(count - 1).first, line, 5);
        ++line;
    }

    auto* counts = new QHBoxLayout;
    counts->addWidget(caption(QStringLiteral("Sell advise:"), Frame3));
    counts->addWidget(label("lblsell", m_state.lblsell, Frame3));
    counts->addSpacing(20);
    counts->addWidget(caption(QStringLiteral("Buy advise:"), Frame3));
    counts->addWidget(label("lblbuy", m_state.lblbuy, Frame3));
    counts->addStretch();

    m_cmdaddtrade = button("cmdaddtrade", m_state.cmdaddtrade.caption, Frame3);
    m_Command5 = button("Command5", m_state.Command5.caption, Frame3);
    m_cmdwhatif = button("cmdwhatif", QStringLiteral("What if"), Frame3);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_cmdaddtrade);
    buttons->addWidget(m_Command5);
    buttons->addWidget(m_cmdwhatif);
    buttons->addStretch();

    auto* layout = new QVBoxLayout(Frame3);
    layout->addLayout(recommendation);
    layout->addWidget(m_Frame4);
    layout->addLayout(counts);
    layout->addLayout(buttons);
    layout->addStretch();

    connect(m_Command5, &QPushButton::clicked, this, &EquityManagerForm::Command5_Click);
    connect(m_cmdaddtrade, &QPushButton::clicked, this, &EquityManagerForm::cmdaddtrade_Click);
    connect(m_cmdwhatif, &QPushButton::clicked, this, [this] {
        m_actions.cmdwhatif_Click();
        refresh();
        refreshFrame();
    });
    return Frame3;
}

QGroupBox* EquityManagerForm::makeTradeHistory() {
    auto* Frame5 = new QGroupBox(QStringLiteral("Trade History"), this);
    Frame5->setObjectName(QStringLiteral("Frame5"));
    m_dtbdate = datePicker("dtbdate", Frame5);
    m_dtedate = datePicker("dtedate", Frame5);
    m_Combo1 = makeComboBox(QStringLiteral("Combo1"), m_state.Combo1, Frame5);
    m_Command3 = button("Command3", m_state.Command3.caption, Frame5);

    auto* grid = new QGridLayout(Frame5);
    grid->addWidget(caption(QStringLiteral("Select Begin Date"), Frame5), 0, 0);
    grid->addWidget(m_dtbdate, 0, 1);
    grid->addWidget(caption(QStringLiteral("Select End date"), Frame5), 1, 0);
    grid->addWidget(m_dtedate, 1, 1);
    grid->addWidget(caption(QStringLiteral("Select Daily/Weekly/Monthly"), Frame5), 2, 0);
    grid->addWidget(m_Combo1, 2, 1);
    grid->addWidget(m_Command3, 3, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(4, 1);

    connect(m_dtbdate, &QDateEdit::dateChanged, this,
            [this](const QDate& date) { m_state.dtbdate = dateSerial(date); });
    connect(m_dtedate, &QDateEdit::dateChanged, this,
            [this](const QDate& date) { m_state.dtedate = dateSerial(date); });
    // The binding has stored the text by the time this runs.
    connect(m_Combo1, &QComboBox::currentTextChanged, this, [this] {
        m_state.Combo1_Click();
        refresh();
    });
    connect(m_Command3, &QPushButton::clicked, this, [this] {
        m_actions.Command3_Click();
        refresh();
        refreshFrame();
    });
    return Frame5;
}

QTabWidget* EquityManagerForm::makeSimulationPages() {
    m_simulationPages = new QTabWidget(this);
    m_simulationPages->setObjectName(QStringLiteral("simulationPages"));
    QLabel* lblsimulation = label("lblsimulation", m_state.lblsimulation, m_simulationPages);
    lblsimulation->setWordWrap(true);
    lblsimulation->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblsimulation->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblsimulation->setMargin(8);
    m_simulationPages->addTab(lblsimulation, QStringLiteral("Narrative"));
    return m_simulationPages;
}

void EquityManagerForm::addSimulationPage(QWidget* page, const QString& title) {
    m_simulationPages->addTab(page, title);
}

QWidget* EquityManagerForm::makeResults() {
    auto* results = new QGroupBox(this);
    results->setObjectName(QStringLiteral("Results"));
    auto* grid = new QGridLayout(results);
    // A caption's "&&" shows as one "&".
    grid->addWidget(caption(QStringLiteral("Ostravel Result"), results), 0, 0);
    grid->addWidget(label("lblpcaprofit", m_state.lblpcaprofit, results), 0, 1);
    grid->addWidget(caption(QStringLiteral("Profit in Rs: "), results), 1, 0);
    grid->addWidget(label("lblpcaresult", m_state.lblpcaresult, results), 1, 1);
    grid->addWidget(caption(QStringLiteral("Profit % :"), results), 2, 0);
    grid->addWidget(label("lblpcaresultper", m_state.lblpcaresultper, results), 2, 1);
    grid->addWidget(caption(QStringLiteral("Buy  & Hold Result"), results), 0, 3);
    grid->addWidget(caption(QStringLiteral("Profit In Rs :"), results), 1, 3);
    grid->addWidget(label("lblbhprofit", m_state.lblbhprofit, results), 1, 4);
    grid->addWidget(caption(QStringLiteral("Buy & Hold %:"), results), 2, 3);
    grid->addWidget(label("lblbhpersentage", m_state.lblbhpersentage, results), 2, 4);
    grid->setColumnMinimumWidth(2, 40);
    grid->setColumnStretch(5, 1);
    return results;
}

void EquityManagerForm::refresh() {
    setWindowTitle(m_state.caption);
    for (const auto& [edit, state] : m_boxes) mirror(edit, *state);
    for (const auto& [shown, state] : m_labels) {
        shown->setText(state->caption);
        shown->setVisible(state->visible);
        shown->setEnabled(state->enabled);
    }

    m_lbladvise->setText(m_state.lbladvise.caption);
    QFont font = m_lbladvise->font();
    font.setFamily(m_state.lbladvise.fontName);
    font.setPointSize(kAdviseFontSize);
    font.setBold(true);
    m_lbladvise->setFont(font);

    m_Frame2_0->setVisible(m_state.Frame2_0Visible);
    m_Frame4->setVisible(m_state.Frame4Visible);
    m_Command6->setEnabled(m_state.Command6.enabled);
    m_cmdaddtrade->setEnabled(m_state.cmdaddtrade.enabled);
    m_Command5->setEnabled(m_state.Command5.enabled);
    m_Command3->setEnabled(m_state.Command3.enabled);
    // The pages of a simulation show once the screen is arranged for one.
    m_simulationPages->setVisible(m_state.Frame2_1BesideFrame1);

    const QSignalBlocker b1(m_dtbdate), b2(m_dtedate), b3(m_Combo1);
    m_dtbdate->setDate(serialToDate(m_state.dtbdate));
    m_dtedate->setDate(serialToDate(m_state.dtedate));
    mirror(m_Combo1, m_state.Combo1);
}

bool EquityManagerForm::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::ParentChange:
            // Form_Activate runs each time the screen comes to the front among the frame's
            // children, once the activation itself is over.
            if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
                connect(sub, &QMdiSubWindow::aboutToActivate, this,
                        [this] { QTimer::singleShot(0, this, &EquityManagerForm::Form_Activate); });
            break;
        case QEvent::WindowActivate:
            // Back from a dialog (a trade, a setting) that may have advised anew.
            refresh();
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

void EquityManagerForm::Form_Activate() {
    m_actions.Form_Activate();
    refresh();
    refreshFrame();
}

void EquityManagerForm::Command5_Click() {
    const EquityManagerActions::Recalculated result = m_actions.Command5_Click();
    refresh();
    refreshFrame();
    if (result == EquityManagerActions::Recalculated::SelectEquity)
        focusFrameCode();
}

void EquityManagerForm::cmdaddtrade_Click() {
    const EquityManagerActions::TradeStart result = m_actions.cmdaddtrade_Click();
    refresh();
    refreshFrame();
    if (result == EquityManagerActions::TradeStart::NotInPortfolio)
        focusFrameCode();
}

void EquityManagerForm::focusFrameCode() {
    if (auto* code = window()->findChild<QComboBox*>(QStringLiteral("cmbequity")))
        code->setFocus();
}

void EquityManagerForm::refreshFrame() {
    m_program.frame().showChanges();
}

}  // namespace ostravel
