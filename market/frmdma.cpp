#include "market/frmdma.h"

#include <xlsxwriter.h>

#include <QFile>
#include <algorithm>

#include "context/program.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "store/durablefile.h"

namespace ostravel {

namespace {

const QString kLoadPlace = QStringLiteral("(Form) frmdma::Sub Form_Load");
const QString kSavePlace = QStringLiteral("(Form) frmdma::Sub Cmdsave_Click");
const QString kRatio = QStringLiteral("##.##");

// A computed figure as the grid shows it, and the number the tests see: two decimals.
QString ratio(double value, double& seen) {
    const QString text = formatNumber(value, kRatio);
    seen = Val(text);
    return text;
}

double dateOf(const Variant& value) {
    return value.kind() == Variant::Kind::Date ? value.toDate() : -1e9;
}

QString cellOf(const Variant& value) {
    return value.isNull() || value.isEmpty()     ? QString()
           : value.kind() == Variant::Kind::Date ? dateToString(value.toDate())
           : value.isNumber()                    ? numberToText(value.toDouble())
                                                 : value.toString();
}

}  // namespace

bool FrmDma::figures(const QuoteRow& row, Figures& f) {
    // A division that fails (a previous close of 0) or a volume that is no number skips the row.
    return passedOver([&] {
        f.price = row[2].isEmpty() ? 0 : row[2].toDouble();
        const double close = row[4].isEmpty() ? 0 : row[4].toDouble();
        const double dma50 = row[11].isEmpty() ? 0 : row[11].toDouble();
        const double dma200 = row[12].isEmpty() ? 0 : row[12].toDouble();
        f.dma50 = dma50;
        f.avgVolume = Val(row[7].toString());
        f.date = row[8];
        f.cells[0] = row[1].toString();
        f.cells[1] = cellOf(row[8]);
        f.cells[2] = cellOf(row[2]);
        f.cells[3] = ratio(divide(100 * (f.price - close), close), f.change);
        f.cells[4] = cellOf(row[11]);
        f.cells[5] = cellOf(row[12]);
        f.cells[6] = ratio(divide(f.price, dma50), f.per50);
        f.cells[7] = ratio(divide(f.price, dma200), f.per200);
        f.cells[8] = ratio(divide(dma50, dma200), f.ratio);
        f.cells[9] = ratio(divide(textToDouble(row[5].toString()), textToDouble(row[7].toString())), f.volVar);
    });
}

void FrmDma::Gridclean() {
    MSFlexGrid1.clear(1);
    MSFlexGrid1.setFormatString(kFormat);
    for (int col = 0; col < kCols; ++col) MSFlexGrid1.setColWidth(col, kColWidth);
}

void FrmDma::addRow(const Figures& f) {
    const int row = MSFlexGrid1.rows();
    MSFlexGrid1.addRow();
    for (int col = 0; col < kCols; ++col) MSFlexGrid1.setTextMatrix(row, col, f.cells[col]);
}

void FrmDma::show(const std::function<bool(const Figures&)>& test) {
    Gridclean();
    const QuoteTables& tables = m_program.module<QuoteTables>();
    const int filled = std::min(tables.DmaRow, int(tables.DmaTable.size()));
    if (filled <= 0) {
        MSFlexGrid1.addRow();
        MSFlexGrid1.setTextMatrix(1, 0, kNoData);
        return;
    }
    for (int r = 0; r < filled; ++r) {
        Figures f;
        if (figures(tables.DmaTable[std::size_t(r)], f) && test(f))
            addRow(f);
    }
}

void FrmDma::Form_Load(const std::function<bool(int, int)>& progress) {
    Gridclean();
    if (statement.isEmpty())
        statement = QStringLiteral("select ticker from qoutense");
    QStringList codes;
    trapped(m_program.reporter(), kLoadPlace, [&] {
        auto rs = m_program.store().database().openRecordset(statement);
        for (; !rs->eof(); rs->moveNext()) codes << rs->field(0).toString();
        rs->close();
    });
    QuoteTables& tables = m_program.module<QuoteTables>();
    tables.DmaTable.assign(std::size_t(codes.size()) + 1, QuoteRow{});
    tables.DmaRow = 0;

    const int batches = int((codes.size() + kBatch - 1) / kBatch);
    for (int b = 0; b < batches; ++b) {
        if (progress && !progress(b, batches))
            break;
        QString symbols;
        for (const QString& code : codes.mid(qsizetype(b) * kBatch, kBatch))
            symbols += QStringLiteral("+") + code + QStringLiteral(".NS");
        // Each answer starts afresh, so its first line passes the thin-stock filter.
        clsStockQuote quote(m_program);
        quote.setDMA(symbols);
        // A table run past its end stops the load there.
        if (tables.DmaRow >= int(tables.DmaTable.size()))
            break;
    }
    if (progress)
        progress(batches, batches);
    const double recent = today() - 10;
    show(
        [&](const Figures& f) { return dateOf(f.date) > recent && f.price > 1 && f.dma50 > 0 && f.avgVolume > 50000; });
}

void FrmDma::Cmdbest_Click() {
    const double yesterday = today() - 1;
    show([&](const Figures& f) {
        return f.price > 5 && f.avgVolume > 30000 && dateOf(f.date) > yesterday && f.volVar > 3 && f.change > 0 &&
               f.ratio < 1.0 && f.per200 < 0.9 && f.per50 < 1;
    });
}

void FrmDma::cmdgainer_Click() {
    show([](const Figures& f) { return f.change > 0; });
}

void FrmDma::cmdlooser_Click() {
    const double yesterday = today() - 1;
    show([&](const Figures& f) { return f.price > 5 && dateOf(f.date) > yesterday && f.change < 0; });
}

void FrmDma::cmdvoltopper_Click() {
    show([](const Figures&) { return true; });
}

void FrmDma::MSFlexGrid1_DblClick(int col) {
    if (col < 0 || col >= kCols || MSFlexGrid1.rows() <= 2)
        return;
    std::vector<std::vector<QString>> rows;
    for (int r = 1; r < MSFlexGrid1.rows(); ++r) {
        std::vector<QString>& cells = rows.emplace_back();
        for (int c = 0; c < kCols; ++c) cells.push_back(MSFlexGrid1.textMatrix(r, c));
    }
    if (col == 0) {
        // The symbol sorts as text, descending at the first double click, then ascending.
        sortDescending = !sortDescending;
        std::stable_sort(rows.begin(), rows.end(),
                         [&](const auto& a, const auto& b) { return sortDescending ? a[0] > b[0] : a[0] < b[0]; });
    } else {
        // Kept: the numeric columns sort ascending and then descending at every double click,
        // so they always end descending.
        const auto key = [col](const std::vector<QString>& cells) {
            const auto date = col == 1 ? parseDate(cells[1]) : std::nullopt;
            return date ? *date : Val(cells[std::size_t(col)]);
        };
        std::stable_sort(rows.begin(), rows.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
        std::stable_sort(rows.begin(), rows.end(), [&](const auto& a, const auto& b) { return key(a) > key(b); });
    }
    for (int r = 1; r < MSFlexGrid1.rows(); ++r)
        for (int c = 0; c < kCols; ++c) MSFlexGrid1.setTextMatrix(r, c, rows[std::size_t(r - 1)][std::size_t(c)]);
}

void FrmDma::Cmdsave_Click(const std::function<bool(const QString&)>& open) {
    const std::optional<QString> path = m_program.prompt().saveFile(
        QStringLiteral("Save to Excel"), QStringLiteral("DMA.xlsx"), QStringLiteral("Excel workbooks (*.xlsx)"));
    if (!path || path->isEmpty())
        return;
    QString file = *path;
    if (!file.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive))
        file += QStringLiteral(".xlsx");
    if (!trapped(m_program.reporter(), kSavePlace, [&] { saveGridToXlsx(MSFlexGrid1, file); }))
        return;
    if (!open || !open(file))
        m_program.prompt().inform(QStringLiteral("Can't open Excel."));
}

void saveGridToXlsx(const FlexGridData& grid, const QString& path) {
    const QString part = path + QStringLiteral(".part");
    const QByteArray name = QFile::encodeName(part);
    lxw_workbook* workbook = workbook_new(name.constData());
    if (!workbook)
        raise(err::PathFileAccess, QStringLiteral("Can't write ") + path);
    lxw_worksheet* sheet = workbook_add_worksheet(workbook, nullptr);
    for (int r = 0; r < grid.rows(); ++r)
        for (int c = 0; c < grid.cols(); ++c)
            if (const QString& text = grid.textMatrix(r, c); !text.isEmpty()) {
                // Figures go in as numbers, so that the sheet can sum and sort them.
                if (const auto number = parseNumber(text))
                    worksheet_write_number(sheet, lxw_row_t(r), lxw_col_t(c), *number, nullptr);
                else
                    worksheet_write_string(sheet, lxw_row_t(r), lxw_col_t(c), text.toUtf8().constData(), nullptr);
            }
    if (workbook_close(workbook) != LXW_NO_ERROR) {
        QFile::remove(part);
        raise(err::PathFileAccess, QStringLiteral("Can't write ") + path);
    }
    replaceFile(part, path);
}

}  // namespace ostravel
