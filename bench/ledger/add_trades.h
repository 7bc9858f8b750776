// Add Trade once an iteration, on a trade screen opened afresh before each, as a user does:
// one opening of the screen takes one trade. Only the click is timed.
#pragma once

#include <benchmark/benchmark.h>

#include "ledger/trade.h"

namespace ostravel::bench {

inline void addTrades(benchmark::State& state, Trade& trade) {
    for (auto _ : state) {
        state.PauseTiming();
        trade.unload();
        trade.load();
        trade.txtshare.text = QStringLiteral("3");
        trade.txtprice.text = QStringLiteral("101.5");
        trade.txtcommision.text = QStringLiteral("2.59");
        state.ResumeTiming();
        trade.cmdadd_Click();
    }
}

}  // namespace ostravel::bench
