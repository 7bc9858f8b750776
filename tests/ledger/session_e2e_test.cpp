// A user's session from an empty program folder: a portfolio, a holding with its setting trade,
// a buy and a sell through the equity manager's Add Trade, a deposit, a split, Recalculate.
// Every screen is driven through its state as its widget would drive it; the answers are
// scripted and every question is read back.
#include "context/screens.h"
#include "ledger/addremovecash.h"
#include "ledger/create.h"
#include "ledger/frmsplit.h"
#include "ledger/ledger_requests.h"
#include "ledger/newholding.h"
#include "ledger/trade.h"
#include "position/equitymanager.h"
#include "position/equitymanager_actions.h"
#include "position/setting.h"
#include "runtime/vbdate.h"
#include "store/database.h"
#include "tests/ledger/wizard_rows.h"
#include "tests/support/program_test.h"

namespace ostravel {
namespace {

const QString kPortfolio = QStringLiteral("Growth");

class SessionTest : public test::ProgramTest {
protected:
    void SetUp() override {
        // The main frame as the program starts it: "Simulation" chosen.
        m_program.frame().MDIForm_Load();
        installLedgerRequests(m_program);
    }

    Database& db() { return m_program.store().database(); }
    const QStringList& shown() { return m_program.module<Screens>().shown(); }
    EquityManager& em() { return m_program.module<EquityManager>(); }
    EquityManagerActions& equitymanager() { return m_program.module<EquityManagerActions>(); }

    double holding(const char* column) {
        return db()
            .openRecordset(QStringLiteral("select ") + QString::fromLatin1(column) +
                           QStringLiteral(" from equity where EquitySymbol='INFY' and portname='Growth'"))
            ->field(0)
            .toDouble();
    }

