// frmdma, the 50/200 DMA screener: live quotes of every code of the symbol list with their
// moving averages, in batches, and four buttons that narrow the grid; a double click sorts it.
#pragma once

#include <QString>
#include <functional>

#include "context/gridformat.h"
#include "market/clsstockquote.h"

namespace ostravel {

class Program;

class FrmDma {
public:
    static inline const QString kFormat =
        QStringLiteral("^Symbol|^Date|^Price|^Change|^50 DMA|^200 DMA|^Price/50|^Price/200|^50/200|^Vol Var");
    static constexpr int kCols = 10;
    static constexpr int kColWidth = 1200;
    static constexpr int kBatch = 150;
    static inline const QString kNoData = QStringLiteral("Data Not available");

    explicit FrmDma(Program& program) : m_program(program) {}

    FlexGridData MSFlexGrid1{1, kCols};
    QString statement;            // the codes to ask for; "select ticker from qoutense" when empty
    bool sortDescending = false;  // Symbol's last double click sorted descending

    // The load: every code in batches, then the rows of the recent days that trade. `progress`
    // is told of each batch (done, total) and ends the load early when it returns false.
    void Form_Load(const std::function<bool(int, int)>& progress = {});
    void Cmdbest_Click();
    void cmdgainer_Click();
    void cmdlooser_Click();
    void cmdvoltopper_Click();
    // The double click on a column, counted from 0: the rows sorted by it.
    void MSFlexGrid1_DblClick(int col);
    void Gridclean();
    // "Save to Excel": the grid into a workbook the user names, opened by `open` (the
    // desktop's program for it); "Can't open Excel." when it can't be opened.
    void Cmdsave_Click(const std::function<bool(const QString&)>& open);

    // The figures of one DmaTable row as the grid shows them; false when a division fails.
    struct Figures {
        QString cells[kCols];
        double price = 0, change = 0, dma50 = 0, volVar = 0, per50 = 0, per200 = 0, ratio = 0, avgVolume = 0;
        Variant date;
    };
    static bool figures(const QuoteRow& row, Figures& out);

private:
    void show(const std::function<bool(const Figures&)>& test);
    void addRow(const Figures& f);

    Program& m_program;
};

// The grid, heading row and all, into the first sheet of a new .xlsx workbook at `path`, written
// whole or not at all. Raises 75 when it can't be written.
void saveGridToXlsx(const FlexGridData& grid, const QString& path);

}  // namespace ostravel
