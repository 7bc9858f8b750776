// The screens trade, addremovecash and frmsplit on the offscreen platform: keys typed into the
// boxes, buttons clicked, the prompt answered from a script, the rows read back.
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "context/screens.h"
#include "ledger/addremovecash.h"
#include "ledger/frmsplit.h"
#include "ledger/trade.h"
#include "ledger/ui/addremovecash_view.h"
#include "ledger/ui/frmsplit_view.h"
#include "ledger/ui/trade_view.h"
#include "store/database.h"
#include "tests/support/grid_checks.h"
#include "tests/support/program_screen_test.h"
#include "tests/support/selection.h"
#include "tests/support/store_rows.h"

using namespace ostravel;

namespace {

const QString kPortfolio = QStringLiteral("Growth");

template <class T>
T* child(QWidget& screen, const char* name) {
    return screen.findChild<T*>(QString::fromLatin1(name));
}

}  // namespace

class TradeScreensTest : public test::ProgramScreenTest {
    Q_OBJECT
private:
    double scalar(const QString& sql) { return test::scalar(m_program->store().database(), sql).toDouble(); }
    double column(const QString& name) {
        return scalar(QStringLiteral("select ") + name + QStringLiteral(" from equity where EquitySymbol='INFY'"));
    }

private Q_SLOTS:
    void init() {
        QVERIFY(openProgram());
        Database& db = m_program->store().database();
        test::addPortfolio(db, kPortfolio, QStringLiteral("2020-01-01"));
        db.execute(QStringLiteral(
            "insert into equity (fkPortfolioID, EquitySymbol, portname, VealieFlag, OriginalPrice, OriginalShares, "
            "OriginalCash, CurrentShares, CurrentCash, PortControl, cps, CurrentQuotePrice, LastTradePrice) "
            "values (1, 'INFY', 'Growth', 1, 100, 10, 1000, 10, 1000, 1000, 0, 100, 0)"));
        db.execute(
            QStringLiteral("insert into trades (fkequityid, EquitySymbol, portname, TradeDate, Tradedshares, "
                           "PricePerShare, Commission, Buyselltype) values (1, 'INFY', 'Growth', "
                           "'2024-01-03', 10, 100, 8.5, 'Buy')"));
        db.execute(QStringLiteral("update users set BuyFee=0.85, SellFee=0.85"));
        test::selectHolding(m_program->frame(), QStringLiteral("INFY"), kPortfolio);
    }
    void cleanup() { closeProgram(); }

