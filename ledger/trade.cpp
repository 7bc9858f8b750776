#include "ledger/trade.h"

#include <optional>

#include "context/program.h"
#include "context/screens.h"
#include "ledger/addremovecash.h"
#include "ledger/portfolioexplorer.h"
#include "ledger/textarithmetic.h"
#include "position/advice.h"
#include "position/holding.h"
#include "position/setting.h"
#include "position/vbvalues.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kLoadPlace = QStringLiteral("(Form) trade::Sub Form_Load");
// Kept: the delete reports under the name of Add.
const QString kAddPlace = QStringLiteral("(Form) trade::Sub cmdadd_Click");
const QString kClosePlace = QStringLiteral("(Form) trade::Sub cmdclose_Click");
const QString kPricePlace = QStringLiteral("(Form) trade::Sub txtprice_LostFocus");
const QString kGridPlace = QStringLiteral("(Form) trade::Sub MSFlexGrid1_Click");

const QString kListSql = QStringLiteral(
    "select pktradeid,EquitySymbol,TradeDate,Tradedshares,PricePerShare,Commission,Buyselltype from [trades]");
// Kept: after a delete the list names the date before the symbol, so that the date stands under
// "Symbol" and the symbol under "Date" until the next opening.
const QString kListAfterDeleteSql = QStringLiteral(
    "select pktradeid,TradeDate ,EquitySymbol,Tradedshares,PricePerShare,Commission,Buyselltype from   [trades]");
const QString kSumSql = QStringLiteral("select sum(Tradedshares),sum(Commission) from [trades]");
const QString kSumAfterAddSql = QStringLiteral("select sum(Tradedshares),sum(Commission)  from [trades]");
const QString kCommissionSumPattern = QStringLiteral("###,##");
const QString kCostPattern = QStringLiteral("####.##");
const QString kWholeRupees = QStringLiteral("#####");
const QString kShortDate = QStringLiteral("Short Date");
const QString kTotal = QStringLiteral("Total");

const QString kSettingHandOver = QStringLiteral("Setting for ");

// The user actions the journal keeps the changes under.
const QString kAddTradeAction = QStringLiteral("Add Trade");
const QString kSettingTradeAction = QStringLiteral("Setting Trade");
const QString kDeleteAction = QStringLiteral("Delete trade");
const QString kCloseAction = QStringLiteral("Close");
const QString kTitle = QStringLiteral("Ostravel");

// The trade screen's error handler, statement by statement: a grid that is too short grows by a
// row and the statement runs again; anything else goes to the error log (Form_Load passes a
// Null over in silence), and the next statement runs.
class TradeSteps {
public:
    enum NullHandling { NullIsReported, NullIsQuiet };

    TradeSteps(ErrorReporter& reporter, QString place, NullHandling nulls = NullIsReported)
        : m_reporter(reporter), m_place(std::move(place)), m_nulls(nulls) {}

    // Runs one statement; whether it ran clean.
    template <class Statement>
    bool operator()(Statement&& statement) {
        return trapped(std::forward<Statement>(statement), [this](const VbError& e) { handle(e); });
    }

    // A statement that writes a cell of the grid.
    template <class Statement>
    bool grid(FlexGridData& grid, Statement&& statement) {
        return trappedGrowing([&] { grid.addRow(); }, std::forward<Statement>(statement),
                              [this](const VbError& e) { handle(e); });
    }

private:
    void handle(const VbError& e) {
        if (!(m_nulls == NullIsQuiet && e.number() == err::InvalidUseOfNull))
            m_reporter.report(e, m_place);
    }

    ErrorReporter& m_reporter;
    QString m_place;
    NullHandling m_nulls;
};

}  // namespace

Trade::Trade(Program& program) : FormState(program) {}

void Trade::reached(const char* point) {
    if (betweenWrites)
        betweenWrites(point);
}

void Trade::gridtradesetting() {
    MSFlexGrid1.setFormatString(kGridFormat);
    for (int c = 1; c < kGridCols; ++c) MSFlexGrid1.setColWidth(c, kColWidth);
}

