// The trade screen beyond the effect table: Add Trade's checks and messages in their order, the
// deposit offered when cash is short, what arrives in the boxes that is no number, the list with
// its total, the commission proposal, Delete by the current cell, Close and the date button.
#include "context/screens.h"
#include "ledger/addremovecash.h"
#include "ledger/trade.h"
#include "position/advice.h"
#include "position/setting.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "tests/ledger/trade_fixture.h"

namespace ostravel {
namespace {

const QString kAddPlace = QStringLiteral("(Form) trade::Sub cmdadd_Click");
const Ledger kOpened{100, 10, 1000, 10, 1000, 1000, 0, 100, 0};

class TradeScreenLogicTest : public LedgerTest {
protected:
    // A holding opened by a setting trade of 10 at 100, selected in the main frame.
    void openHolding(const Ledger& ledger = kOpened) {
        m_rows.addHolding(kInfy, kGrowth, ledger);
        m_rows.addTrade(kInfy, kGrowth, 10, 100, 12.5, QStringLiteral("Buy"));
        select(kInfy);
    }
    Trade& trade() {
        Trade& t = m_program.module<Trade>();
        t.load();
        return t;
    }
    void fill(const QString& share, const QString& price, const QString& commission, int method = 0) {
        trade().txtshare.text = share;
        trade().txtprice.text = price;
        trade().txtcommision.text = commission;
        trade().setMethodIndex(method);
    }
};

struct RefusalCase {
    const char* name;
    bool setting;  // a setting trade, on a holding without trades; else a trade on the opened holding
    const char* share;
    const char* price;
    const char* commission;
    int method;
    QList<Answer> answers;
    QStringList messages;
    Icon icon;
    const char* focus;
    const char* shareAfter;
};

void PrintTo(const RefusalCase& c, std::ostream* out) {
    *out << c.name;
}

const QString kLessCash = QStringLiteral(
    "You have only Rs.1000 do not have enough cash with you, Do you want to add more cash to your Equity Account");
const QString kTooFew = QStringLiteral("You Do not have 20 Shares To sell");

const RefusalCase kRefusals[] = {
    {"EmptyPrice", false, "5", "", "1", 0, {}, {Trade::kEmptyField}, Icon::None, "txtprice", "5"},
    {"EmptyShares", false, "", "100", "1", 0, {}, {Trade::kEmptyField}, Icon::None, "txtprice", ""},
    {"EmptyCommission", false, "5", "100", "", 0, {}, {Trade::kEmptyField}, Icon::None, "txtprice", "5"},
    {"EmptyBeforeZero", false, "0", "", "1", 0, {}, {Trade::kEmptyField}, Icon::None, "txtprice", "0"},
    {"ZeroPrice", false, "5", "0", "1", 0, {}, {Trade::kNullField}, Icon::None, "txtprice", "5"},
    {"ZeroShares", false, "0", "100", "1", 0, {}, {Trade::kNullField}, Icon::None, "txtprice", "0"},
    {"ZeroCommission", false, "5", "100", "0.00", 0, {}, {Trade::kNullField}, Icon::None, "txtprice", "5"},
    {"SettingSellNoTrades", true, "5", "100", "1", 1, {}, {Trade::kNothingToSell}, Icon::Information, "cmbmethod", "5"},
    {"BuyBeyondCashDeclined", false, "50", "100", "1", 0, {Answer::No}, {kLessCash}, Icon::None, "txtshare", ""},
    {"SellBeyondShares", false, "20", "100", "1", 1, {}, {kTooFew}, Icon::Critical, "txtshare", ""},
};

class TradeRefusalTest : public TradeScreenLogicTest, public ::testing::WithParamInterface<RefusalCase> {};

TEST_P(TradeRefusalTest, ShowsItsMessageAndWritesNothing) {
    const RefusalCase& c = GetParam();
    m_rows.addHolding(kInfy, kGrowth, c.setting ? Ledger{} : kOpened);
    if (!c.setting)
        m_rows.addTrade(kInfy, kGrowth, 10, 100, 12.5, QStringLiteral("Buy"));
    select(kInfy);
    const Ledger before = m_rows.ledger(kInfy, kGrowth);
    trade().Option1 = c.setting;
    fill(QString::fromLatin1(c.share), QString::fromLatin1(c.price), QString::fromLatin1(c.commission), c.method);
    for (Answer a : c.answers) m_prompt.answer(a);

    trade().cmdadd_Click();

    EXPECT_EQ(m_prompt.messages(), c.messages);
    EXPECT_EQ(m_prompt.asked().last().icon, c.icon);
    EXPECT_EQ(trade().focus, QString::fromLatin1(c.focus));
    EXPECT_EQ(trade().txtshare.text, QString::fromLatin1(c.shareAfter));
    EXPECT_TRUE(trade().cmdadd.enabled);
    EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), c.setting ? 0 : 1);
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_EQ(after.CurrentCash, before.CurrentCash);
    EXPECT_EQ(after.CurrentShares, before.CurrentShares);
    EXPECT_TRUE(m_prompt.allAnswered());
}

