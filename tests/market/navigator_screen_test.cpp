// The navigator in the frame, on the offscreen platform: an item opens its page from the loopback
// service in the built-in view, right of the navigator; "Nav Hide" hides the bar; Help's Online
// Help and Report Bug open the program's pages, and a typed address opens.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QToolBox>
#include <QWebEngineView>

#include "app/mdiform1_view.h"
#include "runtime/apppath.h"
#include "tests/market/market_fixture.h"
#include "tests/support/program_screen_test.h"

using namespace ostravel;
using namespace ostravel::test;

namespace {

ServiceReply page(const char* title) {
    return ServiceReply{httpAnswer(
        200, "text/html", QByteArray("<html><head><title>") + title + "</title></head><body>page</body></html>")};
}

}  // namespace

class NavigatorScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        QVERIFY(openProgram());
        m_service = std::make_unique<MarketService>(testData());
        m_service->route(QStringLiteral("/profile/manual.htm"), [](const ServiceRequest&) { return page("Manual"); });
        m_service->route(QStringLiteral("/"), [](const ServiceRequest&) { return page("Forum"); });
        const QString host = m_service->hostPort();
        writeHosts(QStringLiteral("[Hosts]\nchart=%1\nsite=%1\nforum=%1\n").arg(host));
    }
    void cleanup() {
        m_service.reset();
        closeProgram();
    }

    void anItemOpensItsPageInTheBuiltInViewRightOfTheNavigator() {
        MDIForm1View frame(*m_program);
        frame.resize(1200, 800);
        frame.show();
        frame.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&frame));
        m_program->frame().cmbequity = QStringLiteral("TATAMOTORS.NS");
        // All by keyboard: into the bar, Tab past its own heading to the third, Space opens that
        // group, the second item, Enter.
        QTest::keyClick(&frame, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        auto* bar = frame.findChild<QToolBox*>(QStringLiteral("ctxOutlookBar1"));
        QCOMPARE(QApplication::focusWidget(), bar->widget(0));
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space, Qt::Key_Down})
            QTest::keyClick(QApplication::focusWidget(), key);
        QCOMPARE(bar->currentIndex(), 2);
        auto* items = qobject_cast<QListWidget*>(QApplication::focusWidget());
        QVERIFY(items);
        QCOMPARE(items->currentItem()->text(), QStringLiteral("Chart 1 Year"));
        QTest::keyClick(items, Qt::Key_Return);

        auto* view = frame.findChild<QWebEngineView*>(QStringLiteral("brwWebBrowser"));
        QVERIFY(view);
        QTRY_COMPARE_WITH_TIMEOUT(view->title(), QStringLiteral("TATAMOTORS 1y daily closes"), 30000);
        QCOMPARE(m_program->frame().panel6, QStringLiteral("1 Year daily chart"));

        QMdiSubWindow* navigator = nullptr;
        QMdiSubWindow* browser = nullptr;
        for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList())
            (sub->widget()->objectName() == QLatin1String("frmexplore") ? navigator : browser) = sub;
        QVERIFY(navigator && browser);
        QCOMPARE(browser->x(), navigator->geometry().right() + 1);

        auto* navButton = browser->findChild<QPushButton*>(QStringLiteral("Command1"));
        navButton->click();
        QVERIFY(navigator->isHidden());
        QCOMPARE(navButton->text(), QStringLiteral("Nav Show"));
        navButton->click();
        QVERIFY(!navigator->isHidden());
        // Hidden when the browser closes, the navigator comes back.
        navButton->click();
        browser->close();
        QTRY_VERIFY(!navigator->isHidden());
    }

    void helpEntriesOpenTheManualAndTheForumInOneBrowser() {
        MDIForm1View frame(*m_program);
        frame.show();
        const std::pair<const char*, const char*> entries[] = {{"Helpfile", "Manual"}, {"mnuBug", "Forum"}};
        for (const auto& [entry, title] : entries) {
            frame.action(QString::fromLatin1(entry))->trigger();
            auto* view = frame.findChild<QWebEngineView*>(QStringLiteral("brwWebBrowser"));
            QVERIFY(view);
            QTRY_COMPARE_WITH_TIMEOUT(view->title(), QString::fromLatin1(title), 30000);
        }
        QCOMPARE(frame.findChildren<QWebEngineView*>().size(), 1);
        // An address typed and Enter: the view goes there. The list holds each address, in order.
        auto* addresses = frame.findChild<QComboBox*>(QStringLiteral("cboAddress"));
        const QString host = QStringLiteral("http://") + m_service->hostPort();
        const QString typed = host + QStringLiteral("/c/5y/a/tatamotors");
        addresses->lineEdit()->selectAll();
        QTest::keyClicks(addresses->lineEdit(), typed);
        QTest::keyClick(addresses->lineEdit(), Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(frame.findChild<QWebEngineView*>()->title(),
                                  QStringLiteral("TATAMOTORS 5y daily closes"), 30000);
        QCOMPARE(addresses->itemText(0), host + QStringLiteral("/profile/manual.htm"));
        QCOMPARE(addresses->itemText(addresses->count() - 1), typed);
    }

private:
    void writeHosts(const QString& text) {
        QFile hosts(appFile(QStringLiteral("hosts.ini")));
        QVERIFY(hosts.open(QIODevice::WriteOnly | QIODevice::Truncate));
        hosts.write(text.toLatin1());
    }

    std::unique_ptr<MarketService> m_service;
};

int main(int argc, char** argv) {
    // The web view's sandbox can't run as root, nor its GPU without a display.
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--no-sandbox --disable-gpu");
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    NavigatorScreenTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "navigator_screen_test.moc"