namespace {

// The holding's part of the trade screen's statements, straight after the table's bracket.
QString holdingWhere(const QString& symbol, const QString& portfolio) {
    return QStringLiteral("where EquitySymbol='") + sqlText(symbol) + QStringLiteral("' And portname = '") +
           sqlText(portfolio) + QLatin1Char('\'');
}

// A cell of the list as the grid takes a field: a Null raises 94.
QString cellText(const Variant& value) {
    return value.toString();
}

// Writes the records of the list from row 1 on, the running number in column 0; returns the
// row counter after the last record.
int writeTradeRows(FlexGridData& grid, Recordset& list, TradeSteps& step) {
    int counter = 0;
    for (; !list.eof(); list.moveNext()) {
        ++counter;
        step.grid(grid, [&] { grid.setTextMatrix(counter, 0, Str(counter)); });
        for (int c = 1; c < Trade::kGridCols; ++c)
            step.grid(grid, [&] { grid.setTextMatrix(counter, c, cellText(list.field(c - 1))); });
    }
    return counter;
}

// The total row below the records; the sums of a holding without trades are Null, which the
// grid refuses (94).
void writeTotalRow(FlexGridData& grid, int row, Recordset& sums, TradeSteps& step) {
    step.grid(grid, [&] { grid.setTextMatrix(row, 1, kTotal); });
    step.grid(grid, [&] { grid.setTextMatrix(row, 4, cellText(sums.field(0))); });
    step.grid(grid,
              [&] { grid.setTextMatrix(row, 6, cellText(formattedOrNull(sums.field(1), kCommissionSumPattern))); });
}

}  // namespace

void Trade::Form_Load() {
    // Form_Load passes a Null over without a word: a holding without trades has empty sums.
    TradeSteps step(m_program->reporter(), kLoadPlace, TradeSteps::NullIsQuiet);
    Program& program = *m_program;

    step([&] { gridtradesetting(); });
    step([&] {
        cmbmethod.items = {kBuy, kSell};
        cmbmethod.text = kBuy;
    });
    step([&] { cmddate.caption = formatDate(today(), kShortDate); });
    step([&] { DatePicker1Visible = false; });
    step([&] { txtequity.text = program.frame().equitySymbol(); });
    step([&] { cmddelete.enabled = false; });
    if (!txtequity.text.isEmpty() && txtequity.text != kEnterEquity) {
        const QString where = holdingWhere(txtequity.text, program.frame().cmbportfolio.text);
        Database& db = program.store().database();
        std::shared_ptr<Recordset> list;
        std::shared_ptr<Recordset> sums;
        int counter = 0;
        step([&] { list = db.openRecordset(kListSql + where); });
        step([&] { counter = writeTradeRows(MSFlexGrid1, currentRow(list), step); });
        step([&] { sums = db.openRecordset(kSumSql + where); });
        step([&] {
            if (!currentRow(sums).eof())
                writeTotalRow(MSFlexGrid1, counter + 1, *sums, step);
        });
    }
    step([&] { DatePicker1Value = today(); });
}

void Trade::setMethodIndex(int listIndex) {
    if (listIndex >= 0 && listIndex < cmbmethod.items.size())
        cmbmethod.text = cmbmethod.items.at(listIndex);
    else
        raise(err::InvalidPropertyValue);
}

void Trade::txtprice_LostFocus() {
    if (txtprice.text.isEmpty() || txtprice.text == QLatin1String("0")) {
        focus = QStringLiteral("txtshare");
        return;
    }
    TradeSteps step(m_program->reporter(), kPricePlace);
    const double amount = Val(txtprice.text) * Val(txtshare.text);
    Recordset* users = m_program->store().users.get();
    step([&] {
        if (!users)
            raise(err::ObjectNotSet);
        if (cmbmethod.text == kBuy)
            txtcommision.text = formatNumber(amount * users->field(QStringLiteral("BuyFee")).toDouble() / 100,
                                             QStringLiteral("##0.00"));
        else
            txtcommision.text = formatNumber(amount * users->field(QStringLiteral("SellFee")).toDouble() / 100,
                                             QStringLiteral("###0.00"));
    });
}

