#include "market/price_update.h"

#include "context/program.h"
#include "ledger/portfolioexplorer.h"
#include "market/clsstockquote.h"
#include "market/day_store.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kUpdatepricePlace = QStringLiteral("(Module) Module1::Sub updateprice");
const QString kCmdupdatePlace = QStringLiteral("(Form) portfolioexplorer::Sub cmdupdate_Click");
const QString kDayFilesPlace = QStringLiteral("(Form) MDIForm1::Sub mnudayfileprices_Click");
const QString kDayFilesTitle = QStringLiteral("Update Prices from Day Files");

// A For loop on an 8-bit counter from 0 to `bound`: a bound beyond 0 to 255 overflows (6) at
// the start, and a bound of 255 when the counter steps past it. `body` false leaves the loop.
template <class Body>
void forByteCounter(int bound, Body&& body) {
    if (bound < 0 || bound > 255)
        raise(err::Overflow);
    for (int i = 0; i <= bound; ++i)
        if (!body())
            return;
    if (bound == 255)
        raise(err::Overflow);
}

// The overflow of an empty list sends the user to choose a portfolio; anything else is reported.
auto portfolioHandler(Program& program, const QString& place) {
    return [&program, place](const VbError& e) {
        if (e.number() != err::Overflow) {
            program.reporter().report(e, place);
            return;
        }
        program.prompt().message(kSelectProperPortfolio, Buttons::OK, Icon::None, kPortfolioError);
        if (const auto& focus = program.module<PriceUpdate>().focusCmbportfolio)
            focus();
    };
}

// The entry after the selected one, unless the selected one is the last.
void selectNext(ComboState& box) {
    const qsizetype index = box.items.indexOf(box.text);
    if (index + 1 < box.items.size())
        box.text = box.items.at(index + 1);
}

// A quote's text as the engine converts it into a number column, digit groups ("1,234,567")
// included; a text that is no number ("N/A") goes as it is, and the column refuses it.
Variant storedNumber(const Variant& value) {
    if (value.kind() != Variant::Kind::String)
        return value;
    Variant number = value;
    passedOver([&] { number = Variant(textToDouble(value.toString())); });
    return number;
}

struct QuoteWrite {
    QString symbol;
    Variant price;
    QList<std::pair<QString, Variant>> figures;  // the other columns of equity, in their order
    double day = 0;                              // the date of the currentprice row
};

// One holding's writes, statement by statement: the equity row, one currentprice row a day,
// and the frame's line for the stock.
void writeQuote(Program& program, const QuoteWrite& quote, const QString& place) {
    const auto step = [&](auto&& statement) { trapped(program.reporter(), place, statement); };
    Database& db = program.store().database();
    MainFrame& frame = program.frame();
    const QString symbol = QString(quote.symbol).remove(QStringLiteral(".NS"));
    std::shared_ptr<Recordset> equity;
    step([&] {
        equity = db.openRecordset(
            QStringLiteral("select pkequityid,LastTradePrice,CurrentQuotePrice,eps,peratio,div,volume from "
                           "[equity]where EquitySymbol='") +
            sqlText(symbol) + QStringLiteral("' And portname = '") + sqlText(frame.cmbportfolio.text) +
            QLatin1Char('\''));
    });
    step([&] {
        auto names = db.openRecordset(QStringLiteral("select yahoonse,name from qoutense where ticker='") +
                                      sqlText(symbol) + QStringLiteral("';"));
        frame.caption = names->field(QStringLiteral("name")).toString();
        names->close();
    });
    step([&] { equity->edit(); });
    step([&] {
        equity->setField(QStringLiteral("LastTradePrice"), equity->field(QStringLiteral("CurrentQuotePrice")));
    });
    step([&] { equity->setField(QStringLiteral("CurrentQuotePrice"), storedNumber(quote.price)); });
    for (const auto& [column, value] : quote.figures) step([&] { equity->setField(column, storedNumber(value)); });
    step([&] { equity->update(); });

    std::shared_ptr<Recordset> prices;
    step([&] {
        prices = db.openRecordset(QStringLiteral("select * from currentprice where equitysymbol ='") +
                                  sqlText(quote.symbol) + QStringLiteral("';"));
        bool sameDay = false;
        if (!prices->eof()) {
            prices->moveLast();
            const Variant last = prices->field(1);
            sameDay = !last.isNull() && !(quote.day > last.toDate());
        }
        if (sameDay)
            prices->edit();
        else
            prices->addNew();
    });
    step([&] { prices->setField(3, equity->field(QStringLiteral("pkEquityID"))); });
    step([&] { prices->setField(0, Variant(quote.price.toString())); });
    step([&] { prices->setField(1, Variant::date(quote.day)); });
    step([&] { prices->setField(2, Variant(quote.symbol)); });
    step([&] { prices->update(); });
    step([&] {
        frame.cmbequity = quote.symbol;
        frame.cmbequity_Change();
        currentprice(program);
    });
}

}  // namespace

