#include "position/pcaresult.h"

#include <optional>

#include "context/program.h"
#include "position/advice.h"
#include "position/equitymanager.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/trap.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "store/row_appender.h"

namespace ostravel {

namespace {

// Written on every simulated day, each into the room its label already has.
const NumberFormat kWhole(QStringLiteral("#0"));
const NumberFormat kZero(QStringLiteral("0"));
const NumberFormat kShare(QStringLiteral("#0.#%"));

}  // namespace

// A statement that fails is skipped and nothing is said.
void pcaresult(Program& program) {
    EquityManager& em = program.module<EquityManager>();
    AdviceValues& advice = program.module<AdviceValues>();
    Store& store = program.store();
    SimulationValues& v = program.module<SimulationValues>();
    // The day's boxes take part in the sums as numbers, each read once a call, as nothing here
    // writes them; a box that holds no number fails every statement that reads it.
    std::optional<double> dayPrice;
    std::optional<double> dayTotal;
    const auto number = [](std::optional<double>& read, const TextBox& box) {
        if (!read)
            read = textToDouble(box.text);
        return *read;
    };
    const auto price = [&] { return number(dayPrice, em.txtcurrprice); };
    const auto total = [&] { return number(dayTotal, em.txtcurrtotal); };
    const auto begprice = [&] { return v.beginning.price.number(em.txtbegprice.text); };
    const auto begtotal = [&] { return v.beginning.total.number(em.txtbegtotal.text); };
    // A run keeps one writer of compare; an advice opens the table for its one row.
    std::shared_ptr<RowAppender> rows = v.compareRows;
    if (!rows)
        passedOver([&] { rows = std::make_shared<RowAppender>(store.database(), QStringLiteral("compare")); });
    const auto compare = [&]() -> RowAppender& {
        if (!rows)
            raise(err::ObjectNotSet);
        return *rows;
    };

    passedOver([&] { compare().addNew(); });
    passedOver([&] {
        compare().setField(QStringLiteral("date"), currentRow(store.simulation).field(QStringLiteral("date")));
    });
    // The buy-and-hold investor holds twice the rule's beginning shares.
    passedOver([&] {
        kWhole.into(em.lblbhprofit.caption, (price() - begprice()) * v.beginning.share.number(em.txtbegshare.text) * 2);
    });
    passedOver([&] { compare().setField(QStringLiteral("BuyHoldValue"), Val(em.lblbhprofit.caption)); });
    passedOver([&] { kShare.into(em.lblbhpersentage.caption, divide(price() - begprice(), begprice())); });
    passedOver([&] { kZero.into(em.lblpcaresult.caption, total() - begtotal()); });
    passedOver([&] { compare().setField(QStringLiteral("ControlValue"), Val(em.lblpcaresult.caption)); });
    passedOver([&] { compare().setField(QStringLiteral("EquitySymbol"), v.rowSymbol(program.frame())); });
    passedOver([&] { compare().update(); });
    passedOver([&] { kShare.into(em.lblpcaresultper.caption, divide(total() - begtotal(), begtotal())); });
    passedOver([&] { advice.sellcount.toString(em.lblsell.caption); });
    numberToText(advice.buycount, em.lblbuy.caption);
}

}  // namespace ostravel
