#include "app/mdiform1_view.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTime>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <string_view>

#include "app/help_window.h"
#include "app/quick_view.h"
#include "app/screen_openers.h"
#include "charts/frmmain.h"
#include "context/menu_tree.h"
#include "context/posform.h"
#include "context/program.h"
#include "context/screens.h"
#include "ledger/addremovecash.h"
#include "ledger/bank.h"
#include "ledger/frmsplit.h"
#include "ledger/portfolioexplorer.h"
#include "market/frmbrowser.h"
#include "market/frmexplore.h"
#include "market/gethistory.h"
#include "market/historical_data.h"
#include "market/history.h"
#include "market/price_update.h"
#include "market/scroller/ui/msgscroller_view.h"
#include "market/ticker.h"
#include "market/ui/frmexplore_view.h"
#include "market/ui/market_actions.h"
#include "safety/ui/backup_view.h"
#include "safety/ui/restore_view.h"
#include "simulation/frame_commands.h"
#include "simulation/frmtradehistory.h"
#include "simulation/ui/simulation_actions.h"
#include "store/store.h"
#include "tools/ui/calc_view.h"
#include "tools/ui/keyboard_help_view.h"
#include "widgets/report_view.h"

namespace ostravel {

namespace {

constexpr int kNavigatorWidth = 200;

}  // namespace

MDIForm1View::MDIForm1View(Program& program, QWidget* parent) : QMainWindow(parent), m_program(program) {
    setObjectName(QStringLiteral("MDIForm1"));
    m_mdi = new QMdiArea(this);
    m_mdi->setObjectName(QStringLiteral("mdiArea"));
    setCentralWidget(m_mdi);
    m_mdi->viewport()->installEventFilter(this);

    buildMenus();
    buildCoolBar();
    buildStatusBar();
    connectMenu();

    if (const QScreen* screen = QGuiApplication::primaryScreen())
        setGeometry(screen->availableGeometry());

    // The overview refills whenever the portfolio changes, open or not.
    m_program.frame().selectportfolio = [&program] { selectportfolio(program); };
    m_program.frame().mirror = [this] { refresh(); };
    registerScreenOpeners(*this, m_program);
    m_program.frame().MDIForm_Load();
    refresh();
    showNavigator(true);
    QTimer::singleShot(0, this, &MDIForm1View::showQuickIfWanted);
}

MDIForm1View::~MDIForm1View() {
    m_program.frame().mirror = {};
    m_program.module<FrmBrowser>().showNavigator = {};
}

void MDIForm1View::buildMenus() {
    for (const MenuItem& top : menuTree()) {
        QMenu* menu = menuBar()->addMenu(top.caption);
        menu->setObjectName(top.name);
        addMenuItems(menu, top.children);
    }
}

void MDIForm1View::addMenuItems(QWidget* menuWidget, const QList<MenuItem>& items) {
    auto* menu = static_cast<QMenu*>(menuWidget);
    for (const MenuItem& item : items) {
        if (item.separator()) {
            menu->addSeparator()->setObjectName(item.name);
            continue;
        }
        if (!item.children.isEmpty()) {
            QMenu* sub = menu->addMenu(item.caption);
            sub->setObjectName(item.name);
            addMenuItems(sub, item.children);
            sub->setEnabled(
                std::any_of(item.children.begin(), item.children.end(), [](const MenuItem& c) { return c.available; }));
            continue;
        }
        QAction* action = menu->addAction(item.caption);
        action->setObjectName(item.name);
        action->setEnabled(item.available);
        if (!item.shortcut.isEmpty())
            action->setShortcut(QKeySequence(item.shortcut));
        m_actions.insert(item.name, action);
    }
}

void MDIForm1View::buildCoolBar() {
    QToolBar* bar = addToolBar(QStringLiteral("coolbar1"));
    bar->setObjectName(QStringLiteral("coolbar1"));
    bar->setMovable(false);

    auto* command3 = new QPushButton(QStringLiteral("Select Portfolio :"), bar);
    command3->setObjectName(QStringLiteral("Command3"));
    command3->setFlat(true);
    command3->setFocusPolicy(Qt::NoFocus);
    bar->addWidget(command3);

    m_cmbportfolio = new QComboBox(bar);
    m_cmbportfolio->setObjectName(QStringLiteral("cmbportfolio"));
    m_cmbportfolio->setMinimumContentsLength(16);
    bar->addWidget(m_cmbportfolio);

    m_Cmbequityname = new QComboBox(bar);
    m_Cmbequityname->setObjectName(QStringLiteral("Cmbequityname"));
    m_Cmbequityname->setMinimumContentsLength(28);
    m_Cmbequityname->setMaxVisibleItems(20);
    bar->addWidget(m_Cmbequityname);

    m_cmbequity = new QComboBox(bar);
    m_cmbequity->setObjectName(QStringLiteral("cmbequity"));
    m_cmbequity->setEditable(true);
    m_cmbequity->setInsertPolicy(QComboBox::NoInsert);
    m_cmbequity->setMinimumContentsLength(14);
    m_cmbequity->setToolTip(QStringLiteral("Write the correct code if you know the code eg.  hindpetro.ns"));
    m_cmbequity->lineEdit()->installEventFilter(this);
    bar->addWidget(m_cmbequity);

    // The ticker's button waits disabled until its screen exists; the simulation's follow its state.
    const std::pair<const char*, const char*> buttons[] = {{"Command1", "Get History"},
                                                           {"cmdupdatehistory", "Update History"},
                                                           {"cdmrunsimulation", "Run Simulation"},
                                                           {"cmdonlinestatus", "Online Mode"},
                                                           {"cmdticker", "Ticker"}};
    for (const auto& [name, caption] : buttons) {
        auto* button = new QPushButton(QString::fromUtf8(caption), bar);
        button->setObjectName(QString::fromUtf8(name));
        bar->addWidget(button);
    }
    buildTicker(bar);
    auto* updateHistory = bar->findChild<QPushButton*>(QStringLiteral("cmdupdatehistory"));
    connect(updateHistory, &QPushButton::clicked, this, [this] {
        runUpdateHistory(m_program, this);
        refresh();
    });
    auto* onlineStatus = bar->findChild<QPushButton*>(QStringLiteral("cmdonlinestatus"));
    connect(onlineStatus, &QPushButton::clicked, this, [this, onlineStatus] {
        onlineStatus->setText(cmdonlinestatus_Click(m_program, onlineStatus->text()));
        refresh();
    });
    m_program.module<HistoryState>().focusCmbequity = [this] { m_cmbequity->setFocus(); };
    m_Command1 = bar->findChild<QPushButton*>(QStringLiteral("Command1"));
    m_cdmrunsimulation = bar->findChild<QPushButton*>(QStringLiteral("cdmrunsimulation"));
    connect(m_Command1, &QPushButton::clicked, this, [this] { getHistoryOnFrame(m_program, this); });
    connect(m_cdmrunsimulation, &QPushButton::clicked, this, [this] { runSimulationOnFrame(m_program, this); });
    m_program.module<PriceUpdate>().focusCmbportfolio = [this] { m_cmbportfolio->setFocus(); };

    connect(m_cmbportfolio, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        m_program.frame().cmbportfolio.text = text;
        m_program.frame().cmbportfolio_Change();
        refresh();
    });
    connect(m_Cmbequityname, &QComboBox::activated, this, [this](int index) {
        m_program.frame().Cmbequityname.text = m_Cmbequityname->itemText(index);
        m_program.frame().Cmbequityname_Click();
        refresh();
    });
    connect(m_cmbequity, &QComboBox::editTextChanged, this, [this](const QString& text) {
        m_program.frame().cmbequity = text;
        m_program.frame().cmbequity_Change();
        refresh();
    });
}

