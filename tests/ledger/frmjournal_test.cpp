// The history of changes: the trade screen's Close, which takes a symbol's holdings in every
// portfolio, listed under its portfolios and brought back with the other portfolio's trades.
#include "ledger/frmjournal.h"

#include "ledger/trade.h"
#include "tests/ledger/trade_fixture.h"

namespace ostravel {
namespace {

const QString kOther = QStringLiteral("Other");

TEST_F(LedgerTest, HistoryListsTheCloseThatTookAnotherPortfoliosHoldingAndBringsItBack) {
    m_rows.addHolding(kInfy, kOther, {100, 10, 1000, 12, 800, 1100, 95, 110, 100});
    m_rows.addTrade(kInfy, kOther, 10, 100, 8.5, QStringLiteral("Buy"));
    m_rows.addTrade(kInfy, kOther, 2, 110, 1.9, QStringLiteral("Buy"));
    const Ledger before = m_rows.ledger(kInfy, kOther);
    m_rows.addHolding(kInfy, kGrowth, Ledger{});
    select(kInfy);
    Trade& trade = m_program.module<Trade>();
    trade.load();
    trade.cmdclose_Click();
    ASSERT_FALSE(m_rows.holdingExists(kInfy, kOther));

    FrmJournal& history = m_program.module<FrmJournal>();
    history.load();
    ASSERT_TRUE(history.Combo1.items.contains(kOther));
    history.Combo1.text = kOther;
    history.Combo_Click();
    ASSERT_FALSE(history.lines.empty());
    const FrmJournal::ActionLine& close = history.lines.front();
    EXPECT_EQ(close.cells.mid(1), (QStringList{"Close", "Other, Growth", "INFY", "2 deleted"}));
    EXPECT_TRUE(close.rows.contains(QStringLiteral("Deleted holding INFY of Other")));
    history.select(0);
    EXPECT_TRUE(history.cmdrestore.enabled);

    m_prompt.answer(Answer::Yes);
    history.cmdrestore_Click();
    EXPECT_EQ(m_prompt.messages().last(), QStringLiteral("Restored: 2 holdings."));
    EXPECT_EQ(m_rows.ledger(kInfy, kOther), before);
    EXPECT_EQ(m_rows.tradeCount(kInfy, kOther), 2);
    EXPECT_TRUE(m_rows.holdingExists(kInfy, kGrowth));
    EXPECT_EQ(history.lines.front().cells.at(1), QStringLiteral("Restore of Close"));

    // The same rows can't come back twice.
    history.select(1);
    m_prompt.answer(Answer::Yes);
    history.cmdrestore_Click();
    EXPECT_EQ(m_prompt.messages().last(), QStringLiteral("Nothing was restored: Other holds INFY again."));
}

}  // namespace
}  // namespace ostravel
