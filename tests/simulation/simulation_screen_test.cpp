// The simulation on the frame: "Run Simulation" fills the equity manager and its Results page,
// "Stop" ends a run on the days done, the days export as CSV, and the trade history view opens
// from the menu with both grids.
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/mdiform1_view.h"
#include "market/history_import.h"
#include "position/equitymanager.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "tests/support/program_screen_test.h"

using namespace ostravel;

class SimulationScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private:
    // A history of tests/data as the stock in work, over its whole span.
    void stock(const QString& file, const QString& symbol) {
        QVERIFY(
            importHistoryFile(qEnvironmentVariable("OSTRAVEL_TEST_DATA") + QStringLiteral("/history/") + file, symbol)
                .error.isEmpty());
        m_code = symbol + QStringLiteral(".NS");
        EquityManager& em = m_program->module<EquityManager>();
        em.load();
        em.dtbdate = dateSerial(QDate(1990, 1, 1));
        em.dtedate = dateSerial(QDate(2030, 1, 1));
    }
    // The code typed into the frame's box, then "Run Simulation" pressed.
    void runSimulation(MDIForm1View& frame) {
        frame.findChild<QComboBox*>(QStringLiteral("cmbequity"))->setEditText(m_code);
        QTest::mouseClick(frame.findChild<QPushButton*>(QStringLiteral("cdmrunsimulation")), Qt::LeftButton);
    }

    QString m_code;

private Q_SLOTS:
    void init() { QVERIFY(openProgram()); }
    void cleanup() { closeProgram(); }

    void runFillsTheEquityManagerItsResultsAndTheTradeHistory() {
        stock(QStringLiteral("TATAMOTORS.csv"), QStringLiteral("TMPV"));
        MDIForm1View frame(*m_program);
        frame.show();
        runSimulation(frame);

        auto* pages = frame.findChild<QTabWidget*>(QStringLiteral("simulationPages"));
        QVERIFY(pages && pages->isVisible());
        QCOMPARE(pages->tabText(1), QStringLiteral("Results"));
        const EquityManager& em = m_program->module<EquityManager>();
        QCOMPARE(frame.findChild<QLineEdit*>(QStringLiteral("txtcurrtotal"))->text(), em.txtcurrtotal.text);
        QCOMPARE(frame.findChild<QLabel*>(QStringLiteral("lblsimulation"))->text(), em.lblsimulation.caption);
        auto* figures = frame.findChild<QTableWidget*>(QStringLiteral("figures"));
        QCOMPARE(figures->rowCount(), 10);
        // Buy and hold ends on the beginning total and his profit of the last day.
        QCOMPARE(figures->item(0, 1)->text(),
                 QStringLiteral("Rs. ") + formatNumber(Val(em.txtbegtotal.text) + Val(em.lblbhprofit.caption),
                                                       QStringLiteral("#,##,##0.00")));

        QTemporaryDir out;
        const QString csv = out.filePath(QStringLiteral("days"));
        m_prompt->answerText(csv);
        QTest::mouseClick(frame.findChild<QPushButton*>(QStringLiteral("exportCsv")), Qt::LeftButton);
        QFile written(csv + QStringLiteral(".csv"));
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll().count('\n'), 249);

        // The trade history of the run opens from the menu, the prices' grid below the trades'.
        frame.action(QStringLiteral("ViewHistoricaldata"))->trigger();
        auto* view = frame.findChild<QWidget*>(QStringLiteral("frmtradehistory"));
        QVERIFY(view);
        auto* prices = view->findChild<QTableWidget*>(QStringLiteral("MSFlexGrid2"));
        QCOMPARE(prices->columnCount(), 7);
        QCOMPARE(prices->item(0, 1)->text(), QStringLiteral("19/10/2021"));
        QVERIFY(view->findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"))->item(0, 2));
        QVERIFY(prices->geometry().top() >
                view->findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"))->geometry().bottom());
    }

    void stopEndsTheRunOnTheDaysDone() {
        stock(QStringLiteral("RELIANCE.csv"), QStringLiteral("RELIANCE"));
        MDIForm1View frame(*m_program);
        frame.show();
        // The first time the run lets the window's events run, Stop is pressed.
        QTimer::singleShot(0, &frame, [&frame] {
            if (auto* stop = frame.findChild<QPushButton*>(QStringLiteral("simulationStop")))
                stop->click();
        });
        runSimulation(frame);
        QVERIFY2(m_program->frame().panel6.contains(QStringLiteral("stopped after")),
                 qPrintable(m_program->frame().panel6));
        QVERIFY(!frame.findChild<QPushButton*>(QStringLiteral("simulationStop")));
        QVERIFY(frame.findChild<QPushButton*>(QStringLiteral("cdmrunsimulation"))->isEnabled());
    }
};

QTEST_MAIN(SimulationScreenTest)
#include "simulation_screen_test.moc"