void Trade::MSFlexGrid1_Click(int clickedRow, int clickedCol) {
    TradeSteps step(m_program->reporter(), kGridPlace);
    row = clickedRow;
    col = clickedCol;
    step([&] { cmddate.caption = MSFlexGrid1.textMatrix(row, 3); });
    step([&] { txtprice.text = MSFlexGrid1.textMatrix(row, 5); });
    step([&] { txtshare.text = MSFlexGrid1.textMatrix(row, 4); });
    step([&] { txtcommision.text = MSFlexGrid1.textMatrix(row, 6); });
    cmddelete.enabled = true;
}

namespace {

Variant column(const std::shared_ptr<Recordset>& rs, const char* name) {
    return currentRow(rs).field(QString::fromLatin1(name));
}
double number(const std::shared_ptr<Recordset>& rs, const char* name) {
    return column(rs, name).toDouble();
}
void set(const std::shared_ptr<Recordset>& rs, const char* name, const Variant& value) {
    currentRow(rs).setField(QString::fromLatin1(name), value);
}

// CurrentShares of the holding := the share sum of its trades (Null when it has none).
void writeSharesSum(Database& db, const QString& where, const Variant& sum) {
    std::shared_ptr<Recordset> holding = db.openRecordset(QStringLiteral("select * from [equity]") + where);
    holding->edit();
    holding->setField(QStringLiteral("CurrentShares"), sum);
    holding->update();
    holding->close();
}

}  // namespace