void currentprice(Program& program) {
    MainFrame& frame = program.frame();
    const QString symbol = frame.equitySymbol();
    // A stock that no holding has shows no price.
    QString price;
    passedOver([&] {
        auto rs = program.store().database().openRecordset(
            QStringLiteral("select CurrentQuotePrice from equity where equitysymbol='") + sqlText(symbol) +
            QStringLiteral("';"));
        if (!rs->eof())
            price = format(rs->field(0), QString());
        rs->close();
    });
    frame.panel6 = frame.cmbportfolio.text != MainFrame::kSimulation
                       ? QStringLiteral("Current Equity: ") + symbol + QStringLiteral(" Trading At ") + price
                       : QStringLiteral("Simulation of ") + symbol;
    frame.showChanges();
}

void updateprice(Program& program) {
    ComboState& box = program.module<PortfolioExplorer>().cmbequity;
    MainFrame& frame = program.frame();
    Database& db = program.store().database();
    // The pass is trapped as a whole: an error ends it.
    trapped(
        [&] {
            bool cancelled = false;
            forByteCounter(int(box.items.size()) - 1, [&] {
                const QString symbol = box.text;
                auto equity = db.openRecordset(
                    QStringLiteral(
                        "select pkequityid,LastTradePrice,CurrentQuotePrice from equity where equitysymbol = '") +
                    sqlText(symbol) + QStringLiteral("';"));
                clsStockQuote GlobalQuote(program);
                if (!program.module<PriceUpdate>().online()) {
                    program.prompt().message(QStringLiteral("You are not connected to internet"), Buttons::OK,
                                             Icon::None, QStringLiteral("Not Connected"));
                    cancelled = true;
                    return false;
                }
                // Kept: the quote is fetched and then lost; the user types every price.
                GlobalQuote.setSymbol(symbol);
                QString price = GlobalQuote.Quote();
                price = program.prompt()
                            .input(QStringLiteral("Enter the current price"), QStringLiteral("Current price ") + symbol,
                                   QString())
                            .value_or(QString());
                if (price.isEmpty()) {
                    cancelled = true;
                    return false;
                }
                {
                    Transaction unit(db, QStringLiteral("Update Price"));
                    equity->edit();
                    equity->setField(QStringLiteral("LastTradePrice"),
                                     equity->field(QStringLiteral("CurrentQuotePrice")));
                    equity->setField(QStringLiteral("CurrentQuotePrice"), Variant(price));
                    equity->update();
                    auto prices = db.openRecordset(QStringLiteral("select * from currentprice where equitysymbol ='") +
                                                   sqlText(symbol) + QStringLiteral("';"));
                    prices->addNew();
                    prices->setField(3, equity->field(QStringLiteral("pkEquityID")));
                    prices->setField(0, Variant(price));
                    prices->setField(1, Variant::date(now()));
                    prices->setField(2, Variant(symbol));
                    prices->update();
                    unit.commit();
                }
                frame.cmbequity = symbol;
                frame.cmbequity_Change();
                currentprice(program);
                // The overview shows the new price; the pass keeps its place in the list.
                selectportfolio(program);
                box.text = symbol;
                selectNext(box);
                return true;
            });
            if (!cancelled && !box.items.isEmpty())
                box.text = box.items.front();
        },
        portfolioHandler(program, kUpdatepricePlace));
    program.module<PortfolioExplorer>().notifyChanged();
    frame.showChanges();
}