INSTANTIATE_TEST_SUITE_P(Checks, TradeRefusalTest, ::testing::ValuesIn(kRefusals),
                         [](const auto& param) { return std::string(param.param.name); });

// Only the exact texts "0" and "0.00" are refused: these pass.
TEST_F(TradeScreenLogicTest, KeptZeroWrittenOtherwisePassesTheZeroTest) {
    for (const auto& [share, commission] : {std::pair{"0.0", "1"}, std::pair{"2", "0"}}) {
        openHolding();
        fill(QString::fromLatin1(share), QStringLiteral("100"), QString::fromLatin1(commission));
        trade().cmdadd_Click();
        EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), 2) << share << " " << commission;
        m_program.store().database().execute(QStringLiteral("delete from trades"));
        m_program.store().database().execute(QStringLiteral("delete from equity"));
        trade().unload();
    }
}

TEST_F(TradeScreenLogicTest, KeptDepositIsOfferedAndTheBuyGoesOnBelowZero) {
    openHolding();
    Screens& screens = m_program.module<Screens>();
    QString buttonCaption, formCaption;
    bool option1 = false, others = true;
    screens.setOpener(QStringLiteral("addremovecash"), [&] {
        AddRemoveCash& cash = m_program.module<AddRemoveCash>();
        buttonCaption = cash.cmdupdate.caption;
        formCaption = cash.caption;
        option1 = cash.Option1.value && cash.Option1.enabled;
        others = cash.Option2.enabled || cash.Option3.enabled;
        cash.Combo2.text = kInfy;
        cash.txtamount.text = QStringLiteral("100");
        m_prompt.answer(Answer::Yes);
        cash.cmdupdate_Click();
    });
    fill(QStringLiteral("5"), QStringLiteral("300"), QStringLiteral("1"));
    m_prompt.answer(Answer::Yes);

    trade().cmdadd_Click();

    EXPECT_EQ(m_prompt.messages(), (QStringList{kLessCash, AddRemoveCash::kSure}));
    EXPECT_EQ(m_prompt.asked().at(0).title, Trade::kLessCashTitle);
    EXPECT_EQ(m_prompt.asked().at(0).buttons, Buttons::YesNo);
    EXPECT_EQ(screens.shown(), QStringList{QStringLiteral("addremovecash")});
    EXPECT_EQ(buttonCaption, QStringLiteral("Deposit Cash"));
    EXPECT_EQ(formCaption, QStringLiteral("Deposit Cash "));
    EXPECT_TRUE(option1);
    EXPECT_FALSE(others);
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_EQ(after.CurrentCash, 1000 + 100 - 1500);
    EXPECT_EQ(after.OriginalCash, 1100);
    EXPECT_EQ(after.CurrentShares, 15);
}