void MDIForm1View::buildTicker(QToolBar* bar) {
    Ticker& ticker = m_program.module<Ticker>();
    m_MsgScroller1 = new MsgScrollerView(ticker.MsgScroller1, bar);
    m_MsgScroller1->setMinimumWidth(320);
    m_MsgScroller1->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_tickerAction = bar->addWidget(m_MsgScroller1);
    m_tickerAction->setVisible(false);
    m_Timer1 = new QTimer(this);
    m_Timer1->setObjectName(QStringLiteral("Timer1"));
    connect(m_Timer1, &QTimer::timeout, this, [this] {
        Timer1_Timer(m_program, QTime::currentTime().minute());
        showTicker();
    });
    auto* button = bar->findChild<QPushButton*>(QStringLiteral("cmdticker"));
    connect(button, &QPushButton::clicked, this, [this] {
        cmdticker_Click(m_program);
        showTicker();
        refresh();
    });
    connect(m_MsgScroller1, &MsgScrollerView::HotSpotClick, this, [this](int index) {
        MsgScroller1_HotSpotClick(m_program, index);
        refresh();
    });
}

void MDIForm1View::showTicker() {
    const Ticker& ticker = m_program.module<Ticker>();
    findChild<QPushButton*>(QStringLiteral("cmdticker"))->setText(ticker.cmdticker);
    m_tickerAction->setVisible(ticker.MsgScroller1Visible);
    if (ticker.Timer1Enabled && ticker.Timer1Interval > 0) {
        if (!m_Timer1->isActive() || m_Timer1->interval() != ticker.Timer1Interval)
            m_Timer1->start(ticker.Timer1Interval);
    } else {
        m_Timer1->stop();
    }
    m_MsgScroller1->sync();
}

