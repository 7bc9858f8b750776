#include "ledger/portfolioexplorer.h"

#include "context/controls.h"
#include "context/program.h"
#include "context/screens.h"
#include "ledger/newholding.h"
#include "ledger/textarithmetic.h"
#include "ledger/trade.h"
#include "position/advice.h"
#include "position/equitymanager.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "runtime/variant.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kSelectPlace = QStringLiteral("(Module) Module1::Sub selectportfolio");
// Kept: the grid's click reports under another form's name, Portfoliomanager.
const QString kClickPlace = QStringLiteral("(Form) Portfoliomanager::Sub MSflexgrid1");
const QString kCommand1Place = QStringLiteral("(Form) Portfolioexplorer::Sub Command1_Click");
const QString kAddPlace = QStringLiteral("(Form) Portfolioexplorer::Sub cmdadd_Click");
const QString kRupees = QStringLiteral("Rs.");
const QString kAmount = QStringLiteral("#,###.##");
const QString kProfit = QStringLiteral("#,#####");

// "Rs." & value: a Null adds nothing to the text.
QString rupees(const Variant& value) {
    return kRupees + (value.isNull() ? QString() : value.toString());
}
QString rupees(const QString& text) {
    return kRupees + text;
}

// The holding's lines are written statement by statement, each with selectportfolio's handler:
// a grid that is too short grows and the statement runs again; a profit that is no number
// becomes 0; a Null drops the statement; anything else is logged. Then the next one runs.
class Overview {
public:
    explicit Overview(Program& program)
        : m_program(program),
          m_explorer(program.module<PortfolioExplorer>()),
          m_portfolio(program.frame().cmbportfolio.text) {}

    void run();

private:
    template <class Statement>
    void step(Statement&& statement);
    void clearGrid1() { m_explorer.MSFlexGrid1.clear(PortfolioExplorer::kStartRows); }
    void setUpGrids();
    void holdingLine(Recordset& equity);
    void totalLine();
    Variant openCommissionSum(const QString& symbol);
    void colourProfit(int row, double profit);
    QString whereHolding(const QString& symbol) const {
        return QStringLiteral("EquitySymbol='") + sqlText(symbol) + QStringLiteral("' And portname = '") +
               sqlText(m_portfolio) + QLatin1Char('\'');
    }

    Program& m_program;
    PortfolioExplorer& m_explorer;
    QString m_portfolio;
    int m_row = 0;  // the row counter
    Variant m_P;    // the line's profit: the formatted text, then a number
    double m_sumCommission = 0;
    float m_sumProfit = 0;  // kept in a 32-bit float
};

template <class Statement>
void Overview::step(Statement&& statement) {
    // The two grids grow together: the commission grid keeps a line for each line of holdings.
    trappedGrowing(
        [&] {
            m_explorer.MSFlexGrid1.addRow();
            m_explorer.MSFlexGrid2.addRow();
        },
        std::forward<Statement>(statement),
        [&](const VbError& e) {
            if (e.number() == err::TypeMismatch)
                m_P = 0.0;
            else if (e.number() != err::InvalidUseOfNull)
                m_program.reporter().report(e, kSelectPlace);
        });
}

void Overview::run() {
    if (m_portfolio == MainFrame::kSimulation) {
        step([&] { clearGrid1(); });
        return;
    }
    Database& db = m_program.store().database();
    std::shared_ptr<Recordset> symbols;
    step([&] {
        symbols = db.openRecordset(QStringLiteral("select EquitySymbol from equity where portname='") +
                                   sqlText(m_portfolio) + QStringLiteral("';"));
    });
    if (symbols && symbols->eof()) {
        m_program.prompt().inform(QStringLiteral("You do not have any Equity under ") + m_portfolio +
                                  QStringLiteral(" Portfolio, create equity or delete the portfolio"));
        step([&] { clearGrid1(); });
        return;
    }
    step([&] {
        ComboState& list = m_explorer.cmbequity;
        list.items.clear();
        list.text.clear();
        for (; symbols && !symbols->eof(); symbols->moveNext()) list.items << symbols->field(0).toString();
        if (!list.items.isEmpty())
            list.text = list.items.front();
    });

    Store& store = m_program.store();
    step([&] {
        store.equity = db.openRecordset(
            QStringLiteral("select portname,equitysymbol,CurrentShares,CurrentQuotePrice,CurrentCash,originalprice,"
                           "originalshares,originalcash,nextbuyprice,nextbuyshares,nextsellprice,nextsellshares,"
                           "peratio,eps,div,volume from equity where portname='") +
            sqlText(m_portfolio) + QLatin1Char('\''));
    });
    m_row = 0;
    step([&] { setUpGrids(); });

    m_sumCommission = 0;
    m_sumProfit = 0;
    if (store.equity) {
        for (Recordset& equity = *store.equity; !equity.eof(); equity.moveNext()) holdingLine(equity);
    }
    m_row += 1;
    totalLine();
    m_program.frame().panel6 = QStringLiteral("Equities of Portfolio ") + m_portfolio + QStringLiteral(" is open");
}

