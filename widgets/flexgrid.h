// MSFlexGrid on a QTableWidget: a FlexGridData shown with row 0 as the header, its format
// string's alignments on headings and cells, and its column widths in twips.
#pragma once

#include <QColor>

#include "context/gridformat.h"

class QTableWidget;

namespace ostravel {

constexpr int kTwipsPerPixel = 15;
inline int twipsToPixels(int twips) {
    return twips / kTwipsPerPixel;
}

Qt::Alignment toQtAlignment(CellAlignment alignment);
// The program's colour number, red in the low byte.
QColor toQColor(std::uint32_t colour);

// Read-only, whole-row selection, no row numbers: the grid as the program's screens show it.
void setUpFlexGrid(QTableWidget& table);
// Mirrors the grid: headings from row 0, its other rows as the table's rows, each column at
// least its width in twips and wide enough for its heading and texts.
void showFlexGrid(QTableWidget& table, const FlexGridData& grid);

}  // namespace ostravel
