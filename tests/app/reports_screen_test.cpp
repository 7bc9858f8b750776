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
#include "tests/market/market_fixture.h"
#include "tests/support/program_screen_test.h"
#include "tests/support/selection.h"
#include "tests/support/store_rows.h"

using namespace ostravel;

namespace {

// The window the entry opened, found by its screen's name.
QWidget* opened(MDIForm1View& frame, const char* entry, const char* screen) {
    frame.action(QString::fromLatin1(entry))->trigger();
    for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList())
        if (sub->widget()->objectName() == QLatin1String(screen))
            return sub->widget();
    return nullptr;
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
    }

    void bankListsTheCashAndTheTradesOfTheHoldingWithTheirSigns() {
        Database& db = m_program->store().database();
        test::addPortfolio(db, QStringLiteral("Growth"), QStringLiteral("2020-01-01"));
        db.execute(QStringLiteral(
            "insert into equity (fkPortfolioID, EquitySymbol, portname, VealieFlag, OriginalPrice, OriginalShares, "
            "OriginalCash, CurrentShares, CurrentCash, PortControl, cps, CurrentQuotePrice, LastTradePrice) "
            "values (1, 'INFY', 'Growth', 1, 100, 10, 1000, 10, 1000, 1000, 0, 100, 0)"));
        db.execute(QStringLiteral(
            "insert into trades (fkequityid, EquitySymbol, portname, TradeDate, Tradedshares, PricePerShare, "
            "Commission, Buyselltype) values (1, 'INFY', 'Growth', '2024-01-03', 10, 100, 8.5, 'Buy')"));
        MDIForm1View frame(*m_program);
        frame.show();
        test::selectHolding(m_program->frame(), QStringLiteral("INFY"), QStringLiteral("Growth"));

        AddRemoveCash& cash = m_program->module<AddRemoveCash>();
        const std::pair<CashMovement, const char*> movements[] = {{CashMovement::Deposit, "500"},
                                                                  {CashMovement::Withdrawal, "200.25"}};
        for (const auto& [movement, amount] : movements) {
            cash.prepare(movement);
            cash.Combo2.text = QStringLiteral("INFY");
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
