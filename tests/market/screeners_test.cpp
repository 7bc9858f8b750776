// The screeners: frmdma's load in batches against the loopback service, its buttons and sort on
// a fixed DmaTable, the workbook it saves; Technical on the two real day files of tests/data.
#include <QProcess>

#include "market/day_file.h"
#include "market/day_store.h"
#include "market/frmdma.h"
#include "market/technical.h"
#include "runtime/vbdate.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

class ScreenersTest : public MarketTest {
protected:
    FrmDma& dma() { return m_program.module<FrmDma>(); }
    QStringList column(const FlexGridData& grid, int col) {
        QStringList cells;
        for (int r = 1; r < grid.rows(); ++r) cells << grid.textMatrix(r, col);
        return cells;
    }
    // Rows as Lookupdma leaves them: price, previous close, volume text, average volume text,
    // the day, the two averages.
    void fixedTable() {
        struct Row {
            const char* symbol;
            double price, close;
            const char *volume, *average;
            double daysAgo, dma50, dma200;
        };
        const Row rows[] = {{"A", 10, 9, "400,000", "100000", 0, 11, 12},
                            {"B", 20, 25, "1,000", "40000", 0, 18, 15},
                            {"C", 30, 0, "1,000", "90000", 0, 30, 30},
                            {"D", 50, 40, "2,000", "900000", 20, 45, 40}};
        QuoteTables& tables = m_program.module<QuoteTables>();
        tables.DmaTable.assign(5, QuoteRow{});
        tables.DmaRow = 4;
        for (std::size_t i = 0; i < 4; ++i) {
            const Row& r = rows[i];
            QuoteRow& q = tables.DmaTable[i];
            q[1] = r.symbol;
            q[2] = r.price;
            q[4] = r.close;
            q[5] = r.volume;
            q[7] = r.average;
            q[8] = Variant::date(today() - r.daysAgo);
            q[11] = r.dma50;
            q[12] = r.dma200;
        }
    }
};

TEST_F(ScreenersTest, TheLoadAsksInBatchesOf150WithAmpersandsEncoded) {
    m_service.setQuoteDay(QDate::currentDate());
    int calls = 0;
    dma().Form_Load([&](int, int) { return ++calls > 0; });
    const auto requests = m_service.requests();
    ASSERT_EQ(requests.size(), 15u);
    for (const ServiceRequest& r : requests) EXPECT_LE(r.value(QStringLiteral("s")).count(QLatin1Char('+')), 150);
    EXPECT_TRUE(std::any_of(requests.begin(), requests.end(),
                            [](const ServiceRequest& r) { return r.query.contains(QLatin1String("+M%26M.NS+")); }));
    EXPECT_EQ(m_program.module<QuoteTables>().DmaRow, 2219);
    EXPECT_EQ(column(dma().MSFlexGrid1, 0), QStringList({"M&M", "RELIANCE"}));
    EXPECT_EQ(calls, 16);
}

TEST_F(ScreenersTest, EachButtonShowsTheRowsThatPassItsTest) {
    fixedTable();
    struct Case {
        const char* name;
        void (FrmDma::*click)();
        QStringList symbols;
    };
    const Case cases[] = {{"Best Picks", &FrmDma::Cmdbest_Click, {"A"}},
                          {"Top Gainer", &FrmDma::cmdgainer_Click, {"A", "D"}},
                          {"Top Looser", &FrmDma::cmdlooser_Click, {"B"}},
                          {"Volume Topper", &FrmDma::cmdvoltopper_Click, {"A", "B", "D"}}};
    for (const Case& c : cases) {
        (dma().*c.click)();
        EXPECT_EQ(column(dma().MSFlexGrid1, 0), c.symbols) << c.name;
    }
    const QStringList a = {"A", dateToString(today()), "10", "11.11", "11", "12", ".91", ".83", ".92", "4"};
    for (int col = 0; col < FrmDma::kCols; ++col) EXPECT_EQ(dma().MSFlexGrid1.textMatrix(1, col), a[col]) << col;
    m_program.module<QuoteTables>().DmaRow = 0;
    dma().cmdgainer_Click();
    EXPECT_EQ(column(dma().MSFlexGrid1, 0), QStringList{FrmDma::kNoData});
}

