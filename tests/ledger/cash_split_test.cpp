// Cash movements and the stock split: the openers and their captions, the question before an
// update, the refusals, and the split's rounding through the whole-number format.
#include "context/screens.h"
#include "ledger/addremovecash.h"
#include "ledger/frmsplit.h"
#include "ledger/trade.h"
#include "tests/ledger/trade_fixture.h"

namespace ostravel {
namespace {

const Ledger kHolding{100, 10, 1000, 10, 1000, 1000, 0, 100, 0};

class CashTest : public LedgerTest {
protected:
    CashTest() {
        m_rows.addHolding(kInfy, kGrowth, kHolding);
        m_rows.addHolding(QStringLiteral("TCS"), kGrowth, kHolding);
        select(kInfy);
    }
    AddRemoveCash& open(CashMovement movement) {
        // The portfolio recordset of the run, as connection opened it, sees the new rows.
        showCashMovement(m_program, movement);
        return m_program.module<AddRemoveCash>();
    }
    void update(AddRemoveCash& cash, const QString& symbol, const QString& amount, Answer answer = Answer::Yes) {
        cash.Combo2.text = symbol;
        cash.txtamount.text = amount;
        m_prompt.answer(answer);
        cash.cmdupdate_Click();
    }
};

struct CaptionCase {
    CashMovement movement;
    const char* button;
    const char* form;
    int option;  // 1 to 3
};

class CashCaptionTest : public CashTest, public ::testing::WithParamInterface<CaptionCase> {};

TEST_P(CashCaptionTest, OpenerSetsItsOptionAndCaptions) {
    const CaptionCase& c = GetParam();
    AddRemoveCash& cash = open(c.movement);
    EXPECT_EQ(m_program.module<Screens>().shown(), QStringList{QStringLiteral("addremovecash")});
    EXPECT_EQ(cash.cmdupdate.caption, QString::fromLatin1(c.button));
    EXPECT_EQ(cash.caption, QString::fromLatin1(c.form));
    const OptionButton* options[] = {&cash.Option1, &cash.Option2, &cash.Option3};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(options[i]->value, i + 1 == c.option) << i + 1;
        EXPECT_EQ(options[i]->enabled, i + 1 == c.option) << i + 1;
    }
    EXPECT_EQ(cash.Combo1.items, QStringList{kGrowth});
    EXPECT_EQ(cash.Combo1.text, kGrowth);
    EXPECT_EQ(cash.Combo2.items, (QStringList{kInfy, QStringLiteral("TCS")}));
}

INSTANTIATE_TEST_SUITE_P(Movements, CashCaptionTest,
                         ::testing::Values(CaptionCase{CashMovement::Deposit, "Deposit Cash", "Deposit Cash ", 1},
                                           CaptionCase{CashMovement::Withdrawal, "Withdraw Cash", "Withdraw Cash ", 2},
                                           CaptionCase{CashMovement::Interest, "Add", "Add bank Interest or Dividend",
                                                       3}));

TEST_F(LedgerTest, CashMenuRefusesWithoutAPortfolio) {
    showCashMovement(m_program, CashMovement::Deposit);
    EXPECT_EQ(m_prompt.messages(), QStringList{AddRemoveCash::kNoPortfolio});
    EXPECT_TRUE(m_program.module<Screens>().shown().isEmpty());
    EXPECT_FALSE(m_program.module<AddRemoveCash>().loaded);
}

struct NothingCase {
    const char* name;
    CashMovement movement;
    const char* amount;
    Answer answer;
    QStringList messages;
};

void PrintTo(const NothingCase& c, std::ostream* out) {
    *out << c.name;
}

class CashNothingTest : public CashTest, public ::testing::WithParamInterface<NothingCase> {};

// The question comes first; then an amount of 0, an empty one, a No, or a withdrawal of the
// whole balance or more leaves the holding and the open screen as they were.
TEST_P(CashNothingTest, LeavesTheHoldingAndTheScreen) {
    const NothingCase& c = GetParam();
    AddRemoveCash& cash = open(c.movement);
    update(cash, kInfy, QString::fromLatin1(c.amount), c.answer);
    EXPECT_EQ(m_prompt.messages(), c.messages);
    EXPECT_EQ(m_prompt.asked().at(0).buttons, Buttons::YesNo);
    EXPECT_EQ(m_prompt.asked().at(0).icon, Icon::Information);
    EXPECT_TRUE(cash.loaded);
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_EQ(after.CurrentCash, 1000);
    EXPECT_EQ(after.OriginalCash, 1000);
}

const QStringList kSure{AddRemoveCash::kSure};
const QStringList kSureTooMuch{AddRemoveCash::kSure, AddRemoveCash::kTooMuch};

INSTANTIATE_TEST_SUITE_P(
    Refusals, CashNothingTest,
    ::testing::Values(NothingCase{"KeptQuestionBeforeAZeroAmount", CashMovement::Deposit, "0", Answer::Yes, kSure},
                      NothingCase{"ZeroWrittenOtherwise", CashMovement::Deposit, "0.0", Answer::Yes, kSure},
                      NothingCase{"EmptyAmount", CashMovement::Interest, "", Answer::Yes, kSure},
                      NothingCase{"AnsweredNo", CashMovement::Deposit, "50", Answer::No, kSure},
                      NothingCase{"KeptWholeBalanceRefused", CashMovement::Withdrawal, "1000", Answer::Yes,
                                  kSureTooMuch},
                      NothingCase{"BeyondTheBalance", CashMovement::Withdrawal, "1000.01", Answer::Yes, kSureTooMuch}),
    [](const auto& param) { return std::string(param.param.name); });

TEST_F(CashTest, UpdateUnloadsAndReadsTheAmountByVal) {
    AddRemoveCash& cash = open(CashMovement::Withdrawal);
    bool closed = false;
    cash.closeView = [&] { closed = true; };
    update(cash, QStringLiteral("TCS"), QStringLiteral("999.5.5"));
    EXPECT_TRUE(closed);
    EXPECT_FALSE(cash.loaded);
    EXPECT_DOUBLE_EQ(*m_rows.ledger(QStringLiteral("TCS"), kGrowth).CurrentCash, 0.5);
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentCash, 1000);
}

