#include "ledger/frmsplit.h"

#include "context/program.h"
#include "context/screens.h"
#include "ledger/portfolioexplorer.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "store/database.h"

namespace ostravel {

namespace {

const QString kSplitPlace = QStringLiteral("(Form) frmsplit::Sub Command1_Click");
const QString kWholeShares = QStringLiteral("#####");

}  // namespace

FrmSplit::FrmSplit(Program& program) : FormState(program) {}

void FrmSplit::Form_Load() {
    Label2.caption = m_program->frame().equitySymbol() + QStringLiteral(" has comleted a");
    QStringList numbers;
    for (int n = 1; n <= kLargest; ++n) numbers << QString::number(n);
    Combo1.items = numbers;
    Combo2.items = numbers;
    // A split of 2 for 1.
    Combo1.text = numbers.at(1);
    Combo2.text = numbers.at(0);
}

void FrmSplit::Command1_Click() {
    Program& program = *m_program;
    MainFrame& frame = program.frame();
    if (frame.cmbportfolio.text == MainFrame::kSimulation) {
        program.prompt().message(kSelectPortfolio, Buttons::OK, Icon::None, kSelectPortfolioTitle);
        unload();
        frameFocus = QStringLiteral("cmbportfolio");
        return;
    }
    if (frame.cmbequity == QLatin1String("Enter Equity")) {
        program.prompt().message(kSelectEquity, Buttons::OK, Icon::None, kSelectEquityTitle);
        unload();
        frameFocus = QStringLiteral("cmbequity");
        return;
    }

    // The procedure traps nothing: an error (a holding that isn't in the portfolio) is reported
    // and ends it, and the holding stays as it was.
    const bool split = trapped(program.reporter(), kSplitPlace, [&] {
        Transaction work(program.store().database(), QStringLiteral("Stock Split"));
        std::shared_ptr<Recordset> holding = openHolding(program);
        Recordset& row = currentRow(holding);
        // Kept: whole shares by the format, halves away from zero; an exact 0 is an empty text,
        // which the column refuses.
        const QString shares = formatNumber(
            divide(row.field(QStringLiteral("CurrentShares")).toDouble() * Val(Combo1.text), Val(Combo2.text)),
            kWholeShares);
        // Kept: only CurrentShares changes and no trade records the split, so that the next trade's
        // share sum undoes it.
        row.edit();
        row.setField(QStringLiteral("CurrentShares"), shares);
        if (betweenWrites)
            betweenWrites("shares set");
        row.update();
        row.close();
        work.commit();
    });
    if (!split)
        return;
    unload();
    trapped(program.reporter(), kSplitPlace, [&] { selectportfolio(program); });
}

void FrmSplit::cmdclose_Click() {
    unload();
}

void showStockSplit(Program& program) {
    FrmSplit& split = program.module<FrmSplit>();
    split.unload();
    split.load();
    program.module<Screens>().show(QStringLiteral("frmsplit"));
}

}  // namespace ostravel
