// Reports - Historical Data and Equity - Bank as the frame's menu opens them, on the offscreen
// platform: the grid a user reads, from the history file and from the journal of changes.
#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTableWidget>
#include <QTest>

#include "app/mdiform1_view.h"
#include "ledger/addremovecash.h"
#include "ledger/trade.h"
#include "market/history_import.h"
#include "runtime/apppath.h"
#include "store/database.h"
#include "tests/ledger/holdings.h"
#include "tests/market/market_fixture.h"
#include "tests/support/program_screen_test.h"
#include "tests/support/selection.h"

using namespace ostravel;

namespace {

// The window the entry opened: the newest of its screen's name.
QWidget* opened(MDIForm1View& frame, const char* entry, const char* screen) {
    frame.action(QString::fromLatin1(entry))->trigger();
    QWidget* found = nullptr;
    for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList(QMdiArea::CreationOrder))
        if (sub->widget()->objectName() == QLatin1String(screen))
            found = sub->widget();
    return found;
}

QStringList rowTexts(const QTableWidget& grid, int row, int from = 0) {
    QStringList texts;
    for (int c = from; c < grid.columnCount(); ++c) texts << grid.item(row, c)->text();
    return texts;
}

}  // namespace

class ReportsScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { QVERIFY(openProgram()); }
    void cleanup() { closeProgram(); }

    void historicalDataShowsTheLoadedDaysNewestFirstWithTheirFile() {
        const QString symbol = QStringLiteral("TATAMOTORS");
        const HistoryImport imported =
            importHistoryFile(test::testData(QStringLiteral("history/TATAMOTORS.csv")), symbol);
        QCOMPARE(imported.written, 249);
        MDIForm1View frame(*m_program);
        frame.show();
        m_program->frame().cmbequity = symbol + QStringLiteral(".NS");

        QWidget* screen = opened(frame, "mnuhistory", "frmhistorydata");
        QVERIFY(screen);
        QCOMPARE(screen->windowTitle(), QStringLiteral("Historical Data of TATAMOTORS"));
        QCOMPARE(screen->findChild<QLabel*>(QStringLiteral("lblnote"))->text(),
                 QStringLiteral("249 days from ") + appFile(QStringLiteral("history/daily/TATAMOTORS.csv")));
        auto* grid = screen->findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"));
        QCOMPARE(grid->rowCount(), 249);
        QCOMPARE(rowTexts(*grid, 0), (QStringList{"18/10/2022", "401.00", "406.70", "400.70", "404.25", "14215544"}));
        QCOMPARE(rowTexts(*grid, 248), (QStringList{"19/10/2021", "512.45", "517.40", "476.05", "481.90", "57428637"}));
        // The keyboard lands in the grid.
        QCOMPARE(screen->focusProxy(), grid);

        // Another stock without a file, none chosen: those days are not shown as its own.
        m_program->frame().cmbequity = QStringLiteral("NONE.NS");
        m_prompt->answerText(std::nullopt);
        screen = opened(frame, "mnuhistory", "frmhistorydata");
        QCOMPARE(screen->findChild<QTableWidget*>()->rowCount(), 0);
        QCOMPARE(screen->findChild<QLabel*>()->text(), QStringLiteral("No history is loaded for NONE."));
        // Opened again, the report takes the place of its earlier window.
        QCOMPARE(frame.findChildren<QWidget*>(QStringLiteral("frmhistorydata")), QList<QWidget*>{screen});
    }

    void bankListsTheCashAndTheTradesOfTheHoldingWithTheirSigns() {
        Database& db = m_program->store().database();
        addPortfolio(db, QStringLiteral("Growth"));
        addHolding(db, QStringLiteral("Growth"), {QStringLiteral("INFY"), 100, 10, 1000, 10, 100, 1000});
        addHolding(db, QStringLiteral("Growth"), {QStringLiteral("TCS"), 100, 10, 1000, 10, 100, 1000});
        addTrade(db, QStringLiteral("Growth"), QStringLiteral("INFY"), 8.5);
        MDIForm1View frame(*m_program);
        frame.show();
        test::selectHolding(m_program->frame(), QStringLiteral("INFY"), QStringLiteral("Growth"));

        AddRemoveCash& cash = m_program->module<AddRemoveCash>();
        // Another holding's deposit is none of INFY's.
        const std::tuple<CashMovement, const char*, const char*> movements[] = {
            {CashMovement::Deposit, "INFY", "500"},
            {CashMovement::Withdrawal, "INFY", "200.25"},
            {CashMovement::Deposit, "TCS", "999"}};
        for (const auto& [movement, symbol, amount] : movements) {
            cash.prepare(movement);
            cash.Combo2.text = QString::fromLatin1(symbol);
            cash.txtamount.text = QString::fromLatin1(amount);
            m_prompt->answer(Answer::Yes);
            cash.cmdupdate_Click();
        }
        Trade& trade = m_program->module<Trade>();
        const std::tuple<const char*, const char*, int> trades[] = {{"5", "120", 0}, {"2", "130.5", 1}};
        for (const auto& [shares, price, method] : trades) {
            trade.load();
            trade.txtshare.text = QString::fromLatin1(shares);
            trade.txtprice.text = QString::fromLatin1(price);
            trade.txtcommision.text = QStringLiteral("5");
            trade.setMethodIndex(method);
            trade.cmdadd_Click();
        }
        QVERIFY(m_prompt->allAnswered());
        // A new price alone moves no cash.
        db.execute(QStringLiteral("update equity set CurrentQuotePrice = 125 where EquitySymbol = 'INFY'"));

        QWidget* screen = opened(frame, "mnubank", "frmbank");
        QVERIFY(screen);
        auto* grid = screen->findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"));
        QStringList lines;
        for (int r = 0; r < grid->rowCount(); ++r) lines << rowTexts(*grid, r, 1).join(QLatin1Char('|'));
        QCOMPARE(lines,
                 (QStringList{"Other change|1000.00|1000.00", "Deposit Cash|500.00|1500.00",
                              "Withdraw Cash|-200.25|1299.75", "Add Trade|-600.00|699.75", "Add Trade|261.00|960.75"}));
        QCOMPARE(screen->findChild<QLabel*>(QStringLiteral("lblnote"))->text(),
                 QStringLiteral("Cash movements of INFY in Growth, oldest first"));
    }
};

QTEST_MAIN(ReportsScreenTest)
#include "reports_screen_test.moc"
