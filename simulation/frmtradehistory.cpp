#include "simulation/frmtradehistory.h"

#include "context/program.h"
#include "position/holding.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kLoadPlace = QStringLiteral("(Form) trade::Sub Form_Load");
const QString kEnterEquity = QStringLiteral("Enter Equity");
constexpr int kTradeWidth = 1000;
constexpr int kPriceWidth = 1100;
constexpr int kHistoryWidth = 1500;

// Label heights and the margins the grids keep, in twips.
constexpr int kMargin = 100;
constexpr int kLabelHeight = 250;
constexpr int kGrid1Top = 350;

}  // namespace

FrmTradeHistory::FrmTradeHistory(Program& program) : FormState(program) {}

void FrmTradeHistory::Form_Load() {
    Program& program = *m_program;
    MainFrame& frame = program.frame();
    Database& db = program.store().database();
    // Kept: a row too many in either grid grows both grids by a row, so the shorter list ends in
    // empty rows as long as the other.
    const auto grow = [&] {
        MSFlexGrid1.addRow();
        MSFlexGrid2.addRow();
    };
    const auto handle = [&](const VbError& e) {
        const int n = e.number();
        if (n != 0 && n != err::InvalidUseOfNull && n != err::NoCurrentRecord)
            program.reporter().report(e, kLoadPlace);
    };
    const auto statement = [&](auto&& body) { trapped(body, handle); };
    const auto cell = [&](FlexGridData& grid, int row, int col, const auto& text) {
        trappedGrowing(
            grow, [&] { grid.setTextMatrix(row, col, text()); }, handle);
    };
    // The rows of a list from row 1 on: the running number, then the fields.
    const auto fill = [&](FlexGridData& grid, const QString& sql, const QStringList& fields) {
        std::shared_ptr<Recordset> list;
        statement([&] { list = db.openRecordset(sql); });
        statement([&] {
            int counter = 0;
            for (Recordset& rows = currentRow(list); !rows.eof(); rows.moveNext()) {
                ++counter;
                cell(grid, counter, 0, [&] { return Str(counter); });
                for (int c = 0; c < fields.size(); ++c)
                    cell(grid, counter, c + 1, [&] { return rows.field(fields.at(c)).toString(); });
            }
        });
        statement([&] { currentRow(list).close(); });
    };
    const auto widths = [](FlexGridData& grid, int last, int twips) {
        for (int c = 1; c <= last; ++c) grid.setColWidth(c, twips);
    };

    caption.clear();
    if (frame.cmbequity == kEnterEquity || frame.cmbequity.isEmpty())
        return;

    statement([&] {
        MSFlexGrid1.setFormatString(kTradesFormat);
        widths(MSFlexGrid1, 4, kTradeWidth);
    });
    const QString symbol = sqlText(frame.equitySymbol());
    if (frame.cmbportfolio.text != MainFrame::kSimulation) {
        statement([&] {
            MSFlexGrid2.setFormatString(kPricesFormat);
            widths(MSFlexGrid2, 2, kPriceWidth);
        });
        fill(MSFlexGrid1,
             QStringLiteral("select tradedate ,tradedshares,pricepershare,buyselltype from [trades]") +
                 holdingCondition(program),
             {QStringLiteral("tradedate"), QStringLiteral("tradedshares"), QStringLiteral("pricepershare"),
              QStringLiteral("buyselltype")});
        fill(MSFlexGrid2,
             QStringLiteral("select date,price from currentprice where equitysymbol = '") + symbol +
                 QStringLiteral("';"),
             {QStringLiteral("date"), QStringLiteral("price")});
    } else {
        statement([&] {
            MSFlexGrid2.setFormatString(kHistoryFormat);
            widths(MSFlexGrid2, 6, kHistoryWidth);
        });
        // The heading "Buy sell" stands over buysell, which holds the shares held after the trade.
        fill(MSFlexGrid1, QStringLiteral("select date,shareqty,price,buysell FROM SIMTRADES"),
             {QStringLiteral("date"), QStringLiteral("shareqty"), QStringLiteral("price"), QStringLiteral("buysell")});
        fill(MSFlexGrid2, QStringLiteral("select * from simulation"),
             {QStringLiteral("date"), QStringLiteral("Open"), QStringLiteral("High"), QStringLiteral("Low"),
              QStringLiteral("Close"), QStringLiteral("Volume")});
    }
    frame.panel6 = QStringLiteral("Trade details of ") + frame.caption;
    frame.showChanges();
}

TradeHistoryLayout tradeHistoryLayout(int formTop, int formHeight, int innerWidth) {
    const int width = innerWidth - 200;
    const int height1 = formHeight / 2 - 600;
    const int height2 = formHeight / 2 - 400;
    const int top2 = height1 + formTop + 700;
    return {QRect(kMargin, kMargin, width, kLabelHeight), QRect(kMargin, kGrid1Top, width, height1),
            QRect(kMargin, top2 - kLabelHeight - kMargin, width, kLabelHeight), QRect(kMargin, top2, width, height2)};
}

}  // namespace ostravel