TEST_F(TradeScreenLogicTest, KeptSellOfAllSharesLeavesCpsAndLogs) {
    openHolding(Ledger{100, 10, 1000, 10, 1000, 1000, 95.5, 100, 0});
    fill(QStringLiteral("10"), QStringLiteral("150"), QStringLiteral("1"), 1);
    expectReports(1);
    // The advice then finds no shares.
    trade().cmdadd_Click();

    const QStringList messages = m_prompt.messages();
    ASSERT_GE(messages.size(), 1);
    EXPECT_TRUE(isReport(messages.at(0), 11, kAddPlace)) << messages.at(0).toStdString();
    ASSERT_EQ(errorLog().size(), 1);
    EXPECT_TRUE(errorLog().at(0).contains(kAddPlace));
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_EQ(after.CurrentShares, 0);
    EXPECT_EQ(after.CurrentCash, 2500);
    EXPECT_FLOAT_EQ(float(*after.cps), 95.5f);
    EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), 2);
}

// Each box is read by Val, the same figure in the row and in the arithmetic; a date caption that
// is no date is logged, and the holding is still written whole.
TEST_F(TradeScreenLogicTest, TextsThatAreNoNumberAreReadByVal) {
    openHolding();
    fill(QStringLiteral("2.5.1"), QStringLiteral("1.2.3"), QStringLiteral("0.5.5"));
    trade().cmdadd_Click();
    EXPECT_TRUE(m_prompt.messages().isEmpty()) << m_prompt.messages().join(QLatin1Char('\n')).toStdString();
    for (const auto& [column, value] : {std::pair{"PricePerShare", 1.2}, {"Tradedshares", 2.5}, {"Commission", 0.5}})
        EXPECT_DOUBLE_EQ(
            m_rows.scalar(QStringLiteral("select %1 from trades where pktradeid=2").arg(column)).toDouble(), value);
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_DOUBLE_EQ(*after.CurrentCash, 1000 - 1.2 * 2.5);
    EXPECT_DOUBLE_EQ(*after.CurrentShares, 12.5);
}

TEST_F(TradeScreenLogicTest, DateCaptionThatIsNoDateIsLoggedAndTheHoldingStillWhole) {
    openHolding();
    fill(QStringLiteral("5"), QStringLiteral("120"), QStringLiteral("1"));
    trade().cmddate.caption = kInfy;
    expectReports(2);
    trade().cmdadd_Click();
    // The date column refuses the text; then the list can't show the empty date.
    ASSERT_EQ(m_prompt.messages().size(), 2);
    EXPECT_TRUE(isReport(m_prompt.messages().at(0), 3421, kAddPlace)) << m_prompt.messages().at(0).toStdString();
    EXPECT_TRUE(isReport(m_prompt.messages().at(1), 94, kAddPlace)) << m_prompt.messages().at(1).toStdString();
    EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), 2);
    EXPECT_FALSE(m_rows.scalar(QStringLiteral("select TradeDate from trades where pktradeid=2")).isValid());
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_EQ(after.CurrentShares, 15);
    EXPECT_EQ(after.CurrentCash, 400);
    EXPECT_EQ(after.PortControl, 1300);
}

TEST_F(TradeScreenLogicTest, KeptAddTakesOneTradeAndAdvisesOnlyInNormalMode) {
    openHolding();
    fill(QStringLiteral("5"), QStringLiteral("120"), QStringLiteral("1"));
    trade().cmdadd_Click();
    EXPECT_FALSE(trade().cmdadd.enabled);
    EXPECT_EQ(trade().focus, QStringLiteral("cmdclose"));
    EXPECT_GT(m_rows.scalar(QStringLiteral("select NextSellPrice from equity")).toDouble(), 0);

    m_rows.addHolding(QStringLiteral("TCS"), kGrowth, Ledger{});
    select(QStringLiteral("TCS"));
    trade().unload();
    trade().Option1 = true;
    fill(QStringLiteral("5"), QStringLiteral("120"), QStringLiteral("1"));
    trade().cmdadd_Click();
    EXPECT_EQ(m_rows.scalar(QStringLiteral("select NextSellPrice from equity where EquitySymbol='TCS'")).toDouble(), 0);
}

