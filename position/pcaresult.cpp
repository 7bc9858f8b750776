#include "position/pcaresult.h"

#include "context/program.h"
#include "position/advice.h"
#include "position/equitymanager.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/trap.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

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
    std::shared_ptr<Recordset> compare;

    passedOver([&] { compare = store.database().openRecordset(QStringLiteral("select * from compare")); });
    passedOver([&] { currentRow(compare).addNew(); });
    passedOver([&] {
        currentRow(compare).setField(QStringLiteral("date"),
                                     currentRow(store.simulation).field(QStringLiteral("date")));
    });
    // The buy-and-hold investor holds twice the rule's beginning shares.
    passedOver([&] {
        em.lblbhprofit.caption = formatNumber(
            (number(em.txtcurrprice) - number(em.txtbegprice)) * number(em.txtbegshare) * 2, QStringLiteral("#0"));
    });
    passedOver([&] { currentRow(compare).setField(QStringLiteral("BuyHoldValue"), Val(em.lblbhprofit.caption)); });
    passedOver([&] {
        em.lblbhpersentage.caption = formatNumber(
            divide(number(em.txtcurrprice) - number(em.txtbegprice), number(em.txtbegprice)), QStringLiteral("#0.#%"));
    });
    passedOver([&] {
        em.lblpcaresult.caption = formatNumber(number(em.txtcurrtotal) - number(em.txtbegtotal), QStringLiteral("0"));
    });
    passedOver([&] { currentRow(compare).setField(QStringLiteral("ControlValue"), Val(em.lblpcaresult.caption)); });
    passedOver([&] { currentRow(compare).setField(QStringLiteral("EquitySymbol"), program.frame().equitySymbol()); });
    passedOver([&] { currentRow(compare).update(); });
    passedOver([&] {
        em.lblpcaresultper.caption = formatNumber(
            divide(number(em.txtcurrtotal) - number(em.txtbegtotal), number(em.txtbegtotal)), QStringLiteral("#0.#%"));
    });
    passedOver([&] { em.lblsell.caption = advice.sellcount.toString(); });
    em.lblbuy.caption = numberToText(advice.buycount);
}

}  // namespace ostravel
