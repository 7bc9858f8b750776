#include "position/advice.h"

#include <optional>

#include "context/program.h"
#include "position/equitymanager.h"
#include "position/holding.h"
#include "position/pcaresult.h"
#include "position/vbvalues.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "store/database.h"

namespace ostravel {

namespace {

const QString kGetAdvisePlace = QStringLiteral("(Module) Module1::Sub getadvise");
const QString kWhatIfPlace = QStringLiteral("(Module) Module1::Sub advisewhatif");

const QString kSell = QStringLiteral("SELL");
const QString kBuy = QStringLiteral("BUY");
const QString kHold = QStringLiteral("HOLD");
const QString kBuyFontName = QStringLiteral("24");
// Prices and amounts; the next sell price alone has five places before the point.
const QString kPricePattern = QStringLiteral("######.##");
const QString kNextSellPricePattern = QStringLiteral("#####.##");
const QString kSharesPattern = QStringLiteral("0");
const QString kCostPattern = QStringLiteral("####.##");

// Above this price the share minimum opens the second gate of both tests.
constexpr double kDearShare = 1000;
// The buy amount tried when the next buy price comes out at 0.
constexpr double kFallbackBuyAmount = 500;

// Ends getadvise after one of its two messages.
struct Leave {};

// One run of getadvise. Each statement is trapped alone: errors 11 and 3021 end the run with
// their message, any other goes to the error log and the next statement runs.
class GetAdvise {
public:
    explicit GetAdvise(Program& program)
        : m_program(program),
          m_store(program.store()),
          m_em(program.module<EquityManager>()),
          m_values(program.module<AdviceValues>()) {}

    AdviceOutcome run();

private:
    template <class Body>
    void statement(Body&& body) {
        trapped(std::forward<Body>(body), [this](const VbError& e) { fail(e); });
    }
    void fail(const VbError& e);

    Recordset& holding() { return currentRow(m_holding); }
    double setting(const char* column) {
        return columnNumber(currentRow(m_store.users).field(QString::fromLatin1(column)));
    }
    double column(const char* name) { return columnNumber(holding().field(QString::fromLatin1(name))); }
    int countTrades(const QString& kind);

    void sellNow();
    void nextSell();
    void buyNow();
    void nextBuy();
    float nextBuyPrice();

    Program& m_program;
    Store& m_store;
    EquityManager& m_em;
    AdviceValues& m_values;
    AdviceOutcome m_outcome = AdviceOutcome::Advised;
    std::shared_ptr<Recordset> m_holding;