void cmdupdate_Click(Program& program) {
    QuoteTables& tables = program.module<QuoteTables>();
    ComboState& box = program.module<PortfolioExplorer>().cmbequity;
    tables.QuoteRows = 0;
    QString symbols = QStringLiteral("^NSEI");
    const bool listed = trapped(
        [&] {
            forByteCounter(int(box.items.size()) - 1, [&] {
                symbols += QStringLiteral("+") + box.text + QStringLiteral(".NS");
                tables.QuoteRows += 1;
                if (box.items.indexOf(box.text) + 1 >= box.items.size())
                    return false;
                selectNext(box);
                return true;
            });
        },
        portfolioHandler(program, kCmdupdatePlace));
    if (!listed)
        return;

    clsStockQuote quote(program);
    quote.setSymbol(symbols);
    Database& db = program.store().database();
    {
        Transaction unit(db, QStringLiteral("Update All Prices"));
        for (int r = 1; r <= tables.QuoteRows && std::size_t(r) < tables.QuoteTable.size(); ++r) {
            const QuoteRow row = tables.QuoteTable[std::size_t(r)];
            writeQuote(program,
                       {row[1].toString(),
                        row[2],
                        {{QStringLiteral("Peratio"), row[11]},
                         {QStringLiteral("EPS"), row[12]},
                         {QStringLiteral("DIV"), row[7]},
                         {QStringLiteral("volume"), row[5]}},
                        today()},
                       kCmdupdatePlace);
        }
        unit.commit();
    }
    selectportfolio(program);
    if (!box.items.isEmpty())
        box.text = box.items.front();
    // The overview's refill names the portfolio in the status bar; the price of the stock in
    // work, which the pass ended on, is what the user wants to read there.
    currentprice(program);
    program.module<PortfolioExplorer>().notifyChanged();
}

void UpdatePricesFromDayFiles(Program& program) {
    MainFrame& frame = program.frame();
    Database& db = program.store().database();
    QStringList symbols;
    trapped(program.reporter(), kDayFilesPlace, [&] {
        auto held = db.openRecordset(QStringLiteral("select EquitySymbol from equity where portname='") +
                                     sqlText(frame.cmbportfolio.text) + QStringLiteral("';"));
        for (; !held->eof(); held->moveNext()) symbols << held->field(0).toString();
    });
    if (symbols.isEmpty()) {
        program.prompt().message(kSelectProperPortfolio, Buttons::OK, Icon::None, kPortfolioError);
        if (const auto& focus = program.module<PriceUpdate>().focusCmbportfolio)
            focus();
        return;
    }
    std::map<QString, DayStore::Close> closes;
    if (!trapped(program.reporter(), kDayFilesPlace, [&] { closes = openDayStore()->latestCloses(symbols); }))
        return;

    QStringList missing;
    {
        Transaction unit(db, QStringLiteral("Update Prices from Day Files"));
        for (const QString& symbol : symbols) {
            const auto found = closes.find(symbol);
            if (found == closes.end()) {
                missing << symbol;
                continue;
            }
            const DayStore::Close& close = found->second;
            writeQuote(program,
                       {symbol,
                        Variant(close.close),
                        {{QStringLiteral("volume"), Variant(close.volume)}},
                        dateSerial(close.day)},
                       kDayFilesPlace);
        }
        unit.commit();
    }
    selectportfolio(program);
    currentprice(program);
    QString text = QStringLiteral("%1 of %2 holdings took their latest close from the day files.")
                       .arg(symbols.size() - missing.size())
                       .arg(symbols.size());
    if (!missing.isEmpty())
        text += QStringLiteral("\nNo day file holds ") + missing.join(QStringLiteral(", ")) + QLatin1Char('.');
    program.prompt().message(text, Buttons::OK, Icon::Information, kDayFilesTitle);
    frame.showChanges();
}

void installPriceUpdate(Program& program) {
    PortfolioExplorer& explorer = program.module<PortfolioExplorer>();
    explorer.updateAllPrices = [&program] { cmdupdate_Click(program); };
    explorer.cmdupdate.enabled = true;
}

}  // namespace ostravel