void MDIForm1View::buildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName(QStringLiteral("StatusBar1"));
    for (int i = 0; i < MainFrame::kPanels; ++i) {
        m_panels[i] = new QLabel(bar);
        m_panels[i]->setObjectName(QStringLiteral("panel%1").arg(i + 1));
        m_panels[i]->setFrameShape(QFrame::Panel);
        m_panels[i]->setFrameShadow(QFrame::Sunken);
        bar->addPermanentWidget(m_panels[i], i == MainFrame::kPanels - 1 ? 1 : 0);
    }
    auto* clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, &MDIForm1View::updatePanels);
    clock->start(1000);
}

void MDIForm1View::connectMenu() {
    connect(action(QStringLiteral("Exit")), &QAction::triggered, this, &MDIForm1View::onExit);
    connect(action(QStringLiteral("mnucalc")), &QAction::triggered, this, [this] { showChild(new calc); });
    connect(action(QStringLiteral("mnykbhelp")), &QAction::triggered, this,
            [this] { showChild(new FRM_KEYBOARD_HELP); });
    connect(action(QStringLiteral("Helpchm")), &QAction::triggered, this, [this] { showHelpWindow(this); });
    const std::pair<const char*, const char*> programPages[] = {{"Helpfile", "Online Help"}, {"mnuBug", "Forum Home"}};
    for (const auto& [name, page] : programPages)
        connect(action(QString::fromLatin1(name)), &QAction::triggered, this,
                [this, page = page] { openProgramPage(m_program, QString::fromLatin1(page)); });
    connect(action(QStringLiteral("mnunavigator")), &QAction::triggered, this, [this] { showNavigator(true); });
    connect(action(QStringLiteral("mnuhistory")), &QAction::triggered, this, [this] {
        const HistoricalData history = historicalData(m_program);
        showReport(new ReportView(QStringLiteral("frmhistorydata"),
                                  QStringLiteral("Historical Data of ") + historySymbol(m_program.frame()),
                                  history.note, HistoricalData::kHeadings, history.rows));
    });
    connect(action(QStringLiteral("mnubank")), &QAction::triggered, this, [this] {
        const MainFrame& frame = m_program.frame();
        const BankStatement bank =
            bankStatement(m_program.store().database(), frame.cmbportfolio.text, frame.equitySymbol());
        showReport(new ReportView(
            QStringLiteral("frmbank"),
            QStringLiteral("Bank of ") + frame.equitySymbol() + QStringLiteral(" in ") + frame.cmbportfolio.text,
            QStringLiteral("Cash movements of %1 in %2, oldest first")
                .arg(frame.equitySymbol(), frame.cmbportfolio.text),
            BankStatement::kHeadings, bank.rows));
    });
    connect(action(QStringLiteral("UserPreferance")), &QAction::triggered, this,
            [this] { m_program.module<Screens>().show(QStringLiteral("websetting")); });
    connect(action(QStringLiteral("mnuallportfolio")), &QAction::triggered, this, [this] {
        selectportfolio(m_program);
        m_program.module<Screens>().show(QStringLiteral("Portfolioexplorer"));
    });
    connect(action(QStringLiteral("mnu_backup")), &QAction::triggered, this,
            [this] { showChild(new FRM_BACK_UP(m_program)); });
    connect(action(QStringLiteral("mnu_restore")), &QAction::triggered, this, [this] {
        auto* screen = new FRM_RESTORE(m_program);
        connect(screen, &FRM_RESTORE::restored, this, &MDIForm1View::refresh);
        showChild(screen);
    });
    const std::pair<const char*, CashMovement> cashEntries[] = {
        {"mnudepositcash", CashMovement::Deposit},
        {"Mnuwcash", CashMovement::Withdrawal},
        {"addinterest", CashMovement::Interest},
    };
    for (const auto& [name, movement] : cashEntries)
        connect(action(QString::fromLatin1(name)), &QAction::triggered, this,
                [this, movement] { showCashMovement(m_program, movement); });
    connect(action(QStringLiteral("mnuproxy")), &QAction::triggered, this,
            [this] { showProxySettings(m_program, this); });
    connect(action(QStringLiteral("mnuimporthistory")), &QAction::triggered, this,
            [this] { showImportHistory(m_program, this); });
    connect(action(QStringLiteral("Openfile")), &QAction::triggered, this, [this] {
        runOpenFile(m_program);
        refresh();
    });
    connect(action(QStringLiteral("mnugethistory")), &QAction::triggered, this, [this] {
        runGetHistoryAll(m_program, this);
        refresh();
    });
    connect(action(QStringLiteral("StockPriceChart")), &QAction::triggered, this, [this] {
        if (StockPriceChart_Click(m_program))
            m_program.module<Screens>().show(QStringLiteral("frmMain"));
    });
    connect(action(QStringLiteral("UpdatePricesViaInternet")), &QAction::triggered, this, [this] {
        selectportfolio(m_program);
        m_program.module<Screens>().show(QStringLiteral("Portfolioexplorer"));
        updateprice(m_program);
        refresh();
    });
    connect(action(QStringLiteral("mnudayfileprices")), &QAction::triggered, this, [this] {
        UpdatePricesFromDayFiles(m_program);
        refresh();
    });
    connect(action(QStringLiteral("mnudmA")), &QAction::triggered, this,
            [this] { m_program.module<Screens>().show(QStringLiteral("frmdma")); });
    connect(action(QStringLiteral("mnutechnical")), &QAction::triggered, this,
            [this] { m_program.module<Screens>().show(QStringLiteral("Technical")); });
    connect(action(QStringLiteral("stocksplit")), &QAction::triggered, this, [this] { showStockSplit(m_program); });
    connect(action(QStringLiteral("ViewHistoricaldata")), &QAction::triggered, this,
            [this] { m_program.module<Screens>().show(QStringLiteral("frmtradehistory")); });
    const std::pair<const char*, const char*> ledgerEntries[] = {
        {"portfoliomanager", "frmportwizard"}, {"createnewport", "Create"},  {"AddNewEquity", "Newholding"},
        {"mnynewsymbol", "frmnewsymbol"},      {"mnuchanges", "frmjournal"},
    };
    for (const auto& [name, screen] : ledgerEntries)
        connect(action(QString::fromLatin1(name)), &QAction::triggered, this, [this, screen = screen] {
            m_program.module<Screens>().show(QString::fromLatin1(screen));
            refresh();
        });
}

