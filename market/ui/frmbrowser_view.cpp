#include "market/ui/frmbrowser_view.h"

#include <unistd.h>

#include <QDesktopServices>
#include <QUrl>

#include "context/program.h"
#include "market/frmbrowser.h"
#include "runtime/prompt.h"

#ifdef OSTRAVEL_HAVE_WEBENGINE
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineView>
#endif

namespace ostravel {

#ifdef OSTRAVEL_HAVE_WEBENGINE
FrmBrowserForm::FrmBrowserForm(Program& program, QWidget* parent)
    : QWidget(parent), m_program(program), m_state(program.module<FrmBrowser>()) {
    setObjectName(QStringLiteral("frmBrowser"));
    setWindowTitle(QStringLiteral("Browser"));

    m_brwWebBrowser = new QWebEngineView(this);
    m_brwWebBrowser->setObjectName(QStringLiteral("brwWebBrowser"));
    auto* tbToolBar = new QToolBar(this);
    tbToolBar->setObjectName(QStringLiteral("tbToolBar"));
    const std::pair<const char*, QWebEnginePage::WebAction> actions[] = {{"Back", QWebEnginePage::Back},
                                                                         {"Forward", QWebEnginePage::Forward},
                                                                         {"Refresh", QWebEnginePage::Reload},
                                                                         {"Stop", QWebEnginePage::Stop}};
    for (const auto& [key, webAction] : actions) {
        QAction* action = tbToolBar->addAction(QString::fromLatin1(key));
        action->setObjectName(QString::fromLatin1(key));
        connect(action, &QAction::triggered, m_brwWebBrowser,
                [this, webAction = webAction] { m_brwWebBrowser->triggerPageAction(webAction); });
    }
    QAction* home = tbToolBar->addAction(QStringLiteral("Home"));
    home->setObjectName(QStringLiteral("Home"));
    connect(home, &QAction::triggered, this, [this] { navigate(browserHome(m_program)); });

    m_cboAddress = new QComboBox(this);
    m_cboAddress->setObjectName(QStringLiteral("cboAddress"));
    m_cboAddress->setEditable(true);
    m_cboAddress->setInsertPolicy(QComboBox::NoInsert);
    m_cboAddress->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_cboAddress, &QComboBox::textActivated, this, &FrmBrowserForm::navigate);
    // A box that adds nothing to its list of itself sends no activation for Enter: the typed text
    // goes from its line.
    connect(m_cboAddress->lineEdit(), &QLineEdit::returnPressed, this,
            [this] { navigate(m_cboAddress->currentText()); });
    m_Command1 = new QPushButton(m_state.Command1, this);
    m_Command1->setObjectName(QStringLiteral("Command1"));
    connect(m_Command1, &QPushButton::clicked, this, [this] {
        m_state.Command1_Click();
        m_Command1->setText(m_state.Command1);
    });
    connect(m_brwWebBrowser, &QWebEngineView::urlChanged, this, [this](const QUrl& url) {
        m_state.addAddress(url.toString());
        refreshAddresses();
        m_cboAddress->setEditText(url.toString());
    });
    connect(m_brwWebBrowser, &QWebEngineView::titleChanged, this, &QWidget::setWindowTitle);
    // While a page loads, how far it has come.
    auto* progress = new QProgressBar(this);
    progress->setObjectName(QStringLiteral("timTimer"));
    progress->setMaximumWidth(120);
    progress->hide();
    connect(m_brwWebBrowser, &QWebEngineView::loadStarted, progress, &QWidget::show);
    connect(m_brwWebBrowser, &QWebEngineView::loadProgress, progress, &QProgressBar::setValue);
    connect(m_brwWebBrowser, &QWebEngineView::loadFinished, progress, &QWidget::hide);

    auto* addressLine = new QHBoxLayout;
    addressLine->addWidget(m_cboAddress, 1);
    addressLine->addWidget(progress);
    addressLine->addWidget(m_Command1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tbToolBar);
    layout->addLayout(addressLine);
    layout->addWidget(m_brwWebBrowser, 1);
    navigateStart();
}

FrmBrowserForm::~FrmBrowserForm() {
    m_state.Form_Unload();
}

void FrmBrowserForm::navigateStart() {
    navigate(m_state.startingAddress);
}

void FrmBrowserForm::navigate(const QString& address) {
    if (address.isEmpty())
        return;
    m_state.addAddress(address);
    refreshAddresses();
    m_cboAddress->setEditText(address);
    m_brwWebBrowser->setUrl(QUrl::fromUserInput(address));
}

void FrmBrowserForm::refreshAddresses() {
    const QSignalBlocker block(m_cboAddress);
    const QString typed = m_cboAddress->currentText();
    m_cboAddress->clear();
    m_cboAddress->addItems(m_state.cboAddress);
    m_cboAddress->setEditText(typed);
}
#endif

void showBrowser(Program& program, const std::function<QWidget*(const std::function<QWidget*()>&)>& place) {
    const QString address = program.module<FrmBrowser>().startingAddress;
#ifdef OSTRAVEL_HAVE_WEBENGINE
    if (builtInViewCanRun(::geteuid() == 0, qgetenv("QTWEBENGINE_CHROMIUM_FLAGS"),
                          qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))) {
        bool made = false;
        auto* browser = static_cast<FrmBrowserForm*>(place([&]() -> QWidget* {
            made = true;
            return new FrmBrowserForm(program);
        }));
        if (!made)
            browser->navigateStart();
        return;
    }
#endif
    (void)place;
    if (!QDesktopServices::openUrl(QUrl::fromUserInput(address)))
        program.prompt().inform(kPageNotOpened + address);
}

}  // namespace ostravel