TEST_F(TradeScreenLogicTest, LoadListsTheTradesWithATotalRowGrowingTheGrid) {
    m_rows.addHolding(kInfy, kGrowth, kOpened);
    const double commissions[] = {100.5, 23.25, 1000, 0.25, 0.5};
    for (double c : commissions) m_rows.addTrade(kInfy, kGrowth, 2, 100, c, QStringLiteral("Buy"), "2006-02-17");
    m_rows.addHolding(kInfy, QStringLiteral("Other"), kOpened);
    m_rows.addTrade(kInfy, QStringLiteral("Other"), 7, 100, 1, QStringLiteral("Buy"));
    select(kInfy);

    const FlexGridData& grid = trade().MSFlexGrid1;
    EXPECT_EQ(grid.formatString(), Trade::kGridFormat);
    EXPECT_EQ(grid.colWidth(1), 1000);
    EXPECT_EQ(grid.colWidth(7), 1000);
    ASSERT_EQ(grid.rows(), 7);
    const auto row = [&](int r) {
        QStringList texts;
        for (int c = 0; c < 8; ++c) texts << grid.textMatrix(r, c);
        return texts;
    };
    EXPECT_EQ(row(1), (QStringList{" 1", "1", kInfy, "17/02/2006", "2", "100", "100.5", "Buy"}));
    EXPECT_EQ(grid.textMatrix(5, 0), QStringLiteral(" 5"));
    // 1124.5 through "###,##"
    EXPECT_EQ((QStringList{grid.textMatrix(6, 1), grid.textMatrix(6, 4), grid.textMatrix(6, 6)}),
              (QStringList{"Total", "10", "11,25"}));
    EXPECT_EQ(trade().txtequity.text, kInfy);
    EXPECT_EQ(trade().cmbmethod.text, Trade::kBuy);
    EXPECT_EQ(trade().cmddate.caption, formatDate(today(), QStringLiteral("Short Date")));
    EXPECT_FALSE(trade().cmddelete.enabled);
    EXPECT_FALSE(trade().DatePicker1Visible);
}

TEST_F(TradeScreenLogicTest, LoadOfAHoldingWithoutTradesPassesTheEmptySumsOver) {
    m_rows.addHolding(kInfy, kGrowth, Ledger{});
    select(kInfy);
    EXPECT_EQ(trade().MSFlexGrid1.textMatrix(1, 1), QStringLiteral("Total"));
    EXPECT_EQ(trade().MSFlexGrid1.textMatrix(1, 4), QString());
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(TradeScreenLogicTest, LoadWithoutASymbolListsNothing) {
    m_program.frame().cmbequity = Trade::kEnterEquity;
    EXPECT_EQ(trade().MSFlexGrid1.rows(), 2);
    EXPECT_EQ(trade().MSFlexGrid1.textMatrix(1, 1), QString());
}

struct CommissionCase {
    int method;
    const char* price;
    const char* shares;
    const char* commission;  // what the box holds afterwards
    const char* focus;
};

class CommissionTest : public TradeScreenLogicTest, public ::testing::WithParamInterface<CommissionCase> {};

TEST_P(CommissionTest, ProposesTheFeeOfTheMethod) {
    const CommissionCase& c = GetParam();
    m_program.store().database().execute(QStringLiteral("update users set BuyFee=0.85, SellFee=0.5"));
    trade().setMethodIndex(c.method);
    trade().txtprice.text = QString::fromLatin1(c.price);
    trade().txtshare.text = QString::fromLatin1(c.shares);
    trade().txtcommision.text = QStringLiteral("typed");
    trade().txtprice_LostFocus();
    EXPECT_EQ(trade().txtcommision.text, QString::fromLatin1(c.commission));
    EXPECT_EQ(trade().focus, QString::fromLatin1(c.focus));
}

INSTANTIATE_TEST_SUITE_P(Fees, CommissionTest,
                         ::testing::Values(CommissionCase{0, "100", "10", "8.50", ""},
                                           CommissionCase{1, "100", "10", "5.00", ""},
                                           CommissionCase{0, "10", "1", "0.09", ""},
                                           CommissionCase{1, "1.2.3", "", "0.00", ""},
                                           CommissionCase{0, "", "10", "typed", "txtshare"},
                                           CommissionCase{0, "0", "10", "typed", "txtshare"}));

TEST_F(TradeScreenLogicTest, RowClickFillsTheBoxesAndEnablesDelete) {
    openHolding();
    trade().MSFlexGrid1_Click(1, 4);
    EXPECT_EQ(
        (QStringList{trade().cmddate.caption, trade().txtprice.text, trade().txtshare.text, trade().txtcommision.text}),
        (QStringList{"03/01/2024", "100", "10", "12.5"}));
    EXPECT_TRUE(trade().cmddelete.enabled);
}

// After a delete the list names the date before the symbol: the two stand under each other's
// headings, and a row clicked then puts the symbol on the date button.
TEST_F(TradeScreenLogicTest, KeptSwappedSymbolAndDateAfterDelete) {
    openHolding();
    const long long second = m_rows.addTrade(kInfy, kGrowth, 5, 120, 1, QStringLiteral("Buy"));
    m_rows.addTrade(kInfy, kGrowth, 1, 130, 1, QStringLiteral("Buy"));
    trade().MSFlexGrid1_Click(2, Trade::kTradeIdCol);
    ASSERT_EQ(trade().MSFlexGrid1.textMatrix(2, 1), QString::number(second));
    trade().cmddelete_Click();

    const FlexGridData& grid = trade().MSFlexGrid1;
    EXPECT_EQ(grid.textMatrix(0, 2), QStringLiteral("Symbol"));
    EXPECT_EQ(grid.textMatrix(1, 2), QStringLiteral("03/01/2024"));
    EXPECT_EQ(grid.textMatrix(1, 3), kInfy);
    EXPECT_EQ(grid.textMatrix(3, 1), QStringLiteral("Total"));
    EXPECT_EQ(grid.textMatrix(3, 4), QStringLiteral("11"));
    EXPECT_FALSE(trade().cmddelete.enabled);
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentShares, 11);
    trade().MSFlexGrid1_Click(1, 0);
    EXPECT_EQ(trade().cmddate.caption, kInfy);

    trade().unload();
    EXPECT_EQ(trade().MSFlexGrid1.textMatrix(1, 2), kInfy);
}

