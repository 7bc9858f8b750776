// A ledger action killed in the middle leaves all of its rows or none: a child process runs the
// action on the program folder and is killed between two of its writes; the parent then reads
// the database back and finds it as it was before the action.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "context/screens.h"
#include "ledger/addremovecash.h"
#include "ledger/frmsplit.h"
#include "ledger/trade.h"
#include "runtime/apppath.h"
#include "store/database.h"
#include "tests/ledger/trade_fixture.h"
#include "tests/support/selection.h"

namespace ostravel {
namespace {

enum class Action { AddBuy, AddSetting, DeleteTrade, Deposit, Split };

struct CrashCase {
    const char* name;
    Action action;
    const char* point;  // none: the action runs to its end
};

void PrintTo(const CrashCase& c, std::ostream* out) {
    *out << c.name;
}

// Runs one action on the program's selected holding; `between` is called between its writes.
void runAction(Program& program, Action action, const std::function<void(const char*)>& between) {
    switch (action) {
        case Action::AddBuy:
        case Action::AddSetting: {
            Trade& trade = program.module<Trade>();
            trade.load();
            trade.betweenWrites = between;
            trade.Option1 = action == Action::AddSetting;
            trade.txtshare.text = QStringLiteral("5");
            trade.txtprice.text = QStringLiteral("120");
            trade.txtcommision.text = QStringLiteral("2.50");
            trade.cmdadd_Click();
            break;
        }
        case Action::DeleteTrade: {
            Trade& trade = program.module<Trade>();
            trade.load();
            trade.betweenWrites = between;
            trade.MSFlexGrid1_Click(2, Trade::kTradeIdCol);
            trade.cmddelete_Click();
            break;
        }
        case Action::Deposit: {
            AddRemoveCash& cash = program.module<AddRemoveCash>();
            cash.betweenWrites = between;
            showCashMovement(program, CashMovement::Deposit);
            cash.Combo2.text = kInfy;
            cash.txtamount.text = QStringLiteral("250");
            cash.cmdupdate_Click();
            break;
        }
        case Action::Split: {
            FrmSplit& split = program.module<FrmSplit>();
            showStockSplit(program);
            split.betweenWrites = between;
            split.Command1_Click();
            break;
        }
    }
}

// Every row of the ledger's two tables, as text.
QStringList snapshot() {
    Database db;
    db.open(appFile(kLiveDatabase));
    QStringList rows;
    for (const QString& table : {QStringLiteral("equity"), QStringLiteral("trades")}) {
        auto rs = db.openRecordset(QStringLiteral("select * from ") + table + QStringLiteral(" order by 1"));
        for (; !rs->eof(); rs->moveNext()) {
            QStringList fields;
            for (int c = 0; c < rs->fieldCount(); ++c) {
                const Variant value = rs->field(c);
                fields << (value.isNull() ? QStringLiteral("<null>") : value.toString());
            }
            rows << table + QLatin1Char(':') + fields.join(QLatin1Char('|'));
        }
    }
    return rows;
}

class LedgerCrashTest : public ::testing::TestWithParam<CrashCase> {
protected:
    LedgerCrashTest() {
        const test::ProgramFolder folder(m_dir.path(), test::FolderSetup::Bare);
        LedgerRows rows(*folder.program);
        rows.addHolding(kInfy, kGrowth, Ledger{100, 10, 1000, 15, 400, 1300, 106.67, 120, 100});
        rows.addTrade(kInfy, kGrowth, 10, 100, 1, QStringLiteral("Buy"));
        rows.addTrade(kInfy, kGrowth, 5, 120, 1, QStringLiteral("Buy"));
    }

    // Runs the action in a child process; returns how the child ended.
    int runInChild(Action action, const char* point) {
        const pid_t child = ::fork();
        if (child == 0) {
            int code = 0;
            try {
                ScriptedPrompt prompt;
                prompt.answer(Answer::Yes);  // the deposit's question
                Program program(prompt, [] { ::_exit(4); });
                program.store().connection();
                test::selectHolding(program.frame(), kInfy, kGrowth);
                runAction(program, action, [point](const char* reached) {
                    if (point && QByteArray(reached) == point)
                        ::kill(::getpid(), SIGKILL);
                });
                // A point that was never reached is a fault of the test.
                code = point ? 3 : 0;
            } catch (...) {
                code = 2;
            }
            ::_exit(code);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return status;
    }

    QTemporaryDir m_dir;
};

TEST_P(LedgerCrashTest, KilledBetweenWritesLeavesNoneOfTheRows) {
    const CrashCase& c = GetParam();
    const QStringList before = snapshot();

    const int status = runInChild(c.action, c.point);
    ASSERT_TRUE(WIFSIGNALED(status)) << "exit code " << (WIFEXITED(status) ? WEXITSTATUS(status) : -1);
    ASSERT_EQ(WTERMSIG(status), SIGKILL);
    EXPECT_EQ(snapshot(), before);

    // The same action left to run writes all of its rows.
    const int finished = runInChild(c.action, nullptr);
    ASSERT_TRUE(WIFEXITED(finished) && WEXITSTATUS(finished) == 0);
    EXPECT_NE(snapshot(), before);
}

INSTANTIATE_TEST_SUITE_P(Actions, LedgerCrashTest,
                         ::testing::Values(CrashCase{"BuyAfterTheTradeRow", Action::AddBuy, "trade saved"},
                                           CrashCase{"BuyAfterTheHolding", Action::AddBuy, "holding saved"},
                                           CrashCase{"BuyAfterTheShareSum", Action::AddBuy, "shares summed"},
                                           CrashCase{"SettingAfterTheHolding", Action::AddSetting, "holding saved"},
                                           CrashCase{"SettingAfterTheTradeRow", Action::AddSetting, "trade saved"},
                                           CrashCase{"DeleteAfterTheHolding", Action::DeleteTrade, "holding saved"},
                                           CrashCase{"DeleteAfterTheTradeRow", Action::DeleteTrade, "trade deleted"},
                                           CrashCase{"DeleteAfterTheShareSum", Action::DeleteTrade, "shares summed"},
                                           CrashCase{"DepositBeforeItsUpdate", Action::Deposit, "cash set"},
                                           CrashCase{"SplitBeforeItsUpdate", Action::Split, "shares set"}),
                         [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace ostravel