    double m_cost = 0;  // cost per share, only shown
    float m_P = 0;      // the price of the advice
    double m_C = 0;     // cash
    double m_K = 0;     // PortControl
    double m_N = 0;     // shares held
    double m_V = 0;     // stock value
    double m_S = 0;     // sell amount
    double m_B = 0;     // buy amount
    // The prices and shares of the next trades are 32-bit, as adviseprice is.
    float m_Q = 0;
    float m_R = 0;
    float m_T = 0;
    float m_W = 0;
};

void GetAdvise::fail(const VbError& e) {
    Prompt& prompt = m_program.prompt();
    switch (e.number()) {
        case err::DivisionByZero:
            prompt.inform(kNoSharesMessage + m_program.frame().equitySymbol());
            if (m_values.showPortfolioexplorer)
                m_values.showPortfolioexplorer();
            m_outcome = AdviceOutcome::NoSharesOrPrice;
            throw Leave{};
        case err::NoCurrentRecord:
            prompt.inform(kNotInPortfolioMessage);
            if (m_values.focusCmbequityname)
                m_values.focusCmbequityname();
            m_outcome = AdviceOutcome::NotInPortfolio;
            throw Leave{};
        default:
            m_program.reporter().report(e, kGetAdvisePlace);
    }
}

AdviceOutcome GetAdvise::run() {
    try {
        statement([&] { m_holding = openHolding(m_program); });
        m_values.buycount = 0;
        m_values.sellcount = 0;
        statement([&] {
            const double cps = column("cps");
            m_cost = cps == 0 ? column("originalprice") : cps;
        });
        m_em.clearcolor();
        statement([&] {
            if (m_values.adviseprice == 0)
                m_values.adviseprice = toSingleChecked(column("currentquoteprice"));
        });
        m_P = m_values.adviseprice;
        statement([&] { m_C = column("currentcash"); });
        statement([&] { m_K = column("PortControl"); });
        statement([&] { m_N = column("CurrentShares"); });
        m_V = static_cast<double>(m_P) * m_N;

        // Sell side.
        statement([&] { m_S = (m_V - m_K) - (m_V * setting("Resistsell")) / 100; });
        statement([&] { m_Q = toSingleChecked(divide(m_S, m_P)); });
        // Kept: the share minimum is a second gate, open only for shares dearer than 1000 rupees
        // (at exactly 1000 it is shut); the buy test alike.
        bool sellTest = false;
        statement([&] {
            sellTest = m_S > setting("MinTradeSell") || (m_Q >= setting("MINtradesellsh") && m_P > kDearShare);
        });
        bool sold = false;
        if (sellTest) {
            // While more than a third of the position is cash the program doesn't sell into a rise.
            // Kept: the total and the cash are read from the screen's boxes, as the previous run
            // left them (empty, so 0, on a screen never filled), not from the holding.
            bool vealie = false;
            statement([&] {
                vealie = column("VealieFlag") == 1 && Val(m_em.txtcurrtotal.text) / 3 < Val(m_em.txtcurrcash.text);
            });
            if (vealie) {
                // Kept: this arithmetic on the next sell price, not yet set, leaves K as it was,
                // and K would not be stored anyway.
                statement([&] { m_K = m_K + (static_cast<double>(m_R) * m_Q) / 3; });
            } else {
                sellNow();
                sold = true;
            }
        }
        if (!sold)
            nextSell();

        statement([&] { m_values.sellcount = countTrades(QStringLiteral("Sell")); });

        // Buy side.
        statement([&] { m_B = (m_K - m_V) - (m_V * setting("ResistBuy")) / 100; });
        statement([&] { m_T = toSingleChecked(divide(m_B, m_P)); });
        bool buyTest = false;
        statement(
            [&] { buyTest = m_B > setting("MinTradebuy") || (m_T >= setting("MINtradebuysh") && m_P > kDearShare); });
        if (buyTest) {
            // Kept: with no cash the buy side stores nothing and shows nothing, and the stored
            // next buy stays as it was.
            if (m_C > 0)
                buyNow();
        } else {
            nextBuy();
        }

        statement([&] { m_values.buycount = toInteger(countTrades(QStringLiteral("Buy"))); });

        // Neither side turned its boxes from white: nothing to do now.
        if (m_em.txtnextbuyshare.foreColour == kWhite && m_em.txtnextsellshare.foreColour == kWhite)
            m_em.lbladvise.caption = kHold;
        m_em.txtcurrcps.text = formatNumber(m_cost, kCostPattern);

        goequitymanager(m_program);
        pcaresult(m_program);

        statement([&] { m_em.lblsell.caption = m_values.sellcount.toString(); });
        m_em.lblbuy.caption = QString::number(m_values.buycount);
        statement([&] { holding().close(); });
    } catch (const Leave&) {
    }
    return m_outcome;
}

void GetAdvise::sellNow() {
    m_em.txtnextsellamount.foreColour = kRed;
    m_em.lbladvise.caption = kSell;
    m_R = m_P;
    statement([&] { holding().edit(); });
    statement([&] { holding().setField(QStringLiteral("nextsellprice"), formatNumber(m_R, kPricePattern)); });
    statement([&] { m_Q = toSingleChecked(divide(m_S, m_R)); });
    // Selling now, the share minimum applies whatever the price.
    statement([&] {
        const double minimum = setting("MINtradesellsh");
        if (m_Q < minimum)
            m_Q = toSingleChecked(minimum);
    });
    statement([&] { holding().setField(QStringLiteral("nextsellshares"), formatNumber(m_Q, kSharesPattern)); });
    statement([&] { holding().setField(QStringLiteral("LastUpdated"), Variant::date(now())); });
    statement([&] { holding().update(); });
    // Kept: the amount of a trade now is its price times the shares before they are rounded for
    // the box (the buy side alike).
    m_em.txtnextsellamount.text = singleText(m_R * m_Q);
    m_em.txtnextsell.foreColour = kRed;
    m_em.txtnextsell.text = formatNumber(m_Q, kSharesPattern);
    m_em.txtnextsellshare.foreColour = kRed;
    m_em.txtnextsellshare.text = formatNumber(m_R, kPricePattern);
}

void GetAdvise::nextSell() {
    // The price at which the stock value exceeds PortControl by the minimum trade and the margin.
    statement([&] { m_S = setting("MinTradeSell"); });
    statement([&] { m_R = toSingleChecked(divide(m_S + m_K, m_N) * divide(100, 100 - setting("Resistsell"))); });
    statement([&] { m_Q = toSingleChecked(divide(m_S, m_R)); });
    statement([&] { holding().edit(); });
    statement([&] { holding().setField(QStringLiteral("nextsellprice"), formatNumber(m_R, kNextSellPricePattern)); });
    // Kept: for a next trade the share minimum applies only to shares dearer than 1000 rupees,
    // for a trade now whatever the price (the buy side alike).
    statement([&] {
        const double minimum = setting("MINtradesellsh");
        if (m_Q < minimum && m_P > kDearShare)
            m_Q = toSingleChecked(minimum);
    });
    statement([&] { holding().setField(QStringLiteral("nextsellshares"), formatNumber(m_Q, kSharesPattern)); });
    statement([&] { holding().setField(QStringLiteral("LastUpdated"), Variant::date(now())); });
    statement([&] { holding().update(); });
    m_em.txtnextsell.text = formatNumber(m_Q, kSharesPattern);
    m_em.txtnextsellshare.text = formatNumber(m_R, kNextSellPricePattern);
    m_em.txtnextsellamount.text = formatNumber(m_Q * m_R, kPricePattern);
}

void GetAdvise::buyNow() {
    m_em.txtnextbuyamount.foreColour = kGreen;
    // Kept: the text "24" goes to the font's name, not its size, and only a buy sets it.
    m_em.lbladvise.fontName = kBuyFontName;
    m_em.lbladvise.caption = kBuy;
    m_W = m_P;
    statement([&] { m_T = toSingleChecked(divide(m_B, m_W)); });
    statement([&] { holding().edit(); });
    statement([&] { holding().setField(QStringLiteral("nextbuyprice"), formatNumber(m_W, kPricePattern)); });
    // Kept: the cash isn't compared with the amount: a buy the cash can't pay for is advised.
    statement([&] {
        const double minimum = setting("MINtradebuysh");
        if (m_T < minimum)
            m_T = toSingleChecked(setting("mintradebuysh"));
    });
    statement([&] { holding().setField(QStringLiteral("nextbuyshares"), formatNumber(m_T, kSharesPattern)); });
    statement([&] { holding().setField(QStringLiteral("LastUpdated"), Variant::date(now())); });
    statement([&] { holding().update(); });
    m_em.txtnextbuyamount.text = singleText(m_W * m_T);
    m_em.txtnextbuy.foreColour = kGreen;
    m_em.txtnextbuy.text = formatNumber(m_T, kSharesPattern);
    m_em.txtnextbuyshare.foreColour = kGreen;
    m_em.txtnextbuyshare.text = formatNumber(m_W, kPricePattern);
}

float GetAdvise::nextBuyPrice() {
    return toSingleChecked(divide(m_K - m_B, m_N) * divide(100, 100 + setting("resistbuy")));
}

void GetAdvise::nextBuy() {
    statement([&] { m_B = setting("MinTradebuy"); });
    statement([&] { m_W = nextBuyPrice(); });
    // Kept: a price of 0 is worked out once more with 500 rupees. At PortControl 500 that gives 0
    // for ever: a second 0 ends the retry, and the division below reports it.
    if (m_W == 0) {
        m_B = kFallbackBuyAmount;
        statement([&] { m_W = nextBuyPrice(); });
    }
    statement([&] { m_T = toSingleChecked(divide(m_B, m_W)); });
    statement([&] { holding().edit(); });
    statement([&] { holding().setField(QStringLiteral("nextbuyprice"), formatNumber(m_W, kPricePattern)); });
    statement([&] {
        const double minimum = setting("MINtradebuysh");
        if (m_T < minimum && m_P > kDearShare)
            m_T = toSingleChecked(setting("mintradebuysh"));
    });
    statement([&] { holding().setField(QStringLiteral("nextbuyshares"), formatNumber(m_T, kSharesPattern)); });
    statement([&] { holding().setField(QStringLiteral("LastUpdated"), Variant::date(now())); });
    statement([&] { holding().update(); });
    m_em.txtnextbuy.text = formatNumber(m_T, kSharesPattern);
    m_em.txtnextbuyshare.text = formatNumber(m_W, kPricePattern);
    m_em.txtnextbuyamount.text = formatNumber(m_W * m_T, kPricePattern);
}

int GetAdvise::countTrades(const QString& kind) {
    auto trades = m_store.database().openRecordset(QStringLiteral("select buyselltype from [trades]") +
                                                   holdingCondition(m_program) + QStringLiteral(" and buyselltype ='") +
                                                   kind + QLatin1Char('\''));
    int count = 0;
    for (; !trades->eof(); trades->moveNext()) ++count;
    trades->close();
    return count;
}

}  // namespace

QString SimulationValues::rowSymbol(const MainFrame& frame) const {
    return symbol.isEmpty() ? frame.equitySymbol() : symbol;
}

AdviceOutcome getadvise(Program& program) {
    // One unit of work: the two updates of the holding and the compare row.
    std::optional<Transaction> work;
    trapped(program.reporter(), kGetAdvisePlace,
            [&] { work.emplace(program.store().database(), QStringLiteral("Get Advise")); });
    const AdviceOutcome outcome = GetAdvise(program).run();
    if (work)
        trapped(program.reporter(), kGetAdvisePlace, [&] { work->commit(); });
    return outcome;
}

AdviceOutcome advise(Program& program) {
    AdviceValues& values = program.module<AdviceValues>();
    program.module<EquityManager>().load();
    const AdviceOutcome outcome = getadvise(program);
    values.adviseprice = 0;
    return outcome;
}

AdviceOutcome advisewhatif(Program& program) {
    AdviceValues& values = program.module<AdviceValues>();
    AdviceOutcome outcome = AdviceOutcome::NotRun;
    program.module<EquityManager>().load();
    const std::optional<QString> answer = program.prompt().input(kWhatIfPrompt, kWhatIfTitle, QString());
    // Cancel gives an empty text; that, or any text that is no number, leaves adviseprice at 0.
    trapped([&] { values.adviseprice = textToSingle(answer.value_or(QString())); },
            [&](const VbError& e) {
                if (e.number() != err::TypeMismatch)
                    program.reporter().report(e, kWhatIfPlace);
            });
    // Kept: a what-if advice is stored in the holding's row like any other; only its price is
    // forgotten.
    if (values.adviseprice != 0)
        outcome = getadvise(program);
    values.adviseprice = 0;
    return outcome;
}

}  // namespace ostravel