void Overview::setUpGrids() {
    FlexGridData& grid1 = m_explorer.MSFlexGrid1;
    FlexGridData& grid2 = m_explorer.MSFlexGrid2;
    grid1.clear(PortfolioExplorer::kStartRows);
    grid2.clear(PortfolioExplorer::kStartRows);
    grid1.setFormatString(PortfolioExplorer::kGrid1Format);
    for (int i = 0; i < PortfolioExplorer::kGrid1Widths.size(); ++i)
        grid1.setColWidth(i + 1, PortfolioExplorer::kGrid1Widths.at(i));
    grid2.setFormatString(PortfolioExplorer::kGrid2Format);
    for (int i = 0; i < PortfolioExplorer::kGrid2Widths.size(); ++i)
        grid2.setColWidth(i, PortfolioExplorer::kGrid2Widths.at(i));
}

void Overview::holdingLine(Recordset& equity) {
    FlexGridData& grid1 = m_explorer.MSFlexGrid1;
    FlexGridData& grid2 = m_explorer.MSFlexGrid2;
    auto field = [&](const char* name) { return equity.field(QString::fromLatin1(name)); };
    auto number = [&](const char* name) { return field(name).toDouble(); };

    m_row += 1;
    const int row = m_row;
    step([&] {
        m_P = formatNumber((number("CurrentShares") * number("CurrentQuotePrice") -
                            number("originalshares") * number("originalprice")) +
                               (number("CurrentCash") - number("originalcash")),
                           kProfit);
    });
    step([&] { grid1.setTextMatrix(row, 0, QString::number(row)); });
    step([&] { grid1.setTextMatrix(row, 1, field("equitysymbol").toString()); });
    step([&] { grid1.setTextMatrix(row, 2, field("CurrentShares").toString()); });
    step([&] { grid1.setTextMatrix(row, 3, rupees(field("CurrentQuotePrice"))); });
    step([&] { grid1.setTextMatrix(row, 4, rupees(format(field("CurrentCash"), kAmount))); });

    step([&] { grid2.setTextMatrix(row, 0, field("equitysymbol").toString()); });
    // Under the headings of the moving averages and volumes stand the columns that the price
    // update fills with those figures.
    const char* marketColumns[] = {"peratio", "eps", "div", "volume"};
    for (int col = 1; col <= 4; ++col)
        step([&] { grid2.setTextMatrix(row, col, field(marketColumns[col - 1]).toString()); });

    Variant commission;
    step([&] { commission = openCommissionSum(field("equitysymbol").toString()); });
    step([&] { grid1.setTextMatrix(row, 5, rupees(format(commission, kAmount))); });
    step([&] { m_sumCommission += commission.toDouble(); });
    step([&] {
        // Kept: the profit lost its decimals to "#,#####" before the commission is taken off, so
        // that the commission's decimals alone reach it.
        if (!isEmptyText(m_P))
            m_P = arithmeticValue(m_P) - arithmeticValue(formattedOrNull(commission, kAmount));
        else
            m_P = -1 * arithmeticValue(formattedOrNull(commission, kAmount));
    });

    step([&] { grid1.setTextMatrix(row, 6, format(number("CurrentShares") * number("CurrentQuotePrice"), kAmount)); });
    step([&] { grid1.setTextMatrix(row, 7, rupees(m_P.toString())); });
    step([&] { m_sumProfit = toSingle(double(m_sumProfit) + arithmeticValue(m_P)); });
    step([&] { colourProfit(row, arithmeticValue(m_P)); });
}

