#include "market/ticker.h"

#include <QCoreApplication>

#include "context/program.h"
#include "context/screens.h"
#include "market/clsstockquote.h"
#include "market/history.h"
#include "market/hosts.h"
#include "runtime/trap.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kTickerPlace = QStringLiteral("(Form) MDIForm1::Sub cmdticker_Click");
const QString kRefreshPlace = QStringLiteral("(Form) MDIForm1::Sub RefreshTicker");
const QString kAddstockPlace = QStringLiteral("(Form) MDIForm1::Sub addstock");
const QString kHotSpotPlace = QStringLiteral("(Form) MDIForm1::Sub MsgScroller1_HotSpotClick");
constexpr std::uint32_t kBlackBack = 0;
constexpr std::int64_t kRedText = 255;
constexpr std::int64_t kGreenText = 65280;

}  // namespace

void cmdticker_Click(Program& program) {
    Ticker& t = program.module<Ticker>();
    MsgScroller& ring = t.MsgScroller1;
    if (t.cmdticker != Ticker::kTicker) {
        t.MsgScroller1Visible = false;
        ring.setShown(false);
        t.cmdticker = Ticker::kTicker;
        t.Timer1Interval = 0;
        t.Timer1Enabled = false;
        return;
    }
    t.MsgScroller1Visible = true;
    ring.setShown(true);
    t.cmdticker = Ticker::kRunning;
    ring.ScrollInterval = 100;
    ring.setScrollSpeed(5);
    ring.BackColor = kBlackBack;
    t.Timer1Enabled = false;
    ring.Clear();

    t.symbols = QStringLiteral("^NSEI");
    QuoteTables& tables = program.module<QuoteTables>();
    trapped(program.reporter(), kTickerPlace, [&] {
        auto held = program.store().database().openRecordset(
            QStringLiteral("select EquitySymbol from  [equity] where portname = '") +
            sqlText(program.frame().cmbportfolio.text) + QLatin1Char('\''));
        tables.QuoteRows = 0;
        if (held->eof())
            return;
        ring.Clear();
        ring.ScrollInterval = 50;
        ring.setScrollSpeed(5);
        ring.BackColor = kBlackBack;
        for (; !held->eof(); held->moveNext()) {
            t.symbols += QStringLiteral("+") + held->field(0).toString() + QStringLiteral(".NS");
            tables.QuoteRows += 1;
        }
    });
    t.symbols = t.symbols.trimmed();
    t.Timer1Interval = 1000;
    t.Timer1Enabled = true;
    ring.Enabled = true;
    t.lastRefreshMinute = 0;
    RefreshTicker(program);
}

void RefreshTicker(Program& program) {
    Ticker& t = program.module<Ticker>();
    if (t.symbols.isEmpty())
        return;
    const QStringList codes = t.symbols.split(QLatin1Char('+'));
    // Update All Prices sets the row count for its own request in between: the ticker's table
    // is sized for the ticker's codes again.
    program.module<QuoteTables>().QuoteRows = int(codes.size()) - 1;
    clsStockQuote quote(program);
    quote.setSymbol(t.symbols);
    // A quote that failed leaves the ring with the items it had; an answer takes their place.
    if (program.module<HistoryState>().DataBuffer.size() < 20)
        return;
    t.MsgScroller1.Clear();
    for (int row = 0; row < codes.size(); ++row) {
        addstock(program, row);
        QCoreApplication::processEvents();
    }
}

void addstock(Program& program, int row) {
    MsgScroller& ring = program.module<Ticker>().MsgScroller1;
    const std::vector<QuoteRow>& table = program.module<QuoteTables>().QuoteTable;
    const auto step = [&](auto&& statement) { trapped(program.reporter(), kAddstockPlace, statement); };
    if (row < 0 || std::size_t(row) >= table.size()) {
        program.reporter().report(VbError(err::SubscriptOutOfRange), kAddstockPlace);
        return;
    }
    const QuoteRow quote = table[std::size_t(row)];
    // The index's code is in no symbol list: its line has no name, and shows all the same.
    QString name;
    passedOver([&] {
        auto names =
            program.store().database().openRecordset(QStringLiteral("select name from qoutense where ticker='") +
                                                     sqlText(quote[1].toString()) + QStringLiteral("';"));
        name = names->field(0).toString();
        names->close();
    });
    step([&] {
        ring.AddItem(name + QLatin1Char(' ') + quote[2].toString() + QLatin1Char(' ') + quote[3].toString(), name);
    });
    step([&] { ring.setItemData(row + 1, name); });
    step([&] { ring.setItemColor(row + 1, quote[3].toString().contains(QLatin1Char('-')) ? kRedText : kGreenText); });
}

void Timer1_Timer(Program& program, int minute) {
    Ticker& t = program.module<Ticker>();
    // Kept: the test is on the minute number alone, so the full hour and a stored 58 or 59
    // hold the next refresh back.
    if (minute > t.lastRefreshMinute + 1) {
        t.lastRefreshMinute = minute;
        RefreshTicker(program);
    }
    t.MsgScroller1.setScroll(true);
    program.frame().caption = MainFrame::kCaption;
    program.frame().showChanges();
}

void MsgScroller1_HotSpotClick(Program& program, int index) {
    Ticker& t = program.module<Ticker>();
    MainFrame& frame = program.frame();
    const QString name = t.MsgScroller1.ItemData(index).toString();
    // The index's line names no stock, so it opens none.
    if (name.isEmpty())
        return;
    frame.Cmbequityname.text = name;
    QString ticker;
    trapped(program.reporter(), kHotSpotPlace, [&] {
        auto codes = program.store().database().openRecordset(
            QStringLiteral("select ticker from qoutense where name='") + sqlText(name) + QStringLiteral("';"));
        ticker = codes->field(0).toString();
        codes->close();
        frame.cmbequity = ticker;
        frame.cmbequity_Change();
    });
    t.browserAddress = serviceBase(QStringLiteral("chart")) + QStringLiteral("/b?s=") + ticker.toLower();
    t.browserCaption = QStringLiteral("Realtime chart of ") + name;
    frame.panel6 = QStringLiteral("Intra Day Price Chart of ") + ticker;
    program.module<Screens>().show(QStringLiteral("frmBrowser"));
    frame.showChanges();
}

}  // namespace ostravel
