// The rule on the chart: for a holding of a real portfolio, its next buy and next sell prices
// as bands over the price pane and its trades as marks on their days; under "Simulation", the
// simulated trades. Drawn only when the user has switched it on.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "market/history.h"

namespace ostravel {

class FrmMain;
class Program;

struct RuleMark {
    std::int32_t bar = 0;  // index into StockData
    double price = 0;
    bool sell = false;
};

struct RuleOverlayData {
    std::optional<double> nextBuy;  // none when no advice is stored
    std::optional<double> nextSell;
    std::vector<RuleMark> marks;  // trades on days the history holds
};

// The holding of the main frame's portfolio and stock (its stored advice and its trades), or
// the simulation's trades of the stock when the portfolio is "Simulation".
RuleOverlayData ruleOverlayData(Program& program, const std::vector<StockRecord>& bars);

void drawRuleOverlay(FrmMain& chart);

}  // namespace ostravel
