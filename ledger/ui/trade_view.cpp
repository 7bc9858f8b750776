#include "ledger/ui/trade_view.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "context/program.h"
#include "ledger/trade.h"
#include "runtime/reporterror.h"
#include "runtime/vbdate.h"
#include "widgets/control_binding.h"
#include "widgets/datepicker.h"
#include "widgets/flexgrid.h"
#include "widgets/help_panel.h"

namespace ostravel {

namespace {

constexpr int kGridHeightTwips = 3000;
const QString kHelpFile = QStringLiteral("help/TradingScreenHelp.rtf");

}  // namespace

TradeForm::TradeForm(Program& program, QWidget* parent)
    : QDialog(parent), m_program(program), m_state(program.module<Trade>()) {
    setObjectName(QStringLiteral("trade"));
    setModal(true);
    m_state.load();

    m_txtequity = new QLineEdit(this);
    m_txtequity->setObjectName(QStringLiteral("txtequity"));
    m_txtequity->setReadOnly(true);
    m_txtequity->setFocusPolicy(Qt::NoFocus);
    QFont bold = m_txtequity->font();
    bold.setBold(true);
    m_txtequity->setFont(bold);

    m_txtshare = makeTextBox(QStringLiteral("txtshare"), m_state.txtshare, this, true);
    m_txtprice = makeTextBox(QStringLiteral("txtprice"), m_state.txtprice, this, true);
    m_txtcommision = makeTextBox(QStringLiteral("txtcommision"), m_state.txtcommision, this, true);
    m_txtprice->installEventFilter(this);

    m_cmbmethod = new QComboBox(this);
    m_cmbmethod->setObjectName(QStringLiteral("cmbmethod"));
    m_cmddate = addButton(QStringLiteral("cmddate"), QString());

    auto* boxes = new QGridLayout;
    const auto caption = [&](const char* text, QWidget* buddy) {
        auto* label = new QLabel(QString::fromUtf8(text), this);
        label->setBuddy(buddy);
        return label;
    };
    boxes->addWidget(m_txtequity, 0, 0, 1, 2);
    boxes->addWidget(caption("Shares:", m_txtshare), 1, 0);
    boxes->addWidget(m_txtshare, 1, 1);
    boxes->addWidget(caption("Price:", m_txtprice), 2, 0);
    boxes->addWidget(m_txtprice, 2, 1);
    boxes->addWidget(caption("Commision:", m_txtcommision), 3, 0);
    boxes->addWidget(m_txtcommision, 3, 1);
    boxes->addWidget(caption("Method", m_cmbmethod), 1, 2);
    boxes->addWidget(m_cmbmethod, 1, 3);
    boxes->addWidget(caption("Trade Date:", m_cmddate), 2, 2);
    boxes->addWidget(m_cmddate, 2, 3);

    m_cmdadd = addButton(QStringLiteral("cmdadd"), m_state.cmdadd.caption);
    m_cmdadd->setDefault(true);
    m_cmddelete = addButton(QStringLiteral("cmddelete"), m_state.cmddelete.caption);
    m_cmddelete->setToolTip(QStringLiteral("Delete The Selected trade"));
    m_cmdclose = addButton(QStringLiteral("cmdclose"), m_state.cmdclose.caption);
    m_cmdhelp = addButton(QStringLiteral("cmdhelp"), QString());
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {m_cmdadd, m_cmddelete, m_cmdclose, m_cmdhelp}) buttons->addWidget(button);
    buttons->addStretch();

    m_MSFlexGrid1 = new QTableWidget(this);
    m_MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    setUpFlexGrid(*m_MSFlexGrid1);
    m_MSFlexGrid1->setMinimumHeight(twipsToPixels(kGridHeightTwips));

    m_helpArea = new HelpPanel(this, Trade::kHelpExtraTwips, program.reporter(),
                               QStringLiteral("(Form) TradeForm::Sub cmdhelp_Click"), kHelpFile);

    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(boxes);
    layout->addLayout(buttons);
    layout->addWidget(m_MSFlexGrid1);
    layout->addWidget(m_helpArea);

    // The calendar lies over the form, below the date button, until a date is picked.
    m_DatePicker1 = new DatePicker(this);
    m_DatePicker1->setObjectName(QStringLiteral("DatePicker1"));

    setTabOrder(m_txtshare, m_txtprice);
    setTabOrder(m_txtprice, m_txtcommision);
    setTabOrder(m_txtcommision, m_cmbmethod);
    setTabOrder(m_cmbmethod, m_cmddate);
    setTabOrder(m_cmddate, m_cmdadd);
    setTabOrder(m_cmdadd, m_cmddelete);
    setTabOrder(m_cmddelete, m_cmdclose);
    setTabOrder(m_cmdclose, m_cmdhelp);
    setTabOrder(m_cmdhelp, m_MSFlexGrid1);

