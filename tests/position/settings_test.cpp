#include "position/equitymanager.h"
#include "position/frmmodel.h"
#include "position/setting.h"
#include "position/websetting.h"
#include "position_fixture.h"

namespace ostravel {
namespace {

class SettingsTest : public PositionTest {
protected:
    // A new users row leaves the quote wait empty, and OK can't save an empty box in it.
    SettingsTest() { execute(QStringLiteral("update users set SecondsForQuote=20")); }

    // The error boxes shown, by their places.
    QStringList errorPlaces() const {
        QStringList places;
        for (const Asked& asked : m_prompt.asked())
            if (asked.title == QStringLiteral("Error"))
                places << asked.text.section(QStringLiteral(" in "), 1).section(QLatin1Char('\n'), 0, 0);
        return places;
    }
};

TEST_F(SettingsTest, SettingProposesTwoThirdsOfTheAmountTraded) {
    struct Case {
        const char* name;
        std::vector<std::pair<double, double>> trades;  // shares, price
        QString proposed;
    };
    const Case cases[] = {
        {"no trades", {}, "0"},
        {"one trade", {{100, 50}}, "3333.333"},
        {"buys and a sell", {{100, 50}, {20, 100}, {-10, 60}}, "4266.667"},
    };
    const HoldingRow row;
    addHolding(row);
    select(row);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        execute(QStringLiteral("delete from trades"));
        for (const auto& [shares, price] : c.trades)
            addTrade(row, shares, price, shares < 0 ? QStringLiteral("Sell") : QStringLiteral("Buy"));
        Setting& setting = m_program.module<Setting>();
        setting.txtmsell.text = QStringLiteral("left from before");
        setting.Form_Load();
        EXPECT_EQ(setting.txtbcash.text, c.proposed);
        EXPECT_EQ(setting.txtmsell.text, QString());
    }
}

TEST_F(SettingsTest, SettingOkWritesTheRuleForAllAndTheCashForTheHolding) {
    const HoldingRow row;
    addHolding(row);
    select(row);
    Setting& setting = m_program.module<Setting>();
    setting.Form_Load();
    setting.txtmsell.text = QStringLiteral("1500");
    setting.txtmbuy.text = QStringLiteral("abc");  // the store can't take it
    setting.txtmtbuy.text = QStringLiteral("3");
    setting.txtmtsell.text = QStringLiteral("4");
    setting.txtbuyres.text = QStringLiteral("12");
    setting.txtsellres.text = QStringLiteral("8");
    setting.txtbcash.text = QStringLiteral("7000");
    int refilled = 0, unloaded = 0;
    m_program.frame().selectportfolio = [&] { ++refilled; };
    setting.unload = [&] { ++unloaded; };
    m_prompt.answer(Answer::OK);

    setting.cmdok_Click();

    EXPECT_EQ(errorPlaces(), QStringList{QStringLiteral("(Form) setting::Sub cmdOK_Click")});
    EXPECT_EQ(
        usersColumns({"MinTradeSell", "MinTradeBuy", "MinTradeBuySh", "MinTradeSellSh", "ResistBuy", "ResistSell"}),
        (QVariantList{1500.0, 1000.0, 3.0, 4.0, 12.0, 8.0}));
    EXPECT_EQ(stored(row, QStringLiteral("CurrentCash")), QStringLiteral("7000"));
    EXPECT_EQ(stored(row, QStringLiteral("OriginalCash")), QStringLiteral("7000"));
    EXPECT_EQ(refilled, 1);
    EXPECT_EQ(unloaded, 1);
}

TEST_F(SettingsTest, WebSettingLoadsEveryTab) {
    execute(
        QStringLiteral("update users set SecondsForQuote=500, QuoteDL=1, HistoryDL=0, QUICK=1, "
                       "eMail='a@b.in', BuyFee=0.5"));
    WebSetting& web = m_program.module<WebSetting>();
    web.Form_Load();
    ASSERT_EQ(web.Combo3.items.size(), 200);
    EXPECT_EQ(web.Combo3.items.front(), QStringLiteral("1"));
    EXPECT_EQ(web.Combo3.items.back(), QStringLiteral("200"));
    EXPECT_EQ(web.Combo3.text, QStringLiteral("500"));  // outside the list, shown as it stands
    EXPECT_EQ((QStringList{web.cmbgqs.text, web.cmbhs.text, web.txtmsell.text, web.txtfeebuy.text, web.txtsellres.text,
                           web.txtbshares.text, web.txtlastname.text, web.txtemail.text}),
              (QStringList{"User Entry", "Internet", "1000", "0.5", "10", "500", "Enter your surname", "a@b.in"}));
    EXPECT_EQ(web.Check2, 1);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(SettingsTest, KeptApplyOnTheFirstTabShiftsTheColumnsAndOkWritesThemRight) {
    struct Expected {
        const char* column;
        double afterApply;
        double afterOk;
    };
    const Expected expected[] = {
        {"MinTradeSell", 1100, 1100}, {"MinTradeBuy", 1200, 1200},   {"MinTradeBuySh", 2, 2}, {"MinTradeSellSh", 3, 3},
        {"BuyFee", 1200, 0.7},        {"SellFee", 0.7, 0.9},         {"ResistBuy", 0.9, 11},  {"ResistSell", 11, 12},
        {"SpareSetting", 12, 12},     {"BeginningShares", 400, 400},
    };
    WebSetting& web = m_program.module<WebSetting>();
    web.Form_Load();
    web.txtmsell.text = QStringLiteral("1100");
    web.txtmbuy.text = QStringLiteral("1200");
    web.txtmtbuy.text = QStringLiteral("2");
    web.txtmtsell.text = QStringLiteral("3");
    web.txtfeebuy.text = QStringLiteral("0.7");
    web.txtfeesell.text = QStringLiteral("0.9");
    web.txtbuyres.text = QStringLiteral("11");
    web.txtsellres.text = QStringLiteral("12");
    web.txtbshares.text = QStringLiteral("400");
    web.txtcashper.text = QStringLiteral("50");  // goes nowhere
    web.currentTab = WebSetting::kPositionTab;

    web.cmdapply_Click();
    for (const Expected& e : expected) {
        SCOPED_TRACE(e.column);
        EXPECT_EQ(usersColumn(QString::fromLatin1(e.column)), QVariant(e.afterApply));
    }
    web.cmdok_Click();
    for (const Expected& e : expected) {
        SCOPED_TRACE(e.column);
        EXPECT_EQ(usersColumn(QString::fromLatin1(e.column)), QVariant(e.afterOk));
    }
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(SettingsTest, KeptApplySavesTheOpenTabAloneAndOkAllButQuick) {
    WebSetting& web = m_program.module<WebSetting>();
    web.Form_Load();
    web.txtmsell.text = QStringLiteral("9999");
    web.cmbgqs.text = QStringLiteral("User Entry");
    web.cmbhs.text = QStringLiteral("User Entry");
    web.Combo3.text = QStringLiteral("30");
    web.txtlastname.text = QStringLiteral("Rao");
    web.Check2 = 1;

    web.currentTab = WebSetting::kServiceTab;
    web.cmdapply_Click();
    EXPECT_EQ(usersColumns({"QuoteDL", "HistoryDL", "SecondsForQuote", "MinTradeSell", "LastName"}),
              (QVariantList{1.0, 1.0, 30.0, 1000.0, QStringLiteral("Enter your surname")}));

    web.currentTab = WebSetting::kUserTab;
    web.cmdapply_Click();
    EXPECT_EQ(usersColumns({"LastName", "QUICK", "MinTradeSell"}), (QVariantList{QStringLiteral("Rao"), 1.0, 1000.0}));

    // OK saves every tab but QUICK.
    web.Check2 = 0;
    web.cmdok_Click();
    EXPECT_EQ(usersColumns({"MinTradeSell", "QUICK"}), (QVariantList{9999.0, 1.0}));
}

TEST_F(SettingsTest, KeptWebSettingLogsUnderTheNameWeb) {
    WebSetting& web = m_program.module<WebSetting>();
    web.Form_Load();
    web.txtmsell.text = QStringLiteral("abc");
    web.txtmbuy.text = QStringLiteral("1300");
    m_prompt.answer(Answer::OK);
    web.cmdok_Click();
    EXPECT_EQ(errorPlaces(), QStringList{QStringLiteral("(Form) web::Sub cmdOK_Click")});
    EXPECT_EQ(usersColumns({"MinTradeSell", "MinTradeBuy"}), (QVariantList{1000.0, 1300.0}));
}

TEST_F(SettingsTest, KeptModelAppendsItsSuffixButConservativeIsOutOfReach) {
    struct Case {
        int option;  // -1: none chosen
        QString name;
    };
    const Case cases[] = {{0, "Alpha-D"}, {1, "Alpha-B"}, {2, "Alpha"}, {-1, "Alpha"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name.toStdString());
        execute(QStringLiteral("delete from portfolio"));
        execute(QStringLiteral("insert into portfolio (fkUserID, PortfolioName) values (1, 'Alpha')"));
        FrmModel& model = m_program.module<FrmModel>();
        for (int i = 0; i < 3; ++i) model.Option1[i].value = i == c.option;
        int shown = 0;
        model.showNewholding = [&] { ++shown; };
        model.ModelNextButton_Click(QStringLiteral("Alpha"));
        EXPECT_EQ(scalar(QStringLiteral("select PortfolioName from portfolio")), QVariant(c.name));
        EXPECT_EQ(shown, 1);
    }
}

TEST_F(SettingsTest, EquityManagerSavesItsNineBoxes) {
    EquityManager& em = m_program.module<EquityManager>();
    loadusersetting(m_program);
    EXPECT_EQ(em.txtmtsell.text, QStringLiteral("1000"));
    EXPECT_EQ(em.txtfeesell.text, QStringLiteral("0.85"));
    EXPECT_EQ(em.txtbegincash.text, QStringLiteral("0"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());

    em.txtmtsell.text = QStringLiteral("abc");
    em.txtmstradebuy.text = QStringLiteral("7");
    em.txtfeesell.text = QStringLiteral("0.6");
    em.txtbegincash.text = QStringLiteral("20000");
    m_prompt.answer(Answer::OK);
    Command6_Click(m_program);
    EXPECT_EQ(errorPlaces(), QStringList{QStringLiteral("(Form) equitymanager::Sub Command6_Click")});
    EXPECT_EQ(usersColumns({"MinTradeSell", "MinTradeBuySh", "SellFee", "BeginningCash"}),
              (QVariantList{1000.0, 7.0, 0.6, 20000.0}));
}

TEST_F(SettingsTest, EquityManagerDatesFollowTheSampling) {
    EquityManager& em = m_program.module<EquityManager>();
    em.load();
    EXPECT_EQ(em.Combo1.items,
              (QStringList{QStringLiteral("Daily"), QStringLiteral("Weekly"), QStringLiteral("Monthly")}));
    EXPECT_EQ(em.dtedate - em.dtbdate, 365);
    const struct {
        const char* choice;
        double daysBack;
    } cases[] = {{"Weekly", 730}, {"Daily", 730}, {"Monthly", 1825}, {"Daily", 1825}};
    for (const auto& c : cases) {
        em.Combo1.text = QString::fromLatin1(c.choice);
        em.Combo1_Click();
        EXPECT_EQ(em.dtedate - em.dtbdate, c.daysBack) << c.choice;
    }
}

TEST_F(SettingsTest, EquityManagerShowsTheHoldingsPosition) {
    const HoldingRow row;  // 100 shares at 120, cash 5000; began with 100 at 100 and 4000 cash
    addHolding(row);
    select(row);
    goequitymanager(m_program);
    const EquityManager& em = m_program.module<EquityManager>();
    const QStringList shown{em.txtbegprice.text,  em.txtbegshare.text,  em.txtbegstockvalue.text,
                            em.txtbegtotal.text,  em.txtcurrprice.text, em.txtcurrstockvalue.text,
                            em.txtcurrtotal.text, em.txtcashper.text,   em.txtsvper.text,
                            em.txtcashrisk.text};
    EXPECT_EQ(shown, (QStringList{"100", "100", "10,000", "14,000", "120", "12000", "17000", "25%", "20%", "70.59%"}));
    EXPECT_EQ(em.txtcashper.foreColour, kGreen);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(SettingsTest, EquityManagerLogsAPercentageOfNothing) {
    const HoldingRow row;
    addHolding(row);
    execute(QStringLiteral("update equity set OriginalCash=0, CurrentCash=-10"));
    select(row);
    EquityManager& em = m_program.module<EquityManager>();
    em.txtcashper.text = QStringLiteral("before");
    m_prompt.answer(Answer::OK);
    goequitymanager(m_program);
    EXPECT_EQ(errorPlaces(), QStringList{QStringLiteral("(Module) Module1::Sub goequitymanager")});
    EXPECT_EQ(em.txtcashper.text, QStringLiteral("before"));
    EXPECT_EQ(em.txtcashper.foreColour, kRed);
    EXPECT_EQ(em.txtsvper.text, QStringLiteral("20%"));
}

}  // namespace
}  // namespace ostravel