void Trade::cmdadd_Click() {
    Program& program = *m_program;
    TradeSteps step(program.reporter(), kAddPlace);
    Database& db = program.store().database();
    const QString portfolio = program.frame().cmbportfolio.text;
    const QString where = holdingWhere(txtequity.text, portfolio);

    // The whole trade, both tables, is one unit of work; a message before the first write
    // leaves nothing behind.
    std::optional<Transaction> work;
    step([&] { work.emplace(db, Option1 ? kSettingTradeAction : kAddTradeAction); });

    std::shared_ptr<Recordset> trades;
    step([&] { trades = db.openRecordset(QStringLiteral("select * from [trades]") + where); });

    if (txtprice.text.isEmpty() || txtshare.text.isEmpty() || txtcommision.text.isEmpty()) {
        focus = QStringLiteral("txtprice");
        program.prompt().inform(kEmptyField);
        return;
    }
    // Kept: only these exact texts are refused: "0.0" or "00" pass, and so does a commission
    // typed as "0".
    if (txtprice.text == QLatin1String("0") || txtshare.text == QLatin1String("0") ||
        txtcommision.text == QLatin1String("0.00")) {
        focus = QStringLiteral("txtprice");
        program.prompt().inform(kNullField);
        return;
    }
    bool hasTrades = false;
    step([&] { hasTrades = !currentRow(trades).eof(); });
    if (Option1 && !hasTrades && cmbmethod.text == kSell) {
        program.prompt().message(kNothingToSell, Buttons::OK, Icon::Information, kTitle);
        focus = QStringLiteral("cmbmethod");
        return;
    }

    // Each box is read once, by Val, and that figure goes both into the arithmetic and into
    // the row, so that a text such as "1.2.3" can't leave the two apart.
    const double price = Val(txtprice.text);
    double shares = Val(txtshare.text);
    const double commission = Val(txtcommision.text);
    const bool buy = cmbmethod.text == kBuy;

    // Without its holding row a trade would stand alone: the action ends at the first report.
    std::shared_ptr<Recordset> holding;
    if (!step([&] {
            holding = db.openRecordset(QStringLiteral("select * from [equity]") + where);
            column(holding, "pkEquityID");
        }))
        return;

    const auto addTradeRow = [&](double tradedShares) {
        step([&] { currentRow(trades).addNew(); });
        step([&] { set(trades, "Buyselltype", cmbmethod.text); });
        step([&] { set(trades, "PricePerShare", price); });
        step([&] { set(trades, "Tradedshares", tradedShares); });
        step([&] { set(trades, "Commission", commission); });
        step([&] { set(trades, "TradeDate", cmddate.caption); });
        step([&] { set(trades, "fkequityid", column(holding, "pkEquityID")); });
        step([&] { set(trades, "EquitySymbol", txtequity.text); });
    };

    if (Option1) {
        // The setting trade defines the beginning of the position and spends no cash.
        if (!buy) {
            shares = -shares;
            txtshare.text = numberToText(shares);
        }
        step([&] { currentRow(holding).edit(); });
        step([&] {
            set(holding, "OriginalPrice",
                divide(number(holding, "OriginalPrice") * number(holding, "OriginalShares") + price * shares,
                       number(holding, "OriginalShares") + shares));
        });
        step([&] { set(holding, "OriginalShares", number(holding, "OriginalShares") + shares); });
        step([&] {
            set(holding, "OriginalCash", number(holding, "OriginalPrice") * number(holding, "OriginalShares"));
        });
        step([&] { set(holding, "CurrentQuotePrice", price); });
        step([&] { set(holding, "CurrentShares", number(holding, "CurrentShares") + shares); });
        step([&] { set(holding, "CurrentCash", column(holding, "OriginalCash")); });
        step([&] { set(holding, "PortControl", column(holding, "CurrentCash")); });
        step([&] { currentRow(holding).update(); });
        reached("holding saved");
        addTradeRow(shares);
        step([&] { set(trades, "portname", portfolio); });
        step([&] { currentRow(trades).update(); });
        step([&] { currentRow(trades).close(); });
        reached("trade saved");
        program.module<PortfolioExplorer>().cmbequity.items.append(txtequity.text);
    } else {
        if (buy) {
            bool shortOfCash = false;
            QString cash;
            step([&] {
                shortOfCash = number(holding, "CurrentCash") < price * shares;
                cash = numberToText(number(holding, "CurrentCash"));
            });
            if (shortOfCash) {
                const Answer answer = program.prompt().message(
                    QStringLiteral("You have only Rs.") + cash +
                        QStringLiteral(" do not have enough cash with you, Do you want to add more cash to your "
                                       "Equity Account"),
                    Buttons::YesNo, Icon::None, kLessCashTitle);
                if (answer != Answer::Yes) {
                    txtshare.text.clear();
                    focus = QStringLiteral("txtshare");
                    return;
                }
                // Kept: the trade goes on whatever was deposited, below zero if need be.
                program.module<AddRemoveCash>().prepare(CashMovement::Deposit);
                program.module<Screens>().show(QStringLiteral("addremovecash"));
            }
        } else {
            bool tooFew = false;
            step([&] { tooFew = number(holding, "CurrentShares") < shares; });
            if (tooFew) {
                program.prompt().message(
                    QStringLiteral("You Do not have ") + txtshare.text + QStringLiteral(" Shares To sell"), Buttons::OK,
                    Icon::Critical, kTitle);
                txtshare.text.clear();
                focus = QStringLiteral("txtshare");
                return;
            }
        }

        Variant oldShares;
        float cost = 0;  // the cost per share is kept in a 32-bit float
        step([&] { oldShares = column(holding, "CurrentShares"); });
        step([&] {
            const double cps = number(holding, "cps");
            cost = toSingleChecked(cps == 0 ? number(holding, "OriginalPrice") : cps);
        });
        addTradeRow(buy ? shares : shares * -1);
        step([&] { set(trades, "TradeQuotePrice", price); });
        step([&] { set(trades, "portname", portfolio); });

        step([&] { currentRow(holding).edit(); });
        step([&] { set(holding, "LastTradePrice", column(holding, "CurrentQuotePrice")); });
        step([&] { set(holding, "CurrentQuotePrice", price); });
        if (buy) {
            step([&] {
                set(holding, "PortControl",
                    double(toSingleChecked(number(holding, "PortControl"))) + price * shares / 2);
            });
            step([&] { set(holding, "CurrentShares", oldShares.toDouble() + shares); });
            step([&] { set(holding, "CurrentCash", number(holding, "CurrentCash") - price * shares); });
            step([&] {
                cost = toSingleChecked(
                    divide(double(cost) * oldShares.toDouble() + price * shares, number(holding, "CurrentShares")));
            });
        } else {
            step([&] { set(holding, "CurrentShares", oldShares.toDouble() - shares); });
            step([&] { set(holding, "CurrentCash", number(holding, "CurrentCash") + price * shares); });
            // The proceeds lower the cost: what stays is the net cost still in the position.
            // Kept: selling every share divides by 0, which is logged, and cps keeps its old value.
            step([&] {
                cost = toSingleChecked(
                    divide(double(cost) * oldShares.toDouble() - price * shares, number(holding, "CurrentShares")));
            });
        }
        // Kept: the cost is rounded through its text, Format "####.##" read back as a number.
        step([&] { cost = textToSingle(formatNumber(double(cost), kCostPattern)); });
        step([&] { set(holding, "cps", double(cost)); });
        step([&] { currentRow(trades).update(); });
        step([&] { currentRow(trades).close(); });
        reached("trade saved");
        step([&] { currentRow(holding).update(); });
        step([&] { currentRow(holding).close(); });
        reached("holding saved");
    }

    // The list again; CurrentShares becomes the sum of the holding's trades.
    std::shared_ptr<Recordset> list;
    std::shared_ptr<Recordset> sums;
    int counter = 0;
    step([&] { list = db.openRecordset(kListSql + where); });
    step([&] { counter = writeTradeRows(MSFlexGrid1, currentRow(list), step); });
    step([&] { sums = db.openRecordset(kSumAfterAddSql + where); });
    step([&] {
        if (currentRow(sums).eof())
            return;
        writeSharesSum(db, where, sums->field(0));
        reached("shares summed");
        writeTotalRow(MSFlexGrid1, counter + 1, *sums, step);
    });
    if (work)
        step([&] { work->commit(); });

    // Kept: one opening of the screen takes one trade.
    focus = QStringLiteral("cmdclose");
    cmdadd.enabled = false;
    if (!Option1)
        advise(program);
    step([&] { selectportfolio(program); });
}

