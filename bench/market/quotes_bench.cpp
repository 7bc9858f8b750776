// Quotes, ticker and screeners beside a floor measured in the same run: Lookupdma's parse of an
// answer for the whole symbol list (2,200 lines) against a bare split of its lines and fields;
// the ticker's redraw and paint of a ring of 500 items against one plain text drawn as wide;
// each Technical button on a year of 250 days x 2,000 symbols against a bare count of the day.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "bench/support/bench_folder.h"
#include "context/program.h"
#include "market/clsstockquote.h"
#include "market/day_file.h"
#include "market/day_store.h"
#include "market/scroller/msgscroller.h"
#include "market/technical.h"
#include "runtime/apppath.h"

namespace ostravel {
namespace {

// An answer of the quote service for 2,200 codes, a fifth of them thin.
QByteArray dmaAnswer() {
    QByteArray answer;
    for (int i = 0; i < 2200; ++i) {
        const QByteArray code = "CODE" + QByteArray::number(i);
        answer += '"' + code + ".NS\"," + QByteArray::number(100 + i % 50) + ".25,\"+1.25 - +1.01%\",+1.25,99.00," +
                  QByteArray::number(100000 + i) + ',' + (i % 5 == 0 ? "5000" : "250000") +
                  ",\"3/24/2021\",\"3:30pm\",98.5,95.25,\"Company " + code + " Limited\"\r\n";
    }
    return answer;
}

// The program on a folder of its own.
Program& program() {
    static bench::BenchFolder files([](Database&) {});
    static bench::RunningProgram running{QString()};
    return running.program;
}

void LookupdmaParse2200(benchmark::State& state) {
    const QByteArray answer = dmaAnswer();
    QuoteTables& tables = program().module<QuoteTables>();
    clsStockQuote quote(program());
    for (auto _ : state) {
        tables.DmaTable.assign(2201, QuoteRow{});
        tables.DmaRow = 0;
        quote.NA();
        quote.LookupdmaLines(answer);
    }
    if (tables.DmaRow < 1700)
        state.SkipWithError("too few lines stored");
}
BENCHMARK(LookupdmaParse2200)->Unit(benchmark::kMillisecond);

// The floor: the same answer cut into lines and fields, nothing kept.
void PlainSplit2200(benchmark::State& state) {
    const QByteArray answer = dmaAnswer();
    for (auto _ : state) {
        qsizetype fields = 0;
        for (const QByteArray& line : answer.split('\n')) fields += line.split(',').size();
        benchmark::DoNotOptimize(fields);
    }
}
BENCHMARK(PlainSplit2200)->Unit(benchmark::kMillisecond);

MsgScroller tickerRing(const QFontMetrics& metrics) {
    MsgScroller ring;
    ring.measure = [metrics](const QString& text) { return metrics.horizontalAdvance(text); };
    ring.textHeight = metrics.height();
    ring.setClient(1600, 24);
    for (int i = 0; i < 500; ++i)
        ring.AddItem(QStringLiteral("Company %1 Limited %2.25 %3").arg(i).arg(100 + i).arg(i % 2 ? "+1.25" : "-0.75"));
    ring.setScroll(true);
    return ring;
}

void TickerRedraw500(benchmark::State& state) {
    QImage strip(1600, 24, QImage::Format_RGB32);
    QPainter painter(&strip);
    MsgScroller ring = tickerRing(painter.fontMetrics());
    for (auto _ : state) {
        ring.tmrScroll_Timer();
        painter.fillRect(strip.rect(), Qt::black);
        for (const MsgScroller::TextRun& run : ring.runs()) {
            painter.setPen(run.colour == 255 ? Qt::red : Qt::green);
            painter.drawText(run.x, 18, run.text);
        }
    }
}
BENCHMARK(TickerRedraw500)->Unit(benchmark::kMillisecond);

// The floor: the strip's width of text in one call.
void PlainStrip(benchmark::State& state) {
    QImage strip(1600, 24, QImage::Format_RGB32);
    QPainter painter(&strip);
    QString text;
    while (painter.fontMetrics().horizontalAdvance(text) < 1600)
        text += QStringLiteral("Company 1 Limited 101.25 +1.25 · ");
    for (auto _ : state) {
        painter.fillRect(strip.rect(), Qt::black);
        painter.setPen(Qt::green);
        painter.drawText(0, 18, text);
    }
}
BENCHMARK(PlainStrip)->Unit(benchmark::kMillisecond);

// A year's table of 250 days x 2,000 symbols, made once.
DayStore& yearStore() {
    static const std::unique_ptr<DayStore> store = [] {
        program();
        auto made = openSqliteDayStore(appFile(kDayStoreFile));
        QDate day(2021, 1, 1);
        for (int d = 0; d < 250; ++d, day = day.addDays(1)) {
            DayFile file;
            for (int s = 0; s < 2000; ++s) {
                DayRow row{QStringLiteral("SYM%1").arg(s), QStringLiteral("EQ"), {}, dayTimestamp(day), day};
                const double close = 100 + (s * 7 + d * 13) % 97;
                const double previous = 100 + (s * 11 + d * 3) % 89;
                // Every 97th symbol trades far above the day's average: the volume movers.
                const double volume = s % 97 == 0 ? 90000.0 + s : double((s * d) % 5000 + 100);
                row.numbers = {close, close + 2, close - 2, close, close, previous, volume, close * 1000};
                file.rows.push_back(row);
            }
            made->load(file);
        }
        return made;
    }();
    return *store;
}

void TechnicalButton(benchmark::State& state) {
    yearStore();
    Technical& screen = program().module<Technical>();
    screen.DTPicker1 = QDate(2021, 6, 1);
    screen.Form_Load();
    void (Technical::*buttons[])() = {&Technical::Command1_Click, &Technical::Command2_Click,
                                      &Technical::Command3_Click};
    for (auto _ : state) (screen.*buttons[state.range(0)])();
    if (screen.MSFlexGrid1.rows() < 2)
        state.SkipWithError("an empty list");
}
BENCHMARK(TechnicalButton)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// The floor: the day's rows counted.
void PlainDayCount(benchmark::State& state) {
    DayStore& store = yearStore();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            store.select(QStringLiteral("select count(*) from [2021] where TIMESTAMP = '01-JUN-2021'")));
}
BENCHMARK(PlainDayCount)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ostravel

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