// The key is the current cell's text: a cell outside the Trade ID column selects by its text.
TEST_F(TradeScreenLogicTest, KeptDeleteKeyedOnGridCellText) {
    openHolding();
    m_rows.addTrade(kInfy, kGrowth, 1, 130, 1, QStringLiteral("Buy"));
    trade().MSFlexGrid1_Click(2, 0);  // " 2": the running number names the second trade
    trade().cmddelete_Click();
    EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), 1);

    trade().MSFlexGrid1_Click(1, 7);  // "Buy": no trade at all
    expectReports(1);
    trade().cmddelete_Click();
    ASSERT_EQ(m_prompt.messages().size(), 1);
    EXPECT_TRUE(m_prompt.messages().at(0).contains(kAddPlace));
    EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), 1);
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentShares, 10);
}

TEST_F(TradeScreenLogicTest, KeptDeleteOfTheLastTradeEmptiesSharesAndLogsTheEmptyTotal) {
    openHolding();
    trade().MSFlexGrid1_Click(1, Trade::kTradeIdCol);
    expectReports(3);
    trade().cmddelete_Click();

    // The division by the shares left fails, then the empty total goes to the log twice, and
    // the advice finds no shares.
    const QStringList messages = m_prompt.messages();
    ASSERT_EQ(messages.size(), 4) << messages.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(isReport(messages.at(0), 11, kAddPlace));
    EXPECT_TRUE(isReport(messages.at(1), 94, kAddPlace));
    EXPECT_TRUE(isReport(messages.at(2), 94, kAddPlace));
    EXPECT_EQ(messages.at(3), kNoSharesMessage + kInfy);
    EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), 0);
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_FALSE(after.CurrentShares.has_value());
    EXPECT_EQ(after.CurrentCash, 2000);
    EXPECT_EQ(after.PortControl, 500);
    EXPECT_EQ(trade().MSFlexGrid1.textMatrix(0, 1), QString());
    EXPECT_EQ(trade().MSFlexGrid1.textMatrix(1, 1), QStringLiteral("Total"));
}