TEST_F(CashTest, HoldingChosenShowsItsBalance) {
    AddRemoveCash& cash = open(CashMovement::Deposit);
    cash.Combo2.text = kInfy;
    cash.Combo2_Click();
    EXPECT_EQ(cash.Label3.caption,
              QStringLiteral("You have Current Cash Rs 1000 for Infosys Limited, The Original Cash Was Rs.1000"));
    cash.Combo2.text = QStringLiteral("TCS");
    cash.Combo2_Change();
    EXPECT_EQ(cash.Label3.caption, QStringLiteral("You have Rs 1000 for "));
    // A code typed on the way to a holding leaves the line as it was.
    cash.Combo2.text = QStringLiteral("TC");
    cash.Combo2_Change();
    EXPECT_EQ(cash.Label3.caption, QStringLiteral("You have Rs 1000 for "));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

// A portfolio without holdings keeps the old list; the update then looks for the old symbol in
// the new portfolio, finds no row, and changes nothing.
TEST_F(CashTest, PortfolioWithoutHoldingsKeepsTheOldList) {
    m_rows.addPortfolio(QStringLiteral("Empty"));
    AddRemoveCash& cash = open(CashMovement::Deposit);
    cash.Combo1.text = QStringLiteral("Empty");
    cash.Combo1_Click();
    EXPECT_EQ(m_prompt.messages(), QStringList{AddRemoveCash::kNoEquity});
    EXPECT_EQ(cash.Combo2.items, (QStringList{kInfy, QStringLiteral("TCS")}));

    m_prompt.clear();
    m_prompt.answer(Answer::Yes);
    expectReports(1);
    cash.Combo2.text = kInfy;
    cash.txtamount.text = QStringLiteral("100");
    cash.cmdupdate_Click();
    ASSERT_EQ(m_prompt.messages().size(), 2);
    EXPECT_TRUE(isReport(m_prompt.messages().at(1), 3021, QStringLiteral("(Form) addremovecash::Sub cmdupdate_Click")));
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentCash, 1000);
    EXPECT_TRUE(cash.loaded);
}

TEST_F(CashTest, ChoosingAPortfolioRefillsTheHoldings) {
    m_rows.addHolding(QStringLiteral("WIPRO"), QStringLiteral("Other"), kHolding);
    AddRemoveCash& cash = open(CashMovement::Deposit);
    cash.Combo1.text = QStringLiteral("Other");
    cash.Combo1_Click();
    EXPECT_EQ(cash.Combo2.items, QStringList{QStringLiteral("WIPRO")});
    EXPECT_EQ(cash.Combo2.text, QStringLiteral("WIPRO"));
    EXPECT_TRUE(cash.Label3.caption.startsWith(QStringLiteral("You have Current Cash Rs 1000 for Wipro")));
}

struct SplitCase {
    double shares;
    const char* newShares;
    const char* oldShares;
    std::optional<double> after;
};

class SplitTest : public LedgerTest, public ::testing::WithParamInterface<SplitCase> {};

