#include "context/gridformat.h"

#include "runtime/vberror.h"

namespace ostravel {

QList<GridColumn> parseFormatString(const QString& format) {
    QList<GridColumn> columns;
    if (format.isEmpty())
        return columns;
    for (const QString& part : format.split(QLatin1Char('|'))) {
        GridColumn column;
        column.heading = part;
        if (!part.isEmpty()) {
            switch (part.front().unicode()) {
                case u'^':
                    column.alignment = CellAlignment::Centre;
                    break;
                case u'<':
                    column.alignment = CellAlignment::Left;
                    break;
                case u'>':
                    column.alignment = CellAlignment::Right;
                    break;
                default:
                    break;
            }
            if (column.alignment != CellAlignment::General)
                column.heading.remove(0, 1);
        }
        columns << column;
    }
    return columns;
}

FlexGridData::FlexGridData(int rows, int cols) : m_rows(0), m_columns(cols), m_widths(size_t(cols), 0) {
    setRows(rows);
}

void FlexGridData::setRows(int rows) {
    if (rows < 0)
        raise(err::InvalidPropertyValue);
    m_rows = rows;
    m_cells.resize(size_t(rows), std::vector<GridCell>(size_t(cols())));
}

void FlexGridData::clear(int rows) {
    m_cells.clear();
    setRows(rows);
}

void FlexGridData::setFormatString(const QString& format) {
    m_formatString = format;
    m_columns = parseFormatString(format);
    m_widths.resize(size_t(cols()), 0);
    for (auto& row : m_cells) row.resize(size_t(cols()));
    for (int col = 0; col < cols() && m_rows > 0; ++col) cell(0, col).text = m_columns.at(col).heading;
}

void FlexGridData::setColWidth(int col, int twips) {
    if (col < 0 || col >= cols())
        raise(err::InvalidArrayIndex);
    m_widths[size_t(col)] = twips;
}

const QString& FlexGridData::textMatrix(int row, int col) const {
    return cell(row, col).text;
}

void FlexGridData::setTextMatrix(int row, int col, const QString& text) {
    cell(row, col).text = text;
}

std::optional<std::uint32_t> FlexGridData::cellForeColour(int row, int col) const {
    return cell(row, col).foreColour;
}

void FlexGridData::setCellForeColour(int row, int col, std::uint32_t colour) {
    cell(row, col).foreColour = colour;
}

void FlexGridData::requireCell(int row, int col) const {
    if (row < 0 || row >= m_rows || col < 0 || col >= cols())
        raise(err::InvalidArrayIndex);
}

GridCell& FlexGridData::cell(int row, int col) {
    requireCell(row, col);
    return m_cells[size_t(row)][size_t(col)];
}

const GridCell& FlexGridData::cell(int row, int col) const {
    requireCell(row, col);
    return m_cells[size_t(row)][size_t(col)];
}

}  // namespace ostravel
