// Whether a grid shows its headings and texts whole, as a user at our font sees them.
#pragma once

#include <QHeaderView>
#include <QTableWidget>

namespace ostravel::test {

// The heading of the first column narrower than its heading or one of its texts; empty when
// every column shows them whole.
inline QString clippedColumn(QTableWidget& grid) {
    for (int col = 0; col < grid.columnCount(); ++col) {
        if (grid.isColumnHidden(col))
            continue;
        const int width = grid.columnWidth(col);
        const QAbstractItemView& view = grid;  // where the content's width is public
        if (width < grid.horizontalHeader()->sectionSizeHint(col) || width < view.sizeHintForColumn(col))
            return grid.horizontalHeaderItem(col) ? grid.horizontalHeaderItem(col)->text() : QString::number(col);
    }
    return {};
}

}  // namespace ostravel::test