Variant Overview::openCommissionSum(const QString& symbol) {
    auto sum = m_program.store().database().openRecordset(
        QStringLiteral("select sum(Commission)  from [trades]where ") + whereHolding(symbol));
    const Variant value = sum->field(0);
    sum->close();
    return value;
}

void Overview::colourProfit(int row, double profit) {
    if (profit < 0)
        m_explorer.MSFlexGrid1.setCellForeColour(row, 7, kRed);
    if (profit > 0)
        m_explorer.MSFlexGrid1.setCellForeColour(row, 7, kGreen);
}

void Overview::totalLine() {
    FlexGridData& grid1 = m_explorer.MSFlexGrid1;
    std::shared_ptr<Recordset> totals;
    step([&] {
        totals = m_program.store().database().openRecordset(
            QStringLiteral(
                "select sum(CurrentCash),sum(CurrentQuotePrice*Currentshares) from [equity] where portname = '") +
            sqlText(m_portfolio) + QLatin1Char('\''));
    });
    if (!totals || totals->eof())
        return;
    const int row = m_row;
    step([&] { grid1.setTextMatrix(row, 1, QStringLiteral("Total")); });
    step([&] { grid1.setTextMatrix(row, 4, rupees(format(totals->field(0), kAmount))); });
    step([&] { grid1.setTextMatrix(row, 5, rupees(formatNumber(m_sumCommission, kAmount))); });
    step([&] { grid1.setTextMatrix(row, 6, rupees(format(totals->field(1), kAmount))); });
    step([&] { grid1.setTextMatrix(row, 7, rupees(singleText(m_sumProfit))); });
    step([&] { colourProfit(row, double(m_sumProfit)); });
}

}  // namespace

void selectportfolio(Program& program) {
    Overview(program).run();
    program.module<PortfolioExplorer>().notifyChanged();
}

PortfolioExplorer::PortfolioExplorer(Program& program) : m_program(program) {
    MSFlexGrid1.setFormatString(kDefaultGridFormat);
    MSFlexGrid1.setRows(kStartRows);
    for (int col = 0; col < MSFlexGrid1.cols(); ++col) MSFlexGrid1.setColWidth(col, kDefaultColWidth);
    MSFlexGrid2.setFormatString(kGrid2Format);
    for (int col = 0; col < kGrid2Widths.size(); ++col) MSFlexGrid2.setColWidth(col, kGrid2Widths.at(col));
}

void PortfolioExplorer::MSFlexGrid1_Click(int row) {
    ErrorReporter& reporter = m_program.reporter();
    MainFrame& frame = m_program.frame();
    // A click on the total line or an empty one finds no holding (3021): the click goes on.
    auto step = [&](auto&& statement) {
        trapped(statement, [&](const VbError& e) {
            if (e.number() != err::NoCurrentRecord)
                reporter.report(e, kClickPlace);
        });
    };

    QString symbol;
    step([&] { symbol = MSFlexGrid1.textMatrix(row, 1); });
    step([&] {
        frame.cmbequity = symbol;
        frame.cmbequity_Change();
        cmbequity.text = symbol;
    });
    Store& store = m_program.store();
    step([&] {
        store.equity = store.database().openRecordset(
            QStringLiteral("select NextBuyPrice,NextBuyShares,NextSellPrice,NextSellShares,LastUpdated from "
                           "[equity]where EquitySymbol='") +
            sqlText(frame.equitySymbol()) + QStringLiteral("' And portname = '") + sqlText(frame.cmbportfolio.text) +
            QLatin1Char('\''));
    });
    step([&] {
        if (!store.equity)
            return;
        Recordset& equity = *store.equity;
        if (equity.field(QStringLiteral("NextBuyPrice")).toDouble() == 0) {
            lbladvise.caption = kNoAdvise;
            lbladvise.visible = true;
            return;
        }
        auto text = [&](const char* name) {
            const Variant value = equity.field(QString::fromLatin1(name));
            return value.isNull() ? QString() : value.toString();
        };
        lbladvise.caption = QStringLiteral("Recommendation:  Buy ") + text("NextBuyShares") +
                            QStringLiteral(" at Rs. ") + text("NextBuyPrice") + QStringLiteral(" and  Sell ") +
                            text("NextSellShares") + QStringLiteral(" at Rs. ") + text("NextSellPrice") +
                            QStringLiteral(" Last Updated on ") + text("LastUpdated");
        equity.close();
        lbladvise.visible = true;
        lbladvise.width = kAdviseWidth;
    });
    Timer1.interval = kAdviseInterval;
    Timer1.enabled = true;
    notifyChanged();
}

