#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>
#include <QToolBar>

#include "app/mdiform1_view.h"
#include "app/quick_view.h"
#include "app/splash_view.h"
#include "context/menu_tree.h"
#include "tests/support/grid_checks.h"
#include "tests/support/program_screen_test.h"

using namespace ostravel;

class FrameScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { QVERIFY(openProgram()); }
    void cleanup() { closeProgram(); }

    void frameOpensOnSimulationWithTheCoolBarInOrder() {
        MDIForm1View frame(*m_program);
        frame.show();
        auto* portfolio = frame.findChild<QComboBox*>(QStringLiteral("cmbportfolio"));
        QCOMPARE(portfolio->count(), 1);
        QCOMPARE(portfolio->currentText(), QStringLiteral("Simulation"));
        QCOMPARE(frame.windowTitle(), m_program->frame().caption);

        const QStringList order = {QStringLiteral("Command3"),         QStringLiteral("cmbportfolio"),
                                   QStringLiteral("Cmbequityname"),    QStringLiteral("cmbequity"),
                                   QStringLiteral("Command1"),         QStringLiteral("cmdupdatehistory"),
                                   QStringLiteral("cdmrunsimulation"), QStringLiteral("cmdonlinestatus"),
                                   QStringLiteral("cmdticker"),        QStringLiteral("MsgScroller1")};
        auto* coolbar = frame.findChild<QToolBar*>(QStringLiteral("coolbar1"));
        QStringList shown;
        for (QAction* a : coolbar->actions()) shown << coolbar->widgetForAction(a)->objectName();
        QCOMPARE(shown, order);
        QCOMPARE(frame.findChild<QComboBox*>(QStringLiteral("cmbequity"))->toolTip(),
                 QStringLiteral("Write the correct code if you know the code eg.  hindpetro.ns"));
        QCOMPARE(frame.findChildren<QLabel*>(QRegularExpression(QStringLiteral("^panel\\d$"))).size(), 6);
    }

    void menuHoldsTheWholeTreeWithEveryEntryEnabled() {
        MDIForm1View frame(*m_program);
        QStringList tops;
        for (QAction* a : frame.menuBar()->actions()) tops << a->text();
        QCOMPARE(tops, (QStringList{QStringLiteral("&File"), QStringLiteral("&Edit"), QStringLiteral("&Portfolio"),
                                    QStringLiteral("&Equity"), QStringLiteral("Technical Analysis"),
                                    QStringLiteral("T&ools"), QStringLiteral("&Reports"), QStringLiteral("He&lp")}));
        // Every screen of the menu is built: no entry stands disabled for one that is not.
        const std::function<void(const QList<MenuItem>&)> allEnabled = [&](const QList<MenuItem>& items) {
            for (const MenuItem& item : items) {
                if (!item.children.isEmpty())
                    allEnabled(item.children);
                else if (!item.separator())
                    QVERIFY2(frame.action(item.name)->isEnabled(), qPrintable(item.name));
            }
        };
        allEnabled(menuTree());
        QCOMPARE(frame.action(QStringLiteral("StockPriceChart"))->text(), QStringLiteral("Tecnical Charts"));
        QCOMPARE(frame.action(QStringLiteral("createnewport"))->text(), QStringLiteral("Create &New  Portfolio "));
    }

    void codeBoxTypingFindsTheCompany() {
        MDIForm1View frame(*m_program);
        auto* code = frame.findChild<QComboBox*>(QStringLiteral("cmbequity"));
        code->lineEdit()->clear();
        QTest::keyClicks(code->lineEdit(), QStringLiteral("TCS.NS"));
        QCOMPARE(m_program->frame().caption, QStringLiteral("Tata Consultancy Services Limited"));
        QCOMPARE(frame.findChild<QComboBox*>(QStringLiteral("Cmbequityname"))->currentText(),
                 QStringLiteral("Tata Consultancy Services Limited"));
        QCOMPARE(frame.windowTitle(), QStringLiteral("Tata Consultancy Services Limited"));
    }

    void closeButtonIsRefusedAndExitWithNoKeepsWorking() {
        MDIForm1View frame(*m_program);
        frame.show();
        QVERIFY(!frame.close());
        QVERIFY(frame.isVisible());
        QCOMPARE(m_prompt->messages(), QStringList{QStringLiteral("Please Close from File- Exit")});
        m_prompt->answer(Answer::No);
        frame.action(QStringLiteral("Exit"))->trigger();
        QVERIFY(frame.isVisible());
        QVERIFY(m_prompt->allAnswered());
        QVERIFY(!m_program->store().users->eof());
    }

    void calculatorAndKeyboardHelpOpenAsChildren() {
        MDIForm1View frame(*m_program);
        frame.show();
        frame.action(QStringLiteral("mnucalc"))->trigger();
        frame.action(QStringLiteral("mnykbhelp"))->trigger();
        QStringList names;
        for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList()) names << sub->widget()->objectName();
        QCOMPARE(names, (QStringList{QStringLiteral("frmexplore"), QStringLiteral("calc"),
                                     QStringLiteral("FRM_KEYBOARD_HELP")}));
        // The help shows both of its columns whole, without scrolling.
        auto* help = frame.mdiArea()->subWindowList().back()->widget()->findChild<QTableWidget*>();
        QCOMPARE(test::clippedColumn(*help), QString());
        QVERIFY(help->horizontalHeader()->length() <= help->viewport()->width());
        // Right of the navigator, as PosForm places a child.
        const QList<QMdiSubWindow*> subs = frame.mdiArea()->subWindowList();
        QCOMPARE(subs.at(1)->pos(), QPoint(subs.front()->geometry().right() + 1, 0));
    }

    void quickShowsItsTextAndWritesItsSetting() {
        quick screen(*m_program);
        QVERIFY(!screen.findChild<QTextBrowser*>(QStringLiteral("RichTextBox1"))->toPlainText().isEmpty());
        auto* check = screen.findChild<QCheckBox*>(QStringLiteral("Check1"));
        QCOMPARE(check->text(), QStringLiteral("Show This screen at Startup"));
        // A new user sees the quick start until the box is cleared.
        QVERIFY(quick::wantedAtStart(*m_program));
        QVERIFY(check->isChecked());
        check->setChecked(false);
        QVERIFY(!quick::wantedAtStart(*m_program));
        QCOMPARE(m_program->store().users->field(QStringLiteral("QUICK")).toDouble(), 0.0);
        QVERIFY(m_prompt->asked().isEmpty());
    }

    void keptSplashGoesOnWithAKeyAndStopsWithEscape() {
        // A key shows the frame, Escape ends without it, and no key shows it after two seconds.
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Escape, Qt::Key_unknown}) {
            frmSplash splash(*m_program);
            QSignalSpy shown(&splash, &frmSplash::showFrame);
            splash.show();
            QCOMPARE(splash.findChild<QLabel*>(QStringLiteral("productversion"))->text(), QStringLiteral("Ver 1.0"));
            // White text on the dark blue, not on the window's light grey.
            QCOMPARE(splash.grab().toImage().pixelColor(2, 2), QColor(0x10, 0x36, 0x5a));
            if (key == Qt::Key_unknown) {
                QVERIFY(shown.wait(3000));
                continue;
            }
            QTest::keyClick(&splash, key);
            QCOMPARE(shown.count(), key == Qt::Key_A ? 1 : 0);
            QVERIFY(!splash.isVisible());
        }
    }
};

QTEST_MAIN(FrameScreenTest)
#include "frame_screen_test.moc"
