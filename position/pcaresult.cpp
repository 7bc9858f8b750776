#include "position/pcaresult.h"

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

// The boxes take part in the sums as numbers; a box that holds no number fails its statement.
double number(const TextBox& box) {
    return textToDouble(box.text);
}

}  // namespace

// A statement that fails is skipped and nothing is said.
void pcaresult(Program& program) {
    EquityManager& em = program.module<EquityManager>();
    AdviceValues& advice = program.module<AdviceValues>();
    Store& store = program.store();
    // A run keeps one writer of compare; an advice opens the table for its one row.
    std::shared_ptr<RowAppender> rows = program.module<SimulationValues>().compareRows;
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
        kWhole.into(em.lblbhprofit.caption,
                    (number(em.txtcurrprice) - number(em.txtbegprice)) * number(em.txtbegshare) * 2);
    });
    passedOver([&] { compare().setField(QStringLiteral("BuyHoldValue"), Val(em.lblbhprofit.caption)); });
    passedOver([&] {
        kShare.into(em.lblbhpersentage.caption,
                    divide(number(em.txtcurrprice) - number(em.txtbegprice), number(em.txtbegprice)));
    });
    passedOver([&] { kZero.into(em.lblpcaresult.caption, number(em.txtcurrtotal) - number(em.txtbegtotal)); });
    passedOver([&] { compare().setField(QStringLiteral("ControlValue"), Val(em.lblpcaresult.caption)); });
    passedOver([&] { compare().setField(QStringLiteral("EquitySymbol"), program.frame().equitySymbol()); });
    passedOver([&] { compare().update(); });
    passedOver([&] {
        kShare.into(em.lblpcaresultper.caption,
                    divide(number(em.txtcurrtotal) - number(em.txtbegtotal), number(em.txtbegtotal)));
    });
    passedOver([&] { em.lblsell.caption = advice.sellcount.toString(); });
    em.lblbuy.caption = numberToText(advice.buycount);
}

}  // namespace ostravel