void PortfolioExplorer::MSFlexGrid1_DblClick(int row) {
    // Only a holding's line has its running number.
    if (row < 1 || row >= MSFlexGrid1.rows() || MSFlexGrid1.textMatrix(row, 0).isEmpty())
        return;
    MainFrame& frame = m_program.frame();
    frame.cmbequity = MSFlexGrid1.textMatrix(row, 1);
    frame.cmbequity_Change();
    Trade& trade = m_program.module<Trade>();
    trapped(m_program.reporter(), kClickPlace, [&] { trade.load(); });
    // The box takes the figure; the line shows it after "Rs.".
    trade.txtprice.text = MSFlexGrid1.textMatrix(row, 3).mid(kRupees.size());
    trade.caption = Trade::kTradeCaption + frame.caption;
    m_program.module<Screens>().show(QStringLiteral("trade"));
    notifyChanged();
}

void PortfolioExplorer::Timer1_Timer() {
    lbladvise.visible = false;
    Timer1.enabled = false;
    notifyChanged();
}

PortfolioExplorer::AdviseStart PortfolioExplorer::Command1_Click() {
    MainFrame& frame = m_program.frame();
    if (frame.cmbportfolio.text == MainFrame::kSimulation) {
        m_program.prompt().message(QStringLiteral("Select your portfolio"), Buttons::OK, Icon::None,
                                   QStringLiteral("Select portfolio"));
        return AdviseStart::ChoosePortfolio;
    }
    ErrorReporter& reporter = m_program.reporter();
    EquityManager& manager = m_program.module<EquityManager>();
    trapped(reporter, kCommand1Place, [&] {
        manager.load();
        manager.cmdaddtrade.enabled = true;
        manager.Frame2_0Visible = true;
    });
    trapped(reporter, kCommand1Place, [&] {
        frame.cmbequity = cmbequity.text;
        frame.cmbequity_Change();
    });
    trapped(reporter, kCommand1Place, [&] { m_program.module<Screens>().show(QStringLiteral("equitymanager")); });
    trapped(reporter, kCommand1Place, [&] { loadusersetting(m_program); });
    manager.Label17_2.caption = EquityManager::kActualTrade;
    manager.Frame4Visible = true;
    trapped(reporter, kCommand1Place, [&] { advise(m_program); });
    notifyChanged();
    return AdviseStart::Advised;
}

void PortfolioExplorer::cmdadd_Click() {
    Screens& screens = m_program.module<Screens>();
    bool anyPortfolio = false;
    trapped(m_program.reporter(), kAddPlace, [&] {
        const auto& portfolio = m_program.store().portfolio;
        anyPortfolio = portfolio && portfolio->recordCount() > 0;
    });
    if (!anyPortfolio) {
        m_program.prompt().message(QStringLiteral("Please create Portfolio for holding equity"), Buttons::OK,
                                   Icon::None, QStringLiteral("Create portfolio"));
        screens.show(QStringLiteral("Create"));
        return;
    }
    // Loading the wizard picks its first portfolio, and with it the frame's; the box then
    // changes to the portfolio in work, and the frame with it.
    const QString current = m_program.frame().cmbportfolio.text;
    NewHolding& holding = m_program.module<NewHolding>();
    holding.load();
    holding.cmbport.text = current;
    holding.cmbport_Click();
    screens.show(QStringLiteral("Newholding"));
}

void PortfolioExplorer::cmdcreate_Click() {
    m_program.module<Screens>().show(QStringLiteral("Create"));
}

}  // namespace ostravel