TEST_P(SplitTest, KeptSharesRoundedByTheWholeNumberFormat) {
    const SplitCase& c = GetParam();
    Ledger ledger = kHolding;
    ledger.CurrentShares = c.shares;
    ledger.cps = 87.5;
    m_rows.addHolding(kInfy, kGrowth, ledger);
    select(kInfy);
    showStockSplit(m_program);
    FrmSplit& split = m_program.module<FrmSplit>();
    split.Combo1.text = QString::fromLatin1(c.newShares);
    split.Combo2.text = QString::fromLatin1(c.oldShares);
    if (!c.after)
        expectReports(1);  // an exact 0 is an empty text, which the column refuses
    split.Command1_Click();

    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_EQ(after.CurrentShares, c.after.value_or(c.shares));
    // Only the shares move.
    EXPECT_EQ(after.cps, 87.5);
    EXPECT_EQ(after.OriginalShares, 10);
    EXPECT_EQ(after.CurrentCash, 1000);
    EXPECT_EQ(after.PortControl, 1000);
    EXPECT_EQ(split.loaded, !c.after.has_value());
}

INSTANTIATE_TEST_SUITE_P(Splits, SplitTest,
                         ::testing::Values(SplitCase{5, "1", "2", 3}, SplitCase{5, "2", "1", 10},
                                           SplitCase{5, "1", "3", 2}, SplitCase{7, "3", "2", 11},
                                           SplitCase{0, "2", "1", std::nullopt}));

TEST_F(LedgerTest, SplitLoadsASplitOfTwoForOne) {
    select(kInfy);
    showStockSplit(m_program);
    const FrmSplit& split = m_program.module<FrmSplit>();
    EXPECT_EQ(m_program.module<Screens>().shown(), QStringList{QStringLiteral("frmsplit")});
    EXPECT_EQ(split.Label2.caption, QStringLiteral("INFY has comleted a"));
    EXPECT_EQ(split.Combo1.items.size(), 50);
    EXPECT_EQ(split.Combo1.items.first(), QStringLiteral("1"));
    EXPECT_EQ(split.Combo2.items.last(), QStringLiteral("50"));
    EXPECT_EQ(split.Combo1.text, QStringLiteral("2"));
    EXPECT_EQ(split.Combo2.text, QStringLiteral("1"));
}

struct SplitRefusalCase {
    const char* portfolio;
    const char* equity;
    const char* message;
    const char* title;
    const char* focus;
};

class SplitRefusalTest : public LedgerTest, public ::testing::WithParamInterface<SplitRefusalCase> {};

TEST_P(SplitRefusalTest, SendsTheUserToTheFrame) {
    const SplitRefusalCase& c = GetParam();
    m_rows.addHolding(kInfy, kGrowth, kHolding);
    m_program.frame().cmbportfolio.text = QString::fromLatin1(c.portfolio);
    m_program.frame().cmbequity = QString::fromLatin1(c.equity);
    showStockSplit(m_program);
    FrmSplit& split = m_program.module<FrmSplit>();
    split.Command1_Click();
    ASSERT_EQ(m_prompt.asked().size(), 1);
    EXPECT_EQ(m_prompt.asked().at(0).text, QString::fromLatin1(c.message));
    EXPECT_EQ(m_prompt.asked().at(0).title, QString::fromLatin1(c.title));
    EXPECT_FALSE(split.loaded);
    EXPECT_EQ(split.frameFocus, QString::fromLatin1(c.focus));
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentShares, 10);
}

INSTANTIATE_TEST_SUITE_P(Selections, SplitRefusalTest,
                         ::testing::Values(SplitRefusalCase{"Simulation", "INFY.NS", "Please Select The Portfolio",
                                                            "Select Portfolio", "cmbportfolio"},
                                           SplitRefusalCase{"Growth", "Enter Equity", "Please Select The Equity Symbol",
                                                            "Select Equity", "cmbequity"}));

TEST_F(LedgerTest, SplitOfAHoldingNotInThePortfolioChangesNothing) {
    m_rows.addHolding(kInfy, kGrowth, kHolding);
    select(QStringLiteral("TCS"));
    showStockSplit(m_program);
    expectReports(1);
    m_program.module<FrmSplit>().Command1_Click();
    ASSERT_EQ(m_prompt.messages().size(), 1);
    EXPECT_TRUE(isReport(m_prompt.messages().at(0), 3021, QStringLiteral("(Form) frmsplit::Sub Command1_Click")));
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentShares, 10);
}

// No trade row records a split: the next trade sets the shares back to the sum of the trades.
TEST_F(LedgerTest, KeptNextTradeUndoesTheSplit) {
    m_rows.addHolding(kInfy, kGrowth, kHolding);
    m_rows.addTrade(kInfy, kGrowth, 10, 100, 1, QStringLiteral("Buy"));
    select(kInfy);
    showStockSplit(m_program);
    m_program.module<FrmSplit>().Command1_Click();
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentShares, 20);

    Trade& trade = m_program.module<Trade>();
    trade.load();
    trade.txtshare.text = QStringLiteral("1");
    trade.txtprice.text = QStringLiteral("50");
    trade.txtcommision.text = QStringLiteral("1");
    trade.cmdadd_Click();
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentShares, 11);
}

}  // namespace
}  // namespace ostravel
