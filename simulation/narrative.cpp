#include "simulation/narrative.h"

#include "context/program.h"
#include "position/equitymanager.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbmath.h"

namespace ostravel {

QString narrative(Program& program, const QString& name, const std::function<void(const VbError&)>& failed) {
    const EquityManager& em = program.module<EquityManager>();
    const QString twoLineEnds = QStringLiteral("\r\n\r\n");
    // The buy-and-hold investor holds twice the rule's beginning shares.
    const auto bothShares = [&] { return numberToText(textToDouble(em.txtbegshare.text) * 2); };
    QString text;
    const auto piece = [&](const auto& words) { trapped([&] { text += words(); }, failed); };

    piece([&] { return QStringLiteral(" ") + name + twoLineEnds; });
    piece([&] {
        return QStringLiteral("On ") + dateToString(em.dtbdate) + QStringLiteral(" Ostravel Invested Rs ") +
               em.txtbegtotal.text + QStringLiteral(" with ") + QStringLiteral("Rs. ") + em.txtbegcash.text +
               QStringLiteral("  In cash And Rs. ") + em.txtbegstockvalue.text +
               QStringLiteral(" in Equity By Buying ") + em.txtbegshare.text + QStringLiteral(" Qty of Stock ") +
               QStringLiteral(" Buy and Hold Invester Invested ") + em.txtbegtotal.text +
               QStringLiteral(" by Buying ") + bothShares() + QStringLiteral(" Qty of Stock ") + twoLineEnds;
    });
    piece([&] {
        return QStringLiteral("As on ") + dateToString(em.dtedate) +
               QStringLiteral(" Ostravel Investor Made a Profit of Rs ") + em.lblpcaresult.caption +
               QStringLiteral(" While  Buy and Hold Investor invested All his Amount is Stock ") +
               QStringLiteral(" and Made a Profit of  Rs. ") + em.lblbhprofit.caption + twoLineEnds;
    });
    // Kept: the cost is said to be reduced whichever way it moved.
    piece([&] {
        return QStringLiteral(" Cost Per Share is Reduced from Rs. ") + em.txtbegcps.text + QStringLiteral(" to Rs. ") +
               em.txtcurrcps.text + twoLineEnds;
    });
    // Kept: txtcashrisk ends in its per cent sign, and the word "Percentage" follows all the same.
    piece([&] {
        return QStringLiteral(" Ostravel investor is currently  having ") + em.txtcashrisk.text +
               QStringLiteral(" Percentage of cash at Risk While Buy and Hold Investor Have 100 % Cash at risk") +
               twoLineEnds;
    });
    piece([&] {
        return QStringLiteral(" Ostravel Invester now Have ") + em.txtcurrshare.text +
               QStringLiteral(" Qty of Stock Campare to Buy and Hold Investor of ") + bothShares();
    });
    return text;
}

}  // namespace ostravel
