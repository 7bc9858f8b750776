#include "position/equitymanager.h"

#include "context/program.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kGoPlace = QStringLiteral("(Module) Module1::Sub goequitymanager");
const QString kLoadSettingPlace = QStringLiteral("(Module) Module1::Sub loadusersetting");
const QString kSavePlace = QStringLiteral("(Form) equitymanager::Sub Command6_Click");

constexpr double kDaysBack = 365;
constexpr double kWeeklyDays = 730;
constexpr double kMonthlyDays = 1825;

std::uint32_t gainColour(double difference) {
    return difference >= 0 ? kGreen : kRed;
}

}  // namespace

void EquityManager::load() {
    if (loaded)
        return;
    loaded = true;
    Form_Load();
}

void EquityManager::unload() {
    *this = EquityManager();
}

void EquityManager::Form_Load() {
    dtbdate = today() - kDaysBack;
    dtedate = today();
    Combo1.items = {kDaily, kWeekly, kMonthly};
}

void EquityManager::Combo1_Click() {
    if (Combo1.text == kWeekly)
        dtbdate = dtedate - kWeeklyDays;
    else if (Combo1.text == kMonthly)
        dtbdate = dtedate - kMonthlyDays;
}

void EquityManager::clearcolor() {
    for (TextBox* box :
         {&txtnextbuy, &txtnextsellshare, &txtnextsell, &txtnextbuyshare, &txtnextbuyamount, &txtnextsellamount})
        box->foreColour = kWhite;
}

void goequitymanager(Program& program) {
    EquityManager& em = program.module<EquityManager>();
    ErrorReporter& reporter = program.reporter();
    Store& store = program.store();
    const auto statement = [&](auto&& body) { trapped(reporter, kGoPlace, body); };
    // The screen reads each figure as text and converts it by Val.
    const auto value = [&](const char* column) {
        return Val(columnText(currentRow(store.equity).field(QString::fromLatin1(column))));
    };
    const auto text = [&](const char* column) {
        return columnText(currentRow(store.equity).field(QString::fromLatin1(column)));
    };

    statement([&] { store.equity = openHolding(program); });

    statement([&] { em.txtbegprice.text = formatNumber(value("OriginalPrice"), QStringLiteral("#,###.##")); });
    statement([&] { em.txtbegshare.text = text("OriginalShares"); });
    statement([&] { em.txtbegcash.text = formatNumber(value("OriginalCash"), QStringLiteral("#,##,###,##")); });
    statement([&] {
        em.txtbegstockvalue.text =
            formatNumber(value("OriginalPrice") * value("OriginalShares"), QStringLiteral("#,##,###"));
    });
    statement([&] {
        em.txtbegtotal.text = formatNumber(value("OriginalCash") + value("OriginalShares") * value("OriginalPrice"),
                                           QStringLiteral("#,##,###"));
    });
    statement([&] { em.txtbegcps.text = formatNumber(value("OriginalPrice"), QStringLiteral("#,###.##")); });
    statement([&] { em.txtcurrprice.text = text("CurrentQuotePrice"); });
    statement([&] { em.txtcurrshare.text = text("CurrentShares"); });
    statement([&] { em.txtcurrcash.text = text("CurrentCash"); });
    statement([&] { em.txtcurrstockvalue.text = numberToText(value("CurrentShares") * value("CurrentQuotePrice")); });
    statement([&] {
        em.txtcurrtotal.text = numberToText(value("CurrentShares") * value("CurrentQuotePrice") + value("CurrentCash"));
    });

    // A beginning cash or stock value of 0 leaves its percentage as it was, with the error logged.
    statement([&] {
        em.txtcashper.text = formatNumber(divide(value("CurrentCash") - value("OriginalCash"), value("OriginalCash")),
                                          QStringLiteral("##.##%"));
    });
    statement([&] { em.txtcashper.foreColour = gainColour(value("CurrentCash") - value("OriginalCash")); });
    const auto stockNow = [&] { return value("CurrentShares") * value("CurrentQuotePrice"); };
    const auto stockThen = [&] { return value("OriginalShares") * value("OriginalPrice"); };
    statement([&] {
        em.txtsvper.text = formatNumber(divide(stockNow() - stockThen(), stockThen()), QStringLiteral("##.##%"));
    });
    statement([&] { em.txtsvper.foreColour = gainColour(stockNow() - stockThen()); });
    statement([&] {
        em.txtcashrisk.text =
            formatNumber(divide(stockNow(), stockNow() + value("CurrentCash")), QStringLiteral("##.##%"));
    });
}

void loadusersetting(Program& program) {
    EquityManager& em = program.module<EquityManager>();
    Store& store = program.store();
    const std::pair<TextBox*, const char*> boxes[] = {
        {&em.txtmtbuy, "MinTradebuy"},          {&em.txtmtsell, "MinTradesell"}, {&em.txtmstradebuy, "MinTradeBuySh"},
        {&em.txtmstradesell, "MinTradeSellSh"}, {&em.txtfeebuy, "Buyfee"},       {&em.txtfeesell, "Sellfee"},
        {&em.txtbuyres, "ResistBuy"},           {&em.txtsellres, "ResistSell"},  {&em.txtbegincash, "BeginningCash"},
    };
    for (const auto& [box, column] : boxes)
        trapped(program.reporter(), kLoadSettingPlace,
                [&] { box->text = columnText(currentRow(store.users).field(QString::fromLatin1(column))); });
}

void Command6_Click(Program& program) {
    EquityManager& em = program.module<EquityManager>();
    Store& store = program.store();
    ErrorReporter& reporter = program.reporter();
    const std::pair<const char*, const TextBox*> columns[] = {
        {"MinTradeSell", &em.txtmtsell},        {"MinTradeBuy", &em.txtmtbuy}, {"MinTradeBuySh", &em.txtmstradebuy},
        {"MinTradeSellSh", &em.txtmstradesell}, {"ResistBuy", &em.txtbuyres},  {"ResistSell", &em.txtsellres},
        {"BeginningCash", &em.txtbegincash},    {"BuyFee", &em.txtfeebuy},     {"sellFee", &em.txtfeesell},
    };
    trapped(reporter, kSavePlace, [&] { currentRow(store.users).edit(); });
    for (const auto& [column, box] : columns)
        trapped(reporter, kSavePlace,
                [&] { currentRow(store.users).setField(QString::fromLatin1(column), Variant(box->text)); });
    trapped(reporter, kSavePlace, [&] { currentRow(store.users).update(); });
}

}  // namespace ostravel
