#include "context/gridformat.h"

#include <gtest/gtest.h>

#include "runtime/vberror.h"

namespace ostravel {
namespace {

using A = CellAlignment;

TEST(GridFormat, FormatStringGivesHeadingsAndAlignments) {
    struct Case {
        const char* format;
        QList<GridColumn> columns;
    };
    const Case cases[] = {
        {"^Nos|<Symbol|>Price", {{"Nos", A::Centre}, {"Symbol", A::Left}, {"Price", A::Right}}},
        {"^Nos|<Trade ID|^Symbol", {{"Nos", A::Centre}, {"Trade ID", A::Left}, {"Symbol", A::Centre}}},
        {"Plain|^", {{"Plain", A::General}, {"", A::Centre}}},
        {"^50 Day's DMA", {{"50 Day's DMA", A::Centre}}},
        {"||", {{"", A::General}, {"", A::General}, {"", A::General}}},
        {"^^Twice", {{"^Twice", A::Centre}}},  // only the first character aligns
        {"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.format);
        EXPECT_EQ(parseFormatString(QString::fromUtf8(c.format)), c.columns);
    }
}

TEST(GridFormat, FormatStringWritesTheHeadingRowAndKeepsWidths) {
    FlexGridData grid(2, 3);
    grid.setColWidth(1, 1200);
    grid.setFormatString(QStringLiteral("^A|<B"));
    EXPECT_EQ(grid.cols(), 2);
    EXPECT_EQ(grid.textMatrix(0, 0), QStringLiteral("A"));
    EXPECT_EQ(grid.textMatrix(0, 1), QStringLiteral("B"));
    EXPECT_EQ(grid.colWidth(1), 1200);
    EXPECT_EQ(grid.column(1).alignment, A::Left);
}

TEST(GridFormat, CellsBeyondTheGridRaise381) {
    FlexGridData grid(2, 2);
    struct Case {
        int row, col;
    };
    for (const Case c : {Case{2, 0}, Case{0, 2}, Case{-1, 0}}) {
        try {
            grid.setTextMatrix(c.row, c.col, QStringLiteral("x"));
            ADD_FAILURE() << c.row << "," << c.col << " was written";
        } catch (const VbError& e) {
            EXPECT_EQ(e.number(), err::InvalidArrayIndex);
        }
    }
    grid.setRows(3);
    grid.setTextMatrix(2, 1, QStringLiteral("x"));
    EXPECT_EQ(grid.textMatrix(2, 1), QStringLiteral("x"));
}

TEST(GridFormat, ClearEmptiesTextsAndColoursAndResetsTheRows) {
    FlexGridData grid(4, 2);
    grid.setFormatString(QStringLiteral("^A|^B"));
    grid.setTextMatrix(3, 1, QStringLiteral("x"));
    grid.setCellForeColour(3, 1, 255);
    grid.clear(2);
    EXPECT_EQ(grid.rows(), 2);
    EXPECT_EQ(grid.textMatrix(0, 0), QString());
    grid.setRows(4);
    EXPECT_EQ(grid.textMatrix(3, 1), QString());
    EXPECT_EQ(grid.cellForeColour(3, 1), std::nullopt);
}

}  // namespace
}  // namespace ostravel
