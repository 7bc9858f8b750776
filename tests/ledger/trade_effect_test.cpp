// Every ledger event against every ledger column: the setting trade, a buy, a sell, the deletes
// of a buy and of a sell, the three cash movements and a split, each on a real database file.
#include <cmath>
#include <vector>

#include "ledger/addremovecash.h"
#include "ledger/frmsplit.h"
#include "ledger/trade.h"
#include "tests/ledger/trade_fixture.h"

namespace ostravel {
namespace {

enum class Event { SettingTrade, Buy, Sell, DeleteBuy, DeleteSell, Deposit, Withdrawal, Interest, Split };

struct TradeRow {
    double shares;
    double price;
    const char* kind;
};

struct EffectCase {
    const char* name;
    Ledger before;
    std::vector<TradeRow> trades;
    Event event;
    double shares;  // the trade's shares, the amount of cash, or the split's new shares for 1
    double price;
    const char* method;
    Ledger after;
    int tradesAfter;
};

void PrintTo(const EffectCase& c, std::ostream* out) {
    *out << c.name;
}

// After the setting trade of 10 shares at 100.
const Ledger kOpened{100, 10, 1000, 10, 1000, 1000, 0, 100, 0};
const std::vector<TradeRow> kOpenedTrades{{10, 100, "Buy"}};
// kOpened after a buy of 5 at 120, and after a sell of 4 at 150.
const Ledger kBought{100, 10, 1000, 15, 400, 1300, 106.67, 120, 100};
const std::vector<TradeRow> kBoughtTrades{{10, 100, "Buy"}, {5, 120, "Buy"}};
const Ledger kSold{100, 10, 1000, 6, 1600, 1000, 66.67, 150, 100};
const std::vector<TradeRow> kSoldTrades{{10, 100, "Buy"}, {-4, 150, "Sell"}};
// One share at one rupee, where the rounding of the cost shows.
const Ledger kPenny{1, 1, 1000, 1, 1000, 1000, 0, 1, 0};
const std::vector<TradeRow> kPennyTrades{{1, 1, "Buy"}};

const EffectCase kCases[] = {
    {"FirstSettingTrade",
     Ledger{},
     {},
     Event::SettingTrade,
     10,
     100,
     "Buy",
     Ledger{100, 10, 1000, 10, 1000, 1000, 0, 100, 0},
     1},
    {"SecondSettingTradeAverages", kOpened, kOpenedTrades, Event::SettingTrade, 5, 130, "Buy",
     Ledger{110, 15, 1650, 15, 1650, 1650, 0, 130, 0}, 2},
    {"SettingSellSubtracts", kOpened, kOpenedTrades, Event::SettingTrade, 4, 120, "Sell",
     Ledger{520.0 / 6, 6, 520, 6, 520, 520, 0, 120, 0}, 2},
    {"Buy", kOpened, kOpenedTrades, Event::Buy, 5, 120, "Buy", kBought, 2},
    {"Sell", kOpened, kOpenedTrades, Event::Sell, 4, 150, "Sell", kSold, 2},
    // 5 / 3 is 1.67 through "####.##".
    {"KeptCostRoundedThroughItsText", kPenny, kPennyTrades, Event::Buy, 2, 2, "Buy",
     Ledger{1, 1, 1000, 3, 996, 1002, 1.67, 2, 1}, 2},
    {"DeleteOfABuy", kBought, kBoughtTrades, Event::DeleteBuy, 0, 0, "",
     Ledger{100, 10, 1000, 10, 1000, 1000, 100, 120, 100}, 1},
    {"KeptDeleteRoundsCashToWholeRupees", Ledger{100, 10, 1000, 15, 400.4, 1300, 106.67, 120, 100}, kBoughtTrades,
     Event::DeleteBuy, 0, 0, "", Ledger{100, 10, 1000, 10, 1000, 1000, 100, 120, 100}, 1},
    {"DeleteOfASell", kSold, kSoldTrades, Event::DeleteSell, 0, 0, "",
     Ledger{100, 10, 1000, 10, 1000, 1000, 100, 150, 100}, 1},
    {"Deposit", kOpened, kOpenedTrades, Event::Deposit, 500, 0, "", Ledger{100, 10, 1500, 10, 1500, 1000, 0, 100, 0},
     1},
    {"KeptWithdrawalLeavesOriginalCash", kOpened, kOpenedTrades, Event::Withdrawal, 300, 0, "",
     Ledger{100, 10, 1000, 10, 700, 1000, 0, 100, 0}, 1},
    {"Interest", kOpened, kOpenedTrades, Event::Interest, 50, 0, "", Ledger{100, 10, 1000, 10, 1050, 1000, 0, 100, 0},
     1},
    {"SplitTwoForOne", kOpened, kOpenedTrades, Event::Split, 2, 0, "", Ledger{100, 10, 1000, 20, 1000, 1000, 0, 100, 0},
     1},
};

class TradeEffectTest : public LedgerTest, public ::testing::WithParamInterface<EffectCase> {
protected:
    void addTrade(double shares, double price, const QString& method) {
        Trade& trade = m_program.module<Trade>();
        trade.load();
        trade.txtshare.text = QString::number(shares);
        trade.txtprice.text = QString::number(price);
        trade.txtcommision.text = QStringLiteral("8.50");
        trade.setMethodIndex(method == Trade::kBuy ? 0 : 1);
        trade.cmdadd_Click();
    }
    void deleteTrade(long long id) {
        Trade& trade = m_program.module<Trade>();
        trade.load();
        for (int row = 1; row < trade.MSFlexGrid1.rows(); ++row)
            if (trade.MSFlexGrid1.textMatrix(row, Trade::kTradeIdCol) == QString::number(id))
                trade.MSFlexGrid1_Click(row, Trade::kTradeIdCol);
        ASSERT_TRUE(trade.cmddelete.enabled) << "no row of trade " << id;
        trade.cmddelete_Click();
    }
    void moveCash(CashMovement movement, double amount) {
        showCashMovement(m_program, movement);
        AddRemoveCash& cash = m_program.module<AddRemoveCash>();
        cash.Combo2.text = kInfy;
        cash.Combo2_Click();
        cash.txtamount.text = QString::number(amount);
        m_prompt.answer(Answer::Yes);
        cash.cmdupdate_Click();
    }
};

void expectColumn(const char* column, const std::optional<double>& actual, const std::optional<double>& expected) {
    ASSERT_EQ(actual.has_value(), expected.has_value()) << column;
    if (expected) {
        EXPECT_NEAR(*actual, *expected, 1e-4 * std::max(1.0, std::abs(*expected))) << column;
    }
}

TEST_P(TradeEffectTest, ChangesEachColumnAsTheTableSays) {
    const EffectCase& c = GetParam();
    m_rows.addHolding(kInfy, kGrowth, c.before);
    std::vector<long long> ids;
    for (const TradeRow& t : c.trades)
        ids.push_back(m_rows.addTrade(kInfy, kGrowth, t.shares, t.price, 5, QString::fromLatin1(t.kind)));
    select(kInfy);

    QStringList expectedMessages;
    switch (c.event) {
        case Event::SettingTrade:
            m_program.module<Trade>().load();
            m_program.module<Trade>().Option1 = true;
            addTrade(c.shares, c.price, QString::fromLatin1(c.method));
            break;
        case Event::Buy:
        case Event::Sell:
            addTrade(c.shares, c.price, QString::fromLatin1(c.method));
            break;
        case Event::DeleteBuy:
        case Event::DeleteSell:
            deleteTrade(ids.back());
            break;
        case Event::Deposit:
        case Event::Withdrawal:
        case Event::Interest:
            moveCash(c.event == Event::Deposit      ? CashMovement::Deposit
                     : c.event == Event::Withdrawal ? CashMovement::Withdrawal
                                                    : CashMovement::Interest,
                     c.shares);
            expectedMessages << AddRemoveCash::kSure;
            break;
        case Event::Split: {
            showStockSplit(m_program);
            FrmSplit& split = m_program.module<FrmSplit>();
            split.Combo1.text = QString::number(c.shares);
            split.Combo2.text = QStringLiteral("1");
            split.Command1_Click();
            break;
        }
    }

    EXPECT_EQ(m_prompt.messages(), expectedMessages);
    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    expectColumn("OriginalPrice", after.OriginalPrice, c.after.OriginalPrice);
    expectColumn("OriginalShares", after.OriginalShares, c.after.OriginalShares);
    expectColumn("OriginalCash", after.OriginalCash, c.after.OriginalCash);
    expectColumn("CurrentShares", after.CurrentShares, c.after.CurrentShares);
    expectColumn("CurrentCash", after.CurrentCash, c.after.CurrentCash);
    expectColumn("PortControl", after.PortControl, c.after.PortControl);
    expectColumn("cps", after.cps, c.after.cps);
    expectColumn("CurrentQuotePrice", after.CurrentQuotePrice, c.after.CurrentQuotePrice);
    expectColumn("LastTradePrice", after.LastTradePrice, c.after.LastTradePrice);
    EXPECT_EQ(m_rows.tradeCount(kInfy, kGrowth), c.tradesAfter);
    EXPECT_TRUE(errorLog().isEmpty()) << errorLog().join(QLatin1Char('\n')).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Events, TradeEffectTest, ::testing::ValuesIn(kCases),
                         [](const auto& param) { return std::string(param.param.name); });

// The row that a trade writes, column by column, in both modes.
TEST_F(LedgerTest, TradeRowsCarryTheBoxesAndTheSignOfASell) {
    m_rows.addHolding(kInfy, kGrowth, kOpened);
    m_rows.addTrade(kInfy, kGrowth, 10, 100, 5, QStringLiteral("Buy"));
    select(kInfy);
    Trade& trade = m_program.module<Trade>();
    trade.load();
    trade.cmddate.caption = QStringLiteral("17/Feb/2006");
    trade.txtshare.text = QStringLiteral("4");
    trade.txtprice.text = QStringLiteral("150");
    trade.txtcommision.text = QStringLiteral("5.10");
    trade.setMethodIndex(1);
    trade.cmdadd_Click();

    auto row = m_program.store().database().openRecordset(
        QStringLiteral("select * from trades where pktradeid=(select max(pktradeid) from trades)"));
    EXPECT_EQ(row->field(QStringLiteral("Buyselltype")).toString(), QStringLiteral("Sell"));
    EXPECT_EQ(row->field(QStringLiteral("Tradedshares")).toDouble(), -4);
    EXPECT_EQ(row->field(QStringLiteral("PricePerShare")).toDouble(), 150);
    EXPECT_EQ(row->field(QStringLiteral("TradeQuotePrice")).toDouble(), 150);
    EXPECT_DOUBLE_EQ(row->field(QStringLiteral("Commission")).toDouble(), 5.10);
    EXPECT_EQ(row->field(QStringLiteral("TradeDate")).toString(), QStringLiteral("17/02/2006"));
    EXPECT_EQ(row->field(QStringLiteral("EquitySymbol")).toString(), kInfy);
    EXPECT_EQ(row->field(QStringLiteral("portname")).toString(), kGrowth);
    EXPECT_EQ(row->field(QStringLiteral("fkequityid")).toDouble(),
              m_rows.scalar(QStringLiteral("select pkEquityID from equity")).toDouble());
    // Commission never enters cash.
    EXPECT_EQ(m_rows.ledger(kInfy, kGrowth).CurrentCash, 1600);
}

TEST_F(LedgerTest, SettingTradeWritesNoQuotePriceToItsRow) {
    m_rows.addHolding(kInfy, kGrowth, Ledger{});
    select(kInfy);
    Trade& trade = m_program.module<Trade>();
    trade.load();
    trade.Option1 = true;
    trade.txtshare.text = QStringLiteral("10");
    trade.txtprice.text = QStringLiteral("100");
    trade.txtcommision.text = QStringLiteral("8.50");
    trade.cmdadd_Click();
    EXPECT_FALSE(m_rows.scalar(QStringLiteral("select TradeQuotePrice from trades")).isValid());
    EXPECT_EQ(m_rows.scalar(QStringLiteral("select Tradedshares from trades")).toDouble(), 10);
}

// Add then Delete of the same buy gives back shares, PortControl and, to the rounding of the
// two formats, cash and cps; the quote prices stay moved.
TEST_F(LedgerTest, AddThenDeleteOfABuyRestoresThePosition) {
    const Ledger start{100, 10, 1000, 10, 1000, 1000, 95.5, 100, 0};
    m_rows.addHolding(kInfy, kGrowth, start);
    m_rows.addTrade(kInfy, kGrowth, 10, 100, 5, QStringLiteral("Buy"));
    select(kInfy);
    Trade& trade = m_program.module<Trade>();
    trade.load();
    trade.txtshare.text = QStringLiteral("3");
    trade.txtprice.text = QStringLiteral("123.45");
    trade.txtcommision.text = QStringLiteral("1");
    trade.cmdadd_Click();
    trade.unload();

    trade.load();
    const int last = trade.MSFlexGrid1.rows() - 2;  // the row above the total
    trade.MSFlexGrid1_Click(last, Trade::kTradeIdCol);
    trade.cmddelete_Click();

    const Ledger after = m_rows.ledger(kInfy, kGrowth);
    EXPECT_EQ(after.CurrentShares, 10);
    EXPECT_NEAR(*after.PortControl, 1000, 1e-3);
    EXPECT_NEAR(*after.CurrentCash, 1000, 0.5);
    EXPECT_NEAR(*after.cps, 95.5, 0.01);
    EXPECT_EQ(after.CurrentQuotePrice, 123.45);
    EXPECT_EQ(after.LastTradePrice, 100);
}

}  // namespace
}  // namespace ostravel