    // The trade screen as the user finishes it: the figures typed over the proposed ones.
    void trade(const QString& method, const char* shares, const char* price, const char* commission) {
        Trade& screen = m_program.module<Trade>();
        screen.setMethodIndex(method == Trade::kSell ? 1 : 0);
        screen.txtshare.text = QString::fromLatin1(shares);
        screen.txtprice.text = QString::fromLatin1(price);
        screen.txtcommision.text = QString::fromLatin1(commission);
        screen.cmdadd_Click();
        screen.cmdclose_Click();
    }
};

TEST_F(SessionTest, FromAnEmptyFolderToARecalculatedHolding) {
    const QString todayText = dateToString(today());

    // Portfolio Manager: a portfolio dated today, then "Next>" into the holding wizard.
    PortfolioWizard& create = m_program.module<PortfolioWizard>();
    create.load();
    create.Text1.text = kPortfolio;
    create.cmdadd_Click();
    create.cmdnext_Click();
    ASSERT_EQ(shown(), QStringList{"Newholding"});

    // The holding wizard: Infosys on the NSE, confirmed; it hands over to the setting trade.
    NewHolding& newholding = m_program.module<NewHolding>();
    ASSERT_EQ(newholding.cmbport.text, kPortfolio);
    newholding.txtequitysymbol.text = QStringLiteral("INFY");
    newholding.txtequitysymbol_Change();
    m_prompt.answer(Answer::Yes);
    newholding.cmdok_Click();
    ASSERT_EQ(shown().last(), QStringLiteral("trade"));
    ASSERT_TRUE(m_program.module<Trade>().Option1);

    // The setting trade: 100 shares at 100. Closing hands over to the settings of the rule.
    trade(Trade::kBuy, "100", "100", "50");
    ASSERT_EQ(shown().last(), QStringLiteral("setting"));
    Setting& setting = m_program.module<Setting>();
    setting.Form_Load();
    EXPECT_EQ(setting.txtbcash.text, QStringLiteral("6666.667"));  // two thirds of 10000 proposed
    setting.txtmsell.text = setting.txtmbuy.text = QStringLiteral("1000");
    setting.txtmtbuy.text = setting.txtmtsell.text = QStringLiteral("1");
    setting.txtbuyres.text = setting.txtsellres.text = QStringLiteral("10");
    setting.txtbcash.text = QStringLiteral("5000");
    setting.cmdok_Click();

    // The equity manager: Recalculate at the quote of 100, then Add Trade on the advised buy.
    m_program.frame().cmbequity = QStringLiteral("INFY.NS");
    equitymanager().Form_Activate();
    ASSERT_EQ(equitymanager().Command5_Click(), EquityManagerActions::Recalculated::Done);
    EXPECT_EQ(em().lbladvise.caption, QStringLiteral("HOLD"));
    ASSERT_EQ(equitymanager().cmdaddtrade_Click(), EquityManagerActions::TradeStart::Shown);
    // ((10000 - 1000) / 100) x (100 / 110) = 81.82, and 1000 rupees buy 12 of them.
    EXPECT_EQ(m_program.module<Trade>().txtprice.text, QStringLiteral("81.82"));
    EXPECT_EQ(m_program.module<Trade>().txtshare.text, QStringLiteral("12"));
    trade(Trade::kBuy, "10", "80", "8");

    // A sell, again opened from the equity manager.
    ASSERT_EQ(equitymanager().cmdaddtrade_Click(), EquityManagerActions::TradeStart::Shown);
    trade(Trade::kSell, "30", "125", "12");

    // A deposit of 1000 and a split of 2 for 1.
    AddRemoveCash& cash = m_program.module<AddRemoveCash>();
    cash.prepare(CashMovement::Deposit);
    cash.Combo1.text = kPortfolio;
    cash.Combo1_Click();
    cash.txtamount.text = QStringLiteral("1000");
    m_prompt.answer(Answer::Yes);
    cash.cmdupdate_Click();
    FrmSplit& split = m_program.module<FrmSplit>();
    split.load();
    split.Combo1.text = QStringLiteral("2");
    split.Combo2.text = QStringLiteral("1");
    split.Command1_Click();

    ASSERT_EQ(equitymanager().Command5_Click(), EquityManagerActions::Recalculated::Done);

    // Only the two confirmations were asked: no refusal, no error report.
    EXPECT_EQ(m_prompt.messages(), (QStringList{"Are You sure you have selected the Right Code",
                                                "Are you sure you have selected the right equity"}));
    EXPECT_TRUE(m_prompt.allAnswered());
    EXPECT_EQ(shown(), (QStringList{"Newholding", "trade", "setting", "trade", "trade"}));

    // The rows of the store.
    EXPECT_EQ(tableRows(db(), QStringLiteral("select PortfolioName, PortStartDate from portfolio")),
              QStringList{kPortfolio + QLatin1Char('|') + todayText});
    EXPECT_EQ(tableRows(db(), QStringLiteral("select Buyselltype, Tradedshares, PricePerShare, Commission, portname, "
                                             "EquitySymbol from trades order by pktradeid")),
              (QStringList{"Buy|100|100|50|Growth|INFY", "Buy|10|80|8|Growth|INFY", "Sell|-30|125|12|Growth|INFY"}));
    EXPECT_EQ(
        tableRows(db(), QStringLiteral("select count(*) from trades t join equity e on t.fkequityid = e.pkEquityID")),
        QStringList{"3"});
    const struct {
        const char* column;
        double value;
    } columns[] = {
        {"OriginalPrice", 100},
        {"OriginalShares", 100},
        {"OriginalCash", 6000},      // 5000 from the setting, 1000 deposited
        {"CurrentShares", 160},      // 100 + 10 - 30, doubled by the split
        {"CurrentQuotePrice", 125},  // the last trade's price
        {"LastTradePrice", 80},
        {"CurrentCash", 8950},     // 5000 - 800 + 3750 + 1000
        {"PortControl", 10400},    // 10000, and half of the buy's 800; the sell leaves it
        {"cps", 88.12},            // (100 x 100 + 800) / 110 = 98.18, then (98.18 x 110 - 3750) / 80
        {"nextsellprice", 79.17},  // ((1000 + 10400) / 160) x (100 / 90)
        {"nextsellshares", 13},
        {"nextbuyprice", 53.41},  // ((10400 - 1000) / 160) x (100 / 110)
        {"nextbuyshares", 19},
    };
    for (const auto& [column, value] : columns) EXPECT_NEAR(holding(column), value, 1e-4) << column;

    // The texts of the equity manager after Recalculate. At 125 the 160 shares are worth 20000,
    // 9600 above PortControl: a sale by the amounts, but the screen's previous figures (total
    // 17950, cash 7950) hold more than a third in cash, so no sell into the rise.
    const struct {
        const char* name;
        const QString& text;
        const char* expected;
    } texts[] = {
        {"lbladvise", em().lbladvise.caption, "HOLD"},
        {"txtnextsell", em().txtnextsell.text, "13"},
        {"txtnextsellshare", em().txtnextsellshare.text, "79.17"},
        {"txtnextbuy", em().txtnextbuy.text, "19"},
        {"txtnextbuyshare", em().txtnextbuyshare.text, "53.41"},
        {"txtcurrprice", em().txtcurrprice.text, "125"},
        {"txtcurrshare", em().txtcurrshare.text, "160"},
        {"txtcurrcash", em().txtcurrcash.text, "8950"},
        {"txtcurrstockvalue", em().txtcurrstockvalue.text, "20000"},
        {"txtcurrtotal", em().txtcurrtotal.text, "28950"},
        {"txtcurrcps", em().txtcurrcps.text, "88.12"},
        {"txtbegshare", em().txtbegshare.text, "100"},
        {"txtcashper", em().txtcashper.text, "49.17%"},  // (8950 - 6000) / 6000
        {"lblsell", em().lblsell.caption, "1"},
        {"lblbuy", em().lblbuy.caption, "2"},
        {"Label17(2)", em().Label17_2.caption, "Actual Trade"},
        {"caption", em().caption, "Infosys Limited"},
    };
    for (const auto& [name, text, expected] : texts) EXPECT_EQ(text, QString::fromUtf8(expected)) << name;
    EXPECT_EQ(em().txtnextsellshare.foreColour, kWhite);
    EXPECT_EQ(em().txtnextbuyshare.foreColour, kWhite);
    EXPECT_EQ(em().txtcashper.foreColour, kGreen);
}

}  // namespace
}  // namespace ostravel
