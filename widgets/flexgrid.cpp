#include "widgets/flexgrid.h"

#include <QHeaderView>
#include <QTableWidget>

namespace ostravel {

namespace {

QTableWidgetItem* itemAt(QTableWidget& table, int row, int col) {
    QTableWidgetItem* item = table.item(row, col);
    if (!item) {
        item = new QTableWidgetItem;
        table.setItem(row, col, item);
    }
    return item;
}

void setHeading(QTableWidget& table, int col, const QString& text, Qt::Alignment alignment) {
    QTableWidgetItem* heading = table.horizontalHeaderItem(col);
    if (!heading) {
        heading = new QTableWidgetItem;
        table.setHorizontalHeaderItem(col, heading);
    }
    heading->setText(text);
    heading->setTextAlignment(alignment);
}

}  // namespace

Qt::Alignment toQtAlignment(CellAlignment alignment) {
    switch (alignment) {
        case CellAlignment::Centre:
            return Qt::AlignCenter;
        case CellAlignment::Right:
            return Qt::AlignRight | Qt::AlignVCenter;
        case CellAlignment::Left:
        case CellAlignment::General:
            break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

QColor toQColor(std::uint32_t colour) {
    return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

void setUpFlexGrid(QTableWidget& table) {
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.verticalHeader()->hide();
}

void showFlexGrid(QTableWidget& table, const FlexGridData& grid) {
    table.setColumnCount(grid.cols());
    table.setRowCount(std::max(grid.rows() - 1, 0));
    for (int col = 0; col < grid.cols(); ++col) {
        const Qt::Alignment alignment = toQtAlignment(grid.column(col).alignment);
        setHeading(table, col, grid.rows() > 0 ? grid.textMatrix(0, col) : QString(), alignment);
        for (int row = 1; row < grid.rows(); ++row) {
            QTableWidgetItem* item = itemAt(table, row - 1, col);
            item->setText(grid.textMatrix(row, col));
            item->setTextAlignment(alignment);
            const std::optional<std::uint32_t> colour = grid.cellForeColour(row, col);
            item->setForeground(colour ? QBrush(toQColor(*colour)) : QBrush());
        }
        // The width in twips is the least a column has; where our font needs more, it grows to
        // its heading and its texts.
        table.resizeColumnToContents(col);
        if (twipsToPixels(grid.colWidth(col)) > table.columnWidth(col))
            table.setColumnWidth(col, twipsToPixels(grid.colWidth(col)));
    }
}

}  // namespace ostravel