void Trade::cmddelete_Click() {
    Program& program = *m_program;
    TradeSteps step(program.reporter(), kAddPlace);
    Database& db = program.store().database();
    const QString where = holdingWhere(txtequity.text, program.frame().cmbportfolio.text);

    std::optional<Transaction> work;
    step([&] { work.emplace(db, kDeleteAction); });

    // Kept: the key is the current cell's text, whatever column it is in. A cell that names no
    // trade leaves nothing to take back: the action ends at the first report.
    std::shared_ptr<Recordset> deleted;
    QString kind;
    if (!step([&] {
            deleted = db.openRecordset(QStringLiteral("select * from trades where pktradeid=") +
                                       MSFlexGrid1.textMatrix(row, col) + QLatin1Char(';'));
            kind = column(deleted, "BuySellType").toString();
        }))
        return;
    const auto traded = [&] { return number(deleted, "Tradedshares"); };
    const auto price = [&] { return number(deleted, "PricePerShare"); };

    std::shared_ptr<Recordset> holding;
    step([&] { holding = db.openRecordset(QStringLiteral("select *  from [equity]") + where); });
    step([&] { currentRow(holding).edit(); });
    if (kind == kBuy || kind == kSell) {
        // A sell's shares are negative: taking it back adds them and takes its proceeds off.
        step([&] { set(holding, "CurrentShares", number(holding, "CurrentShares") - traded()); });
        // Kept: the cash taken back is rounded to whole rupees; Add does not round.
        step([&] {
            set(holding, "CurrentCash",
                formatNumber(number(holding, "CurrentCash") + traded() * price(), kWholeRupees));
        });
        if (kind == kBuy)
            step([&] { set(holding, "PortControl", number(holding, "PortControl") - traded() * price() / 2); });
    }
    // The cost taken back; with no shares left the division fails and cps stays.
    // Kept: rounded through its text, as Add does.
    step([&] {
        const float s = toSingleChecked(number(holding, "CurrentShares"));
        const float cps =
            toSingleChecked(divide(number(holding, "cps") * (double(s) + traded()) - price() * traded(), double(s)));
        set(holding, "cps", double(textToSingle(formatNumber(double(cps), kCostPattern))));
    });
    step([&] { currentRow(holding).update(); });
    step([&] { currentRow(holding).close(); });
    reached("holding saved");
    step([&] { currentRow(deleted).deleteCurrent(); });
    reached("trade deleted");

    std::shared_ptr<Recordset> list;
    int counter = 0;
    step([&] { list = db.openRecordset(kListAfterDeleteSql + where); });
    step([&] {
        const bool tradesLeft = !currentRow(list).eof();
        MSFlexGrid1.clear(MSFlexGrid1.rows());
        if (tradesLeft) {
            gridtradesetting();
            counter = writeTradeRows(MSFlexGrid1, *list, step);
        }
    });
    std::shared_ptr<Recordset> sums;
    step([&] { sums = db.openRecordset(kSumSql + where); });
    // Kept: with no trade left the sum is empty: CurrentShares becomes empty too, and the empty
    // total goes to the error log.
    step([&] { writeSharesSum(db, where, currentRow(sums).field(0)); });
    reached("shares summed");
    step([&] { writeTotalRow(MSFlexGrid1, counter + 1, currentRow(sums), step); });
    if (work)
        step([&] { work->commit(); });

    cmddelete.enabled = false;
    getadvise(program);
    // getadvise leaves adviseprice at this holding's quote; between runs 0 means "the stored
    // quote", or the next advice on another holding would be worked out at this price.
    program.module<AdviceValues>().adviseprice = 0;
}