QMdiSubWindow* MDIForm1View::openChild(const QString& name) const {
    for (QMdiSubWindow* sub : m_mdi->subWindowList())
        if (sub->widget() && sub->widget()->objectName() == name)
            return sub;
    return nullptr;
}

QWidget* MDIForm1View::showSingleChild(const QString& name, const std::function<QWidget*()>& make) {
    if (QMdiSubWindow* sub = openChild(name)) {
        m_mdi->setActiveSubWindow(sub);
        return sub->widget();
    }
    QWidget* screen = make();
    showChild(screen);
    return screen;
}

void MDIForm1View::showReport(QWidget* report) {
    if (QMdiSubWindow* earlier = openChild(report->objectName())) {
        m_mdi->removeSubWindow(earlier);
        earlier->deleteLater();
    }
    showChild(report);
}

void MDIForm1View::showChild(QWidget* screen) {
    screen->setAttribute(Qt::WA_DeleteOnClose);
    QMdiSubWindow* sub = m_mdi->addSubWindow(screen);
    const QRect place = posForm(navigatorPlace(), m_mdi->viewport()->size());
    // Small tools keep their own size at the left edge; full screens take the free area.
    if (screen->property("keepsSize").toBool())
        sub->move(place.topLeft());
    else
        sub->setGeometry(place);
    screen->show();
    sub->show();
}

