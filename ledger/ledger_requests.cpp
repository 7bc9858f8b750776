#include "ledger/ledger_requests.h"

#include "context/program.h"
#include "ledger/newholding.h"
#include "ledger/trade.h"
#include "position/equitymanager_actions.h"
#include "runtime/trap.h"

namespace ostravel {

namespace {

constexpr int kBuyIndex = 0;
constexpr int kSellIndex = 1;

}  // namespace

void installLedgerRequests(Program& program) {
    LedgerRequests& requests = program.module<LedgerRequests>();
    requests.newHolding = [&program](const QString& place) {
        NewHolding& newholding = program.module<NewHolding>();
        trapped(program.reporter(), place, [&] { newholding.load(); });
        newholding.Option1 = true;
    };
    requests.adviceTrade = [&program](const QString& shares, const QString& price, bool sell, const QString& place) {
        Trade& trade = program.module<Trade>();
        trapped(program.reporter(), place, [&] { trade.load(); });
        trade.txtshare.text = shares;
        trade.txtprice.text = price;
        trapped(program.reporter(), place, [&] { trade.setMethodIndex(sell ? kSellIndex : kBuyIndex); });
        trade.caption = Trade::kTradeCaption + program.frame().caption;
    };
}

}  // namespace ostravel