    m_state.closeView = [this] { accept(); };
    connect(m_cmbmethod, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { m_state.cmbmethod.text = text; });
    connect(m_MSFlexGrid1, &QTableWidget::currentCellChanged, this, [this](int row, int col) {
        // The table's rows start below the grid's heading row.
        m_state.row = row + 1;
        m_state.col = col;
    });
    connect(m_MSFlexGrid1, &QTableWidget::cellClicked, this,
            [this](int row, int col) { act([&] { m_state.MSFlexGrid1_Click(row + 1, col); }); });
    connect(m_cmdadd, &QPushButton::clicked, this, [this] { act([&] { m_state.cmdadd_Click(); }); });
    connect(m_cmddelete, &QPushButton::clicked, this, [this] { act([&] { m_state.cmddelete_Click(); }); });
    connect(m_cmdclose, &QPushButton::clicked, this, [this] { act([&] { m_state.cmdclose_Click(); }); });
    connect(m_cmdhelp, &QPushButton::clicked, this, [this] { act([&] { m_state.cmdhelp_Click(); }); });
    connect(m_cmddate, &QPushButton::clicked, this, [this] { act([&] { m_state.cmddate_Click(); }); });
    connect(m_DatePicker1, &DatePicker::OK, this,
            [this](const QDate& date) { act([&] { m_state.DatePicker1_OK(dateSerial(date)); }); });
    connect(m_DatePicker1, &DatePicker::Cancel, this, [this] { act([&] { m_state.DatePicker1_Cancel(); }); });
    refresh();
    m_txtshare->setFocus();
}

TradeForm::~TradeForm() {
    m_state.closeView = nullptr;
}

QPushButton* TradeForm::addButton(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

template <class Action>
void TradeForm::act(Action&& action) {
    action();
    // An action that unloaded the state has closed this screen already.
    if (m_state.loaded)
        refresh();
}

void TradeForm::refresh() {
    setWindowTitle(m_state.caption);
    m_txtequity->setText(m_state.txtequity.text);
    for (auto [edit, box] : {std::pair{m_txtshare, &m_state.txtshare}, std::pair{m_txtprice, &m_state.txtprice},
                             std::pair{m_txtcommision, &m_state.txtcommision}})
        mirror(edit, *box);
    {
        const QSignalBlocker blocker(m_cmbmethod);
        QStringList shown;
        for (int i = 0; i < m_cmbmethod->count(); ++i) shown << m_cmbmethod->itemText(i);
        if (shown != m_state.cmbmethod.items) {
            m_cmbmethod->clear();
            m_cmbmethod->addItems(m_state.cmbmethod.items);
        }
        m_cmbmethod->setCurrentIndex(m_cmbmethod->findText(m_state.cmbmethod.text));
    }
    m_cmddate->setText(m_state.cmddate.caption);
    m_cmdadd->setEnabled(m_state.cmdadd.enabled);
    m_cmddelete->setEnabled(m_state.cmddelete.enabled);
    m_cmdhelp->setText(m_state.cmdhelp.caption);

    {
        const QSignalBlocker blocker(m_MSFlexGrid1);
        showFlexGrid(*m_MSFlexGrid1, m_state.MSFlexGrid1);
        // The form is as wide as the list's columns.
        int width = 2 * m_MSFlexGrid1->frameWidth() + m_MSFlexGrid1->verticalScrollBar()->sizeHint().width();
        for (int c = 0; c < m_MSFlexGrid1->columnCount(); ++c) width += m_MSFlexGrid1->columnWidth(c);
        m_MSFlexGrid1->setMinimumWidth(width);
    }

    m_helpArea->mirror(m_state.helpShown);

    if (m_state.DatePicker1Visible && !m_DatePicker1->isVisible()) {
        m_DatePicker1->setInitDate(serialToDate(m_state.DatePicker1Value));
        m_DatePicker1->adjustSize();
        // Below the date button, kept inside the form.
        const QPoint below = m_cmddate->mapTo(this, QPoint(0, m_cmddate->height()));
        m_DatePicker1->move(std::max(0, std::min(below.x(), width() - m_DatePicker1->width())), below.y());
        m_DatePicker1->raise();
        m_DatePicker1->show();
        m_DatePicker1->setFocus();
    } else if (!m_state.DatePicker1Visible) {
        m_DatePicker1->hide();
    }

    if (!m_state.focus.isEmpty()) {
        if (auto* target = findChild<QWidget*>(m_state.focus))
            target->setFocus();
        m_state.focus.clear();
    }
}

bool TradeForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_txtprice && event->type() == QEvent::FocusOut && m_state.loaded)
        act([&] { m_state.txtprice_LostFocus(); });
    return QDialog::eventFilter(watched, event);
}

void TradeForm::keyPressEvent(QKeyEvent* event) {
    // Esc doesn't close this screen: only Close does, with its removal of an untraded holding.
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void TradeForm::mousePressEvent(QMouseEvent* event) {
    act([&] { m_state.Form_Click(); });
    QDialog::mousePressEvent(event);
}

void TradeForm::closeEvent(QCloseEvent* event) {
    // The window's own close button unloads without Close's work.
    if (m_state.loaded) {
        m_state.closeView = nullptr;
        m_state.unload();
    }
    QDialog::closeEvent(event);
}

}  // namespace ostravel