void MDIForm1View::showNavigator(bool visible) {
    if (!m_navigator) {
        auto* navigator = new FrmExploreForm(m_program);
        m_navigator = m_mdi->addSubWindow(navigator, Qt::SubWindow | Qt::WindowTitleHint);
        // The navigator stays for the run: Nav Hide hides it, nothing closes it.
        m_navigator->setGeometry(0, 0, kNavigatorWidth, m_mdi->viewport()->height());
    }
    m_navigator->setVisible(visible);
    if (visible)
        m_navigator->widget()->setFocus();
}

std::optional<QRect> MDIForm1View::navigatorPlace() const {
    if (!m_navigator || m_navigator->isHidden())
        return std::nullopt;
    return m_navigator->geometry();
}

void MDIForm1View::showQuickIfWanted() {
    if (quick::wantedAtStart(m_program))
        showChild(new quick(m_program));
}

void MDIForm1View::refresh() {
    MainFrame& frame = m_program.frame();
    setWindowTitle(frame.caption);

    const QSignalBlocker b1(m_cmbportfolio), b2(m_Cmbequityname), b3(m_cmbequity);
    auto mirrorList = [](QComboBox* box, const ComboState& state) {
        QStringList current;
        for (int i = 0; i < box->count(); ++i) current << box->itemText(i);
        if (current != state.items) {
            box->clear();
            box->addItems(state.items);
        }
        const int index = box->findText(state.text);
        if (index >= 0)
            box->setCurrentIndex(index);
    };
    mirrorList(m_cmbportfolio, frame.cmbportfolio);
    mirrorList(m_Cmbequityname, frame.Cmbequityname);
    if (m_cmbequity->currentText() != frame.cmbequity)
        m_cmbequity->setEditText(frame.cmbequity);
    const SimulationButtons& simulation = m_program.module<SimulationButtons>();
    m_Command1->setEnabled(simulation.Command1.enabled);
    m_cdmrunsimulation->setEnabled(simulation.cdmrunsimulation.enabled);
    updatePanels();
}

void MDIForm1View::updatePanels() {
    const MainFrame& frame = m_program.frame();
    const QDateTime now = QDateTime::currentDateTime();
    const QString texts[MainFrame::kPanels] = {now.toString(QStringLiteral("dd/MM/yyyy")),
                                               now.toString(QStringLiteral("hh:mm")),
                                               frame.cmbportfolio.text,
                                               frame.cmbequity,
                                               frame.OnlineFlag ? QStringLiteral("Online") : QStringLiteral("Offline"),
                                               frame.panel6};
    for (int i = 0; i < MainFrame::kPanels; ++i) m_panels[i]->setText(texts[i]);
}

bool MDIForm1View::eventFilter(QObject* watched, QEvent* event) {
    // The navigator runs the whole height of the child area, as the frame's size changes.
    if (watched == m_mdi->viewport() && event->type() == QEvent::Resize && m_navigator)
        m_navigator->setGeometry(0, 0, kNavigatorWidth, m_mdi->viewport()->height());
    // Enter in the stock code box runs "Get History" (while that button can run).
    if (watched == m_cmbequity->lineEdit() && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            if (m_Command1->isEnabled())
                m_Command1->click();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MDIForm1View::closeEvent(QCloseEvent* event) {
    if (m_program.frame().MDIForm_QueryUnload(m_exiting))
        event->accept();
    else
        event->ignore();
}

void MDIForm1View::onExit() {
    // The children go for good before the store closes: a screen that stayed until the exit
    // question runs its events would do its database work on the closed store.
    m_mdi->closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!m_program.frame().Exit()) {
        showNavigator(true);
        refresh();
        return;
    }
    m_exiting = true;
    close();
    QApplication::quit();
}

}  // namespace ostravel