// Seen: a trade of one holding deleted at 110, then INFY at 1500 advised "BUY 627 @ Rs 110".
TEST_F(TradeScreenLogicTest, AdviceAfterDeletingATradeKeptTheDeletedHoldingsPrice) {
    const QString tcs = QStringLiteral("TCS");
    m_rows.addHolding(kInfy, kGrowth, {100, 100, 10000, 100, 5000, 200000, 0, 1500, 0});
    m_rows.addHolding(tcs, kGrowth, {100, 10, 1000, 11, 1000, 1000, 0, 110, 0});
    m_rows.addTrade(tcs, kGrowth, 10, 100, 1, QStringLiteral("Buy"));
    m_rows.addTrade(tcs, kGrowth, 1, 110, 1, QStringLiteral("Buy"));
    select(tcs);
    trade().MSFlexGrid1_Click(2, Trade::kTradeIdCol);
    trade().cmddelete_Click();
    EXPECT_EQ(m_program.module<AdviceValues>().adviseprice, 0);

    select(kInfy);
    advise(m_program);
    EXPECT_EQ(m_rows.scalar(QStringLiteral("select NextBuyPrice from equity where EquitySymbol='INFY'")).toDouble(),
              1500);
}

TEST_F(TradeScreenLogicTest, KeptCloseWithoutTradesRemovesTheSymbolInEveryPortfolio) {
    m_rows.addHolding(kInfy, kGrowth, Ledger{});
    m_rows.addHolding(kInfy, QStringLiteral("Other"), Ledger{});
    m_rows.addHolding(QStringLiteral("TCS"), kGrowth, Ledger{});
    select(kInfy);
    bool closed = false;
    trade().closeView = [&] { closed = true; };
    trade().cmdclose_Click();
    EXPECT_TRUE(closed);
    EXPECT_FALSE(m_rows.holdingExists(kInfy, kGrowth));
    EXPECT_FALSE(m_rows.holdingExists(kInfy, QStringLiteral("Other")));
    EXPECT_TRUE(m_rows.holdingExists(QStringLiteral("TCS"), kGrowth));
    EXPECT_FALSE(m_program.module<Trade>().loaded);
}

TEST_F(TradeScreenLogicTest, CloseAfterASettingTradeHandsOverToSetting) {
    openHolding();
    trade().Option1 = true;
    trade().cmdclose_Click();
    EXPECT_EQ(m_program.module<Screens>().shown(), QStringList{QStringLiteral("setting")});
    EXPECT_EQ(m_program.module<Setting>().caption, QStringLiteral("Setting for ") + m_program.frame().caption);
    EXPECT_TRUE(m_rows.holdingExists(kInfy, kGrowth));
    EXPECT_FALSE(m_program.module<Trade>().loaded);
}

TEST_F(TradeScreenLogicTest, CloseInNormalModeOnlyUnloads) {
    openHolding();
    trade().txtshare.text = QStringLiteral("7");
    trade().cmdclose_Click();
    EXPECT_TRUE(m_program.module<Screens>().shown().isEmpty());
    EXPECT_TRUE(m_rows.holdingExists(kInfy, kGrowth));
    EXPECT_EQ(trade().txtshare.text, QString());
}

// The screens' test drives the date button's OK and the help: here what only the trade form
// has, a Cancel that keeps the date and a click on the form that closes the calendar.
TEST_F(TradeScreenLogicTest, DateCancelKeepsTheDateAndAFormClickClosesTheCalendar) {
    trade().cmddate_Click();
    trade().DatePicker1_OK(dateSerial(QDate(2006, 2, 17)));
    trade().cmddate_Click();
    trade().DatePicker1_Cancel();
    EXPECT_FALSE(trade().DatePicker1Visible);
    EXPECT_EQ(trade().cmddate.caption, QStringLiteral("17/Feb/2006"));
    trade().cmddate_Click();
    trade().Form_Click();
    EXPECT_FALSE(trade().DatePicker1Visible);
}

}  // namespace
}  // namespace ostravel
