// simulationstep: one day of the rule over price history, on the values in memory.
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

// Written on every simulated day.
const NumberFormat kCostPattern(QStringLiteral("####.##"));
const NumberFormat kPricePattern(QStringLiteral("0"));

// The simulation's minimum trade at the start, growing with simportcontrol.
constexpr float kBaseTrade = 1000;

float quotient(float a, float b) {
    return toSingleChecked(divide(a, b));
}

// Kept: the simulation rounds its shares to whole ones with halves to the even number, while
// getadvise's shares go through Format "0", halves away from zero.
std::int16_t wholeShares(float amount, float price) {
    return toInteger(Round(quotient(amount, price)));
}

// Kept: at each trade the cost per share is cut to what Format(…, "####.##") shows.
float shownCost(float cost) {
    return textToSingle(kCostPattern(cost));
}

class SimulationStep {
public:
    explicit SimulationStep(Program& program)
        : m_program(program),
          m_store(program.store()),
          m_em(program.module<EquityManager>()),
          m_advice(program.module<AdviceValues>()),
          m_v(program.module<SimulationValues>()) {}

    void run();

private:
    Recordset& day() { return currentRow(m_store.simulation); }
    double close() { return columnNumber(day().field(QStringLiteral("Close"))); }
    double setting(const char* column) {
        return columnNumber(currentRow(m_store.users).field(QString::fromLatin1(column)));
    }
    void start();
    void sell();
    void nextSell();
    void buy();
    void showAffordableBuy();
    void nextBuy();
    void addTrade(std::int16_t shares);

    Program& m_program;
    Store& m_store;
    EquityManager& m_em;
    AdviceValues& m_advice;
    SimulationValues& m_v;
    float m_threshold = 0;
};

// Every statement of the day passes its errors over in silence: a failed one is skipped.
void SimulationStep::start() {
    passedOver([&] { m_em.load(); });
    passedOver([&] {
        m_v.simportcontrol =
            toSingleChecked(setting("BeginningShares") * Val(columnText(day().field(QStringLiteral("Close")))));
    });
    passedOver([&] { m_v.simcash = toSingleChecked(Val(m_em.txtbegcash.text)); });
    passedOver([&] { m_v.simshares = toInteger(setting("BeginningShares")); });
    passedOver([&] { m_v.simcps = toSingleChecked(close()); });
    passedOver([&] { m_v.resistSell = currentRow(m_store.users).field(QStringLiteral("Resistsell")); });
    passedOver([&] { m_v.resistBuy = currentRow(m_store.users).field(QStringLiteral("ResistBuy")); });
    m_advice.buycount = 0;
    m_advice.sellcount = 0;
    m_v.simportcontrol0 = m_v.simportcontrol;
}

void SimulationStep::run() {
    if (m_v.simportcontrol == 0)
        start();
    passedOver([&] { m_v.simprice = toSingleChecked(close()); });
    m_v.simvalue = m_v.simprice * m_v.simshares;

    passedOver([&] {
        m_v.simsellamount = toSingleChecked((m_v.simvalue - m_v.simportcontrol) -
                                            (static_cast<double>(m_v.simvalue) * columnNumber(m_v.resistSell)) / 100);
    });
    // The minimum trade: 1000 rupees at the start, growing as simportcontrol grows.
    passedOver([&] { m_threshold = quotient(m_v.simportcontrol, m_v.simportcontrol0) * kBaseTrade; });
    if (m_threshold < m_v.simsellamount)
        sell();
    else
        nextSell();

    // With the stock value of the day's start, also after a sale in this step.
    passedOver([&] {
        m_v.simbuyamount = toSingleChecked((m_v.simportcontrol - m_v.simvalue) -
                                           (static_cast<double>(m_v.simvalue) * columnNumber(m_v.resistBuy)) / 100);
    });
    if (m_threshold < m_v.simbuyamount) {
        if (m_v.simcash > m_v.simbuyamount)
            buy();
        else
            showAffordableBuy();
    } else {
        nextBuy();
    }

    if (m_em.txtnextbuyshare.foreColour == kWhite && m_em.txtnextsellshare.foreColour == kWhite)
        m_em.lbladvise.caption = QStringLiteral("HOLD");
    passedOver([&] { m_v.simlastprice = toSingleChecked(close()); });
}

void SimulationStep::sell() {
    m_em.txtnextsellamount.foreColour = kRed;
    m_em.lbladvise.caption = QStringLiteral("SELL");
    m_v.simsellprice = m_v.simprice;
    passedOver([&] { m_v.simsellshares = wholeShares(m_v.simsellamount, m_v.simprice); });
    m_em.txtnextsellamount.text = singleText(m_v.simsellprice * m_v.simsellshares);
    m_em.txtnextsell.foreColour = kRed;
    m_em.txtnextsell.text = QString::number(m_v.simsellshares);
    m_em.txtnextsellshare.foreColour = kRed;
    kPricePattern.into(m_em.txtnextsellshare.text, m_v.simsellprice);
    m_v.simcash = m_v.simcash + m_v.simsellprice * m_v.simsellshares;
    m_v.simprevshares = m_v.simshares;
    passedOver([&] { m_v.simshares = toInteger(m_v.simshares - m_v.simsellshares); });
    passedOver([&] { m_advice.sellcount = Variant(m_advice.sellcount.toLong() + 1); });
    // With no shares left the division fails and the cost stays as it was.
    passedOver([&] {
        m_v.simcps = quotient(m_v.simcps * m_v.simprevshares - m_v.simsellprice * m_v.simsellshares, m_v.simshares);
    });
    passedOver([&] { m_v.simcps = shownCost(m_v.simcps); });
    addTrade(static_cast<std::int16_t>(-m_v.simsellshares));
}