TEST_F(ScreenersTest, KeptNumericColumnsAlwaysSortDescendingAndSymbolsAlternate) {
    fixedTable();
    dma().cmdvoltopper_Click();
    const std::pair<int, QStringList> clicks[] = {
        {3, {"D", "A", "B"}}, {3, {"D", "A", "B"}}, {0, {"D", "B", "A"}}, {0, {"A", "B", "D"}}, {9, {"A", "B", "D"}}};
    for (const auto& [col, order] : clicks) {
        dma().MSFlexGrid1_DblClick(col);
        EXPECT_EQ(column(dma().MSFlexGrid1, 0), order) << col;
    }
}

TEST_F(ScreenersTest, SaveToExcelWritesAWorkbookThatOpensEvenWhenExcelCannot) {
    fixedTable();
    dma().cmdgainer_Click();
    const QString path = m_dir.filePath(QStringLiteral("dma.xlsx"));
    m_prompt.answerText(path);
    m_prompt.answer(Answer::OK);
    dma().Cmdsave_Click([](const QString&) { return false; });
    EXPECT_EQ(m_prompt.messages(), QStringList{QStringLiteral("Can't open Excel.")});
    QProcess reader;
    // Debian's own interpreter, which has the spreadsheet reader.
    reader.start(QStringLiteral("/usr/bin/python3"),
                 {QStringLiteral("-c"),
                  QStringLiteral("import openpyxl,sys\n"
                                 "ws = openpyxl.load_workbook(sys.argv[1]).active\n"
                                 "for row in ws.iter_rows(values_only=True): print(row)"),
                  path});
    ASSERT_TRUE(reader.waitForFinished(30000));
    const QStringList lines =
        QString::fromUtf8(reader.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 3) << reader.readAllStandardError().toStdString();
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("('Symbol', 'Date', 'Price', 'Change'"))) << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith(QStringLiteral("('A', '") + dateToString(today()) + QStringLiteral("', 10, 11.11")))
        << lines[1].toStdString();
}

TEST_F(ScreenersTest, TechnicalListsTheDayOfTheStoreAndNothingForADayWithoutTrading) {
    auto store = openDayStore();
    for (const char* file : {"bhav/cm23MAR2021bhav.csv", "bhav/cm24MAR2021bhav.csv"})
        store->load(parseDayFile(readTestFile(testData(QString::fromLatin1(file)))));
    Technical& screen = m_program.module<Technical>();
    screen.Form_Load();
    struct Case {
        const char* name;
        QDate day;
        void (Technical::*click)();
        int rows;
        QStringList first;
    };
    const Case cases[] = {
        {"Gainers", {2021, 3, 24}, &Technical::Command1_Click, 485, {"1", "TATACOMM", "1085.1", "426.8", "154.24"}},
        {"Lossers", {2021, 3, 24}, &Technical::Command2_Click, 1442, {"1", "SRTRANSFIN", "", "1240", "-100"}},
        {"Volume", {2021, 3, 24}, &Technical::Command3_Click, 84, {"1", "MTNL"}},
        {"a Sunday", {2021, 3, 28}, &Technical::Command1_Click, 0, {}},
        {"a year not in the store", {2019, 3, 25}, &Technical::Command1_Click, 0, {}},
    };
    for (const Case& c : cases) {
        screen.DTPicker1 = c.day;
        (screen.*c.click)();
        EXPECT_EQ(screen.MSFlexGrid1.rows() - 1, c.rows) << c.name;
        for (int col = 0; col < c.first.size(); ++col)
            EXPECT_EQ(screen.MSFlexGrid1.textMatrix(1, col), c.first[col]) << c.name << " " << col;
    }
    screen.DTPicker1 = QDate(2021, 3, 24);
    screen.Command3_Click();
    screen.MSFlexGrid1_Click(1);
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("MTNL"));
    EXPECT_TRUE(m_prompt.messages().isEmpty());
}

}  // namespace
}  // namespace ostravel::test