void Trade::cmdclose_Click() {
    Program& program = *m_program;
    TradeSteps step(program.reporter(), kClosePlace);
    Database& db = program.store().database();
    bool hasTrades = true;
    step([&] {
        hasTrades = !db.openRecordset(QStringLiteral("select *  from [trades]") +
                                      holdingWhere(txtequity.text, program.frame().cmbportfolio.text))
                         ->eof();
    });
    if (!hasTrades) {
        // Kept: a holding that got no trade goes, and with it the holdings of that symbol in
        // every portfolio; the trades of those stay in the store, and the journal keeps the rows
        // for a restore.
        step([&] {
            Transaction work(db, kCloseAction);
            db.execute(QStringLiteral("delete * from equity where equitysymbol='") + sqlText(txtequity.text) +
                       QLatin1Char('\''));
            work.commit();
        });
        unload();
        return;
    }
    if (Option1) {
        program.module<Setting>().caption = kSettingHandOver + program.frame().caption;
        unload();
        program.module<Screens>().show(QStringLiteral("setting"));
        return;
    }
    unload();
}

void Trade::cmdhelp_Click() {
    helpShown = cmdhelp.caption == kHelp;
    cmdhelp.caption = helpShown ? kClose : kHelp;
}

void Trade::cmddate_Click() {
    DatePicker1Value = today();
    DatePicker1Visible = true;
}

void Trade::DatePicker1_OK(double serial) {
    DatePicker1Visible = false;
    cmddate.caption = formatDate(serial, kPickedDatePattern);
}

void Trade::DatePicker1_Cancel() {
    DatePicker1Visible = false;
}

void Trade::Form_Click() {
    DatePicker1Visible = false;
}

}  // namespace ostravel
