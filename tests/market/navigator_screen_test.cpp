// The navigator in the frame, on the offscreen platform: an item opens its page from the loopback
// service in the built-in view, right of the navigator; "Nav Hide" hides the bar.
#include <QApplication>
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

class NavigatorScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        QVERIFY(openProgram());
        m_service = std::make_unique<MarketService>(testData());
        m_service->route(QStringLiteral("/c/1y/a/"), [](const ServiceRequest&) {
            return ServiceReply{httpAnswer(
                200, "text/html", "<html><head><title>One year of infy</title></head><body>chart</body></html>")};
        });
        writeHosts(QStringLiteral("[Hosts]\nchart=") + m_service->hostPort() + QLatin1Char('\n'));
        m_program->frame().cmbequity = QStringLiteral("INFY.NS");
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
        auto* bar = frame.findChild<QToolBox*>(QStringLiteral("ctxOutlookBar1"));
        QVERIFY(bar);
        bar->setCurrentIndex(2);
        auto* items = qobject_cast<QListWidget*>(bar->currentWidget());
        QListWidgetItem* chart = items->findItems(QStringLiteral("Chart 1 Year"), Qt::MatchExactly).value(0);
        QVERIFY(chart);
        items->setCurrentItem(chart);
        items->setFocus();
        QTest::keyClick(items, Qt::Key_Return);

        auto* view = frame.findChild<QWebEngineView*>(QStringLiteral("brwWebBrowser"));
        QVERIFY(view);
        QTRY_COMPARE_WITH_TIMEOUT(view->title(), QStringLiteral("One year of infy"), 30000);
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
