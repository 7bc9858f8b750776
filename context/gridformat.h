// The MSFlexGrid as plain data: its format string read into headings and alignments, and the
// cells that the program writes by row and column, so that screens fill grids without widgets.
#pragma once

#include <QList>
#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace ostravel {

enum class CellAlignment { General, Left, Centre, Right };

struct GridColumn {
    QString heading;
    CellAlignment alignment = CellAlignment::General;

    bool operator==(const GridColumn&) const = default;
};

// "^Nos|<Symbol|>Price": one column per "|"-separated part, a leading "^" centres it, "<" sets
// it left, ">" right; without one the column keeps the general alignment.
QList<GridColumn> parseFormatString(const QString& format);

struct GridCell {
    QString text;
    std::optional<std::uint32_t> foreColour;  // none: the grid's default colour
};

// Row 0 is the fixed heading row that the format string fills. A cell beyond the grid's rows
// or columns raises 381, which is how the program finds out that a grid must grow.
class FlexGridData {
public:
    explicit FlexGridData(int rows = 2, int cols = 2);

    int rows() const { return m_rows; }
    int cols() const { return int(m_columns.size()); }
    void setRows(int rows);
    // One row more: how a statement that met 381 grows the grid before it runs again.
    void addRow() { setRows(m_rows + 1); }

    // Empties every cell, the heading row and colours included, and sets the row count back.
    void clear(int rows);

    const QString& formatString() const { return m_formatString; }
    // Sets the columns and writes their headings into row 0; widths stay where columns remain.
    void setFormatString(const QString& format);
    const GridColumn& column(int col) const { return m_columns.at(col); }

    // In twips; 0 for a column whose width was never set.
    int colWidth(int col) const { return m_widths.at(col); }
    void setColWidth(int col, int twips);

    const QString& textMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);
    std::optional<std::uint32_t> cellForeColour(int row, int col) const;
    void setCellForeColour(int row, int col, std::uint32_t colour);

private:
    GridCell& cell(int row, int col);
    const GridCell& cell(int row, int col) const;
    void requireCell(int row, int col) const;

    int m_rows;
    QString m_formatString;
    QList<GridColumn> m_columns;
    std::vector<int> m_widths;
    std::vector<std::vector<GridCell>> m_cells;  // [row][col]
};

}  // namespace ostravel