    void tradeTakesABuyTypedAndClicked() {
        Trade& state = m_program->module<Trade>();
        state.load();
        state.caption = Trade::kTradeCaption + m_program->frame().caption;
        TradeForm screen(*m_program);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QCOMPARE(screen.windowTitle(), QStringLiteral("Trade Details of  Ostravel - A Friendly Stock Consultant"));
        QCOMPARE(child<QLineEdit>(screen, "txtequity")->text(), QStringLiteral("INFY"));
        QCOMPARE(child<QPushButton>(screen, "cmddelete")->toolTip(), QStringLiteral("Delete The Selected trade"));
        QVERIFY(!child<QPushButton>(screen, "cmddelete")->isEnabled());
        auto* grid = child<QTableWidget>(screen, "MSFlexGrid1");
        QCOMPARE(grid->horizontalHeaderItem(6)->text(), QStringLiteral("Commision"));
        QCOMPARE(grid->item(1, 1)->text(), QStringLiteral("Total"));

        // Letters don't pass the numeric boxes.
        screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&screen));
        QCOMPARE(QApplication::focusWidget(), child<QLineEdit>(screen, "txtshare"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5x"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("12a0"));
        QCOMPARE(state.txtshare.text, QStringLiteral("5"));
        QCOMPARE(state.txtprice.text, QStringLiteral("120"));
        // Leaving the price proposes the commission.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), child<QLineEdit>(screen, "txtcommision"));
        QCOMPARE(child<QLineEdit>(screen, "txtcommision")->text(), QStringLiteral("5.10"));

        // Enter takes the trade: Add Trade is the screen's default button.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(m_prompt->asked().size(), 0);
        QCOMPARE(column(QStringLiteral("CurrentShares")), 15.0);
        QCOMPARE(column(QStringLiteral("CurrentCash")), 400.0);
        QVERIFY(!child<QPushButton>(screen, "cmdadd")->isEnabled());
        QCOMPARE(grid->rowCount(), 3);
        QCOMPARE(grid->item(2, 4)->text(), QStringLiteral("15"));
        QCOMPARE(test::clippedColumn(*grid), QString());

        // The new trade's key cell, then Delete.
        const QRect cell = grid->visualRect(grid->model()->index(1, 1));
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
        QVERIFY(child<QPushButton>(screen, "cmddelete")->isEnabled());
        QCOMPARE(child<QLineEdit>(screen, "txtshare")->text(), QStringLiteral("5"));
        QTest::mouseClick(child<QPushButton>(screen, "cmddelete"), Qt::LeftButton);
        QCOMPARE(scalar(QStringLiteral("select count(*) from trades")), 1.0);
        QCOMPARE(column(QStringLiteral("CurrentShares")), 10.0);
        QCOMPARE(grid->item(0, 2)->text(), QStringLiteral("03/01/2024"));

        // Esc leaves the screen open; Close unloads it.
        QTest::keyClick(&screen, Qt::Key_Escape);
        QVERIFY(screen.isVisible());
        QTest::mouseClick(child<QPushButton>(screen, "cmdclose"), Qt::LeftButton);
        QVERIFY(!screen.isVisible());
        QVERIFY(!state.loaded);
    }

    void addremovecashDepositsThroughTheScreen() {
        Screens& screens = m_program->module<Screens>();
        std::unique_ptr<AddRemoveCashForm> screen;
        screens.setOpener(QStringLiteral("addremovecash"), [&] {
            screen = std::make_unique<AddRemoveCashForm>(*m_program);
            screen->show();
        });
        showCashMovement(*m_program, CashMovement::Deposit);
        QVERIFY(screen);
        QVERIFY(QTest::qWaitForWindowExposed(screen.get()));
        QCOMPARE(screen->windowTitle(), QStringLiteral("Deposit Cash "));
        QCOMPARE(child<QPushButton>(*screen, "cmdupdate")->text(), QStringLiteral("Deposit Cash"));
        QVERIFY(child<QRadioButton>(*screen, "Option1")->isChecked());
        QVERIFY(!child<QRadioButton>(*screen, "Option2")->isEnabled());
        QVERIFY(!child<QRadioButton>(*screen, "Option3")->isEnabled());

        auto* combo2 = child<QComboBox>(*screen, "Combo2");
        QCOMPARE(combo2->count(), 1);
        Q_EMIT combo2->activated(0);
        QCOMPARE(child<QLabel>(*screen, "Label3")->text(),
                 QStringLiteral("You have Current Cash Rs 1000 for Infosys Limited, The Original Cash Was Rs.1000"));
        QTest::keyClicks(child<QLineEdit>(*screen, "txtamount"), QStringLiteral("25o0"));
        m_prompt->answer(Answer::Yes);
        QTest::mouseClick(child<QPushButton>(*screen, "cmdupdate"), Qt::LeftButton);
        QCOMPARE(m_prompt->messages(), QStringList{AddRemoveCash::kSure});
        QVERIFY(!screen->isVisible());
        QCOMPARE(column(QStringLiteral("CurrentCash")), 1250.0);
        QCOMPARE(column(QStringLiteral("OriginalCash")), 1250.0);
    }

    void addremovecashClosesOnEscape() {
        AddRemoveCashForm screen(*m_program);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QTest::keyClick(&screen, Qt::Key_Escape);
        QVERIFY(!screen.isVisible());
        QVERIFY(!m_program->module<AddRemoveCash>().loaded);
    }

    void frmsplitSplitsOneForTwo() {
        FrmSplitForm screen(*m_program);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QCOMPARE(screen.windowTitle(), QStringLiteral("Stock Split"));
        QCOMPARE(child<QLabel>(screen, "Label2")->text(), QStringLiteral("INFY has comleted a"));
        auto* combo1 = child<QComboBox>(screen, "Combo1");
        auto* combo2 = child<QComboBox>(screen, "Combo2");
        QCOMPARE(combo1->currentText(), QStringLiteral("2"));
        QCOMPARE(combo2->currentText(), QStringLiteral("1"));
        combo1->setCurrentIndex(0);
        combo2->setCurrentIndex(1);
        QTest::mouseClick(child<QPushButton>(screen, "Command1"), Qt::LeftButton);
        QVERIFY(!screen.isVisible());
        QCOMPARE(column(QStringLiteral("CurrentShares")), 5.0);

        FrmSplitForm again(*m_program);
        again.show();
        QVERIFY(QTest::qWaitForWindowExposed(&again));
        QTest::keyClick(&again, Qt::Key_Escape);
        QVERIFY(!again.isVisible());
        QCOMPARE(column(QStringLiteral("CurrentShares")), 5.0);
    }
};

QTEST_MAIN(TradeScreensTest)
#include "trade_screen_test.moc"
