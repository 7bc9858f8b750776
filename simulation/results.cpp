#include "simulation/results.h"

#include "context/program.h"
#include "position/advice.h"
#include "position/equitymanager.h"
#include "position/holding.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "simulation/simulation_run.h"

namespace ostravel {

namespace {

const QString kBeginPlace = QStringLiteral("(Module) Module3::Sub equitybegin");
const QString kCurrentPlace = QStringLiteral("(Module) Module3::Sub equitycurrent");
const QString kWhole = QStringLiteral("0");
// Written every day of a run, each into the room its box already has.
const NumberFormat kMoney(QStringLiteral("#####.##"));
const NumberFormat kChange(QStringLiteral("##.##%"));
const NumberFormat kInStock(QStringLiteral("#0.##%"));

std::uint32_t gainColour(double difference) {
    return difference >= 0 ? kGreen : kRed;
}

}  // namespace

void equitybegin(Program& program) {
    EquityManager& em = program.module<EquityManager>();
    SimulationRun& run = program.module<SimulationRun>();
    const auto statement = [&](auto&& body) {
        trapped(body, [&](const VbError& e) { run.reporter.report(e, kBeginPlace); });
    };
    const auto close = [&] { return run.day().field(QStringLiteral("Close")); };
    const auto shares = [&] { return currentRow(program.store().users).field(QStringLiteral("BeginningShares")); };
    // The stock bought on the first day; the cash equals it by construction.
    const auto value = [&] { return close().toDouble() * shares().toDouble(); };

    statement([&] { em.txtbegprice.text = close().toString(); });
    statement([&] { em.txtbegshare.text = shares().toString(); });
    statement([&] { em.txtbegcash.text = formatNumber(value(), kWhole); });
    statement([&] { em.txtbegstockvalue.text = formatNumber(Val(numberToText(value())), kWhole); });
    statement([&] { em.txtbegtotal.text = Str(Val(em.txtbegstockvalue.text) + Val(em.txtbegcash.text)); });
    statement([&] { em.txtbegcps.text = close().toString(); });
}

void equitycurrent(Program& program) {
    EquityManager& em = program.module<EquityManager>();
    SimulationRun& run = program.module<SimulationRun>();
    const SimulationValues& v = program.module<SimulationValues>();
    const auto statement = [&](auto&& body) {
        trapped(body, [&](const VbError& e) { run.reporter.report(e, kCurrentPlace); });
    };

    statement([&] { em.txtcurrprice.text = run.day().field(QStringLiteral("Close")).toString(); });
    statement([&] { em.txtcurrshare.text = QString::number(v.simshares); });
    statement([&] { kMoney.into(em.txtcurrcash.text, v.simcash); });
    statement([&] { kMoney.into(em.txtcurrstockvalue.text, v.simvalue); });
    // Cash and stock add up in single precision, as the two amounts are held.
    statement([&] { kMoney.into(em.txtcurrtotal.text, v.simcash + v.simvalue); });
    statement([&] { em.txtcurrcps.text = singleText(v.simcps); });

    statement([&] {
        kChange.into(em.txtcashper.text,
                     divide(Val(em.txtcurrcash.text) - Val(em.txtbegcash.text), Val(em.txtbegcash.text)));
    });
    statement([&] { em.txtcashper.foreColour = gainColour(v.simcash - Val(em.txtbegcash.text)); });
    statement([&] {
        kChange.into(em.txtsvper.text, divide(Val(em.txtcurrstockvalue.text) - Val(em.txtbegstockvalue.text),
                                              Val(em.txtbegstockvalue.text)));
    });
    statement([&] { em.txtsvper.foreColour = gainColour(v.simvalue - Val(em.txtbegstockvalue.text)); });
    statement([&] {
        kInStock.into(em.txtcashrisk.text,
                      divide(textToDouble(em.txtcurrstockvalue.text), textToDouble(em.txtcurrtotal.text)));
    });
}

QList<QPair<QString, QString>> resultFields(Program& program) {
    const EquityManager& em = program.module<EquityManager>();
    QList<QPair<QString, QString>> fields;
    const std::pair<const char*, const QString*> texts[] = {
        {"txtbegprice", &em.txtbegprice.text},
        {"txtbegshare", &em.txtbegshare.text},
        {"txtbegcash", &em.txtbegcash.text},
        {"txtbegstockvalue", &em.txtbegstockvalue.text},
        {"txtbegtotal", &em.txtbegtotal.text},
        {"txtbegcps", &em.txtbegcps.text},
        {"txtcurrprice", &em.txtcurrprice.text},
        {"txtcurrshare", &em.txtcurrshare.text},
        {"txtcurrcash", &em.txtcurrcash.text},
        {"txtcurrstockvalue", &em.txtcurrstockvalue.text},
        {"txtcurrtotal", &em.txtcurrtotal.text},
        {"txtcurrcps", &em.txtcurrcps.text},
        {"txtcashper", &em.txtcashper.text},
        {"txtsvper", &em.txtsvper.text},
        {"txtcashrisk", &em.txtcashrisk.text},
        {"lblbhprofit", &em.lblbhprofit.caption},
        {"lblbhpersentage", &em.lblbhpersentage.caption},
        {"lblpcaresult", &em.lblpcaresult.caption},
        {"lblpcaresultper", &em.lblpcaresultper.caption},
        {"lblsell", &em.lblsell.caption},
        {"lblbuy", &em.lblbuy.caption},
    };
    for (const auto& [name, text] : texts) fields.append({QString::fromLatin1(name), *text});
    const QString shortDate = QStringLiteral("dd/mm/yyyy");
    fields.append({QStringLiteral("dtbdate"), formatDate(em.dtbdate, shortDate)});
    fields.append({QStringLiteral("dtedate"), formatDate(em.dtedate, shortDate)});
    // A BeginningShares that can't be read prints empty.
    QString shares;
    passedOver([&] { shares = program.store().users->field(QStringLiteral("BeginningShares")).toString(); });
    fields.append({QStringLiteral("BeginningShares"), shares});
    return fields;
}

}  // namespace ostravel