// Kept: the next sell and the next buy are worked out on a fixed 1000 rupees, not on the
// threshold that grows with simportcontrol.
void SimulationStep::nextSell() {
    m_v.simsellamount = kBaseTrade;
    passedOver([&] {
        m_v.simsellprice =
            toSingleChecked(static_cast<double>(quotient(kBaseTrade + m_v.simportcontrol, m_v.simshares)) *
                            divide(100, 100 - columnNumber(m_v.resistSell)));
    });
    passedOver([&] { m_v.simsellshares = wholeShares(kBaseTrade, m_v.simsellprice); });
    m_em.txtnextsell.text = QString::number(m_v.simsellshares);
    kPricePattern.into(m_em.txtnextsellshare.text, m_v.simsellprice);
    m_em.txtnextsellamount.text = singleText(m_v.simsellamount);
}

void SimulationStep::buy() {
    m_em.txtnextbuyamount.foreColour = kGreen;
    // Kept: the text "24" goes to the font's name, not its size, as getadvise's buy does.
    m_em.lbladvise.fontName = QStringLiteral("24");
    m_em.lbladvise.caption = QStringLiteral("BUY");
    m_v.simbuyprice = m_v.simprice;
    passedOver([&] { m_v.simbuyshares = wholeShares(m_v.simbuyamount, m_v.simprice); });
    m_em.txtnextbuyamount.text = singleText(m_v.simbuyprice * m_v.simbuyshares);
    m_em.txtnextbuy.foreColour = kGreen;
    m_em.txtnextbuy.text = QString::number(m_v.simbuyshares);
    m_em.txtnextbuyshare.foreColour = kGreen;
    kPricePattern.into(m_em.txtnextbuyshare.text, m_v.simbuyprice);
    m_v.simcash = m_v.simcash - m_v.simbuyprice * m_v.simbuyshares;
    // A purchase raises the reference by half of its amount.
    m_v.simportcontrol = m_v.simportcontrol + (m_v.simbuyprice * m_v.simbuyshares) / 2;
    m_v.simprevshares = m_v.simshares;
    passedOver([&] { m_v.simshares = toInteger(m_v.simshares + m_v.simbuyshares); });
    passedOver([&] { m_advice.buycount = toInteger(m_advice.buycount + 1); });
    passedOver([&] {
        m_v.simcps = quotient(m_v.simcps * m_v.simprevshares + m_v.simbuyprice * m_v.simbuyshares, m_v.simshares);
    });
    passedOver([&] { m_v.simcps = shownCost(m_v.simcps); });
    addTrade(m_v.simbuyshares);
}

void SimulationStep::showAffordableBuy() {
    // The cash doesn't reach: what it would buy is shown, and nothing is traded.
    m_v.simbuyamount = m_v.simcash;
    m_v.simbuyprice = m_v.simprice;
    passedOver([&] { m_v.simbuyshares = wholeShares(m_v.simcash, m_v.simbuyprice); });
    m_em.txtnextbuy.text = QString::number(m_v.simbuyshares);
    kPricePattern.into(m_em.txtnextbuyshare.text, m_v.simbuyprice);
    m_em.txtnextbuyamount.text = singleText(m_v.simbuyamount);
}

void SimulationStep::nextBuy() {
    m_v.simbuyamount = kBaseTrade;
    passedOver([&] {
        m_v.simbuyprice =
            toSingleChecked(static_cast<double>(quotient(m_v.simportcontrol - kBaseTrade, m_v.simshares)) *
                            divide(100, 100 + columnNumber(m_v.resistBuy)));
    });
    passedOver([&] { m_v.simbuyshares = wholeShares(kBaseTrade, m_v.simbuyprice); });
    m_em.txtnextbuy.text = QString::number(m_v.simbuyshares);
    kPricePattern.into(m_em.txtnextbuyshare.text, m_v.simbuyprice);
    m_em.txtnextbuyamount.text = singleText(m_v.simbuyamount);
}

void SimulationStep::addTrade(std::int16_t shares) {
    RowAppender* trades = m_v.simtrades.get();
    if (!trades)
        return;
    passedOver([&] { trades->addNew(); });
    passedOver([&] { trades->setField(0, day().field(0)); });
    passedOver([&] { trades->setField(1, day().field(QStringLiteral("Close"))); });
    passedOver([&] { trades->setField(2, static_cast<int>(shares)); });
    passedOver([&] { trades->setField(3, static_cast<int>(m_v.simshares)); });
    passedOver([&] { trades->setField(6, m_program.frame().equitySymbol()); });
    passedOver([&] { trades->update(); });
}

}  // namespace

void simulationstep(Program& program) {
    SimulationStep(program).run();
}

}  // namespace ostravel
