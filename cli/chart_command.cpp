// ostravel-cli indicators and chart: an indicator's results bar by bar, and the chart window's
// picture as a PNG, both from the history file of a stock and the folder's Chart.INI.
#include <QImage>
#include <QSaveFile>
#include <QTextStream>
#include <cstdio>
#include <map>
#include <optional>

#include "charts/frmmain.h"
#include "charts/indicators/cci.h"
#include "charts/indicators/expmovavg.h"
#include "charts/indicators/macd.h"
#include "charts/indicators/movavg.h"
#include "charts/indicators/rocpercent.h"
#include "charts/indicators/rsi.h"
#include "charts/indicators/stoch.h"
#include "charts/mfunctions.h"
#include "charts/midicators.h"
#include "cli/commands.h"
#include "cli/headless_prompt.h"
#include "market/history.h"
#include "market/load_history.h"

namespace ostravel::cli {

namespace {

// "--name value" pairs; nothing when a word stands alone or a name is not one of `names`.
std::optional<std::map<QString, QString>> parsePairs(const QStringList& args, const QStringList& names) {
    std::map<QString, QString> values;
    if (args.size() % 2 != 0)
        return std::nullopt;
    for (qsizetype i = 0; i < args.size(); i += 2) {
        if (!names.contains(args.at(i)))
            return std::nullopt;
        values[args.at(i)] = args.at(i + 1);
    }
    return values;
}

int usage(const char* text) {
    QTextStream(stderr) << text;
    return 2;
}

QString error(const VbError& e) {
    return QStringLiteral("ostravel-cli: run-time error %1: %2").arg(e.number()).arg(e.description());
}

// The history of the stock into StockData; false, with the reason on stderr, when none loads.
bool loadHistory(Program& program) {
    if (LoadHistoryFile(program))
        return true;
    QTextStream(stderr) << "ostravel-cli: no history of " << program.frame().cmbequity << " in "
                        << historyFilePath(program.frame()) << '\n';
    return false;
}

// The class of the name with its settings, and a row of its results for a bar.
struct Calculator {
    std::unique_ptr<Indicator> indicator;
    bool ofBars = false;
    std::function<QList<double>(int)> row;
};

std::optional<Calculator> calculatorFor(const QString& name, const QString& iniFile) {
    Calculator c;
    if (name == QLatin1String("AVG")) {
        auto average = std::make_unique<MovAvg>(iniFile);
        average->GetSavedSettings(1);  // AvgLen1, AvgColor1 and AvgWidth1: the first price average
        c.row = [a = average.get()](int i) { return QList<double>{a->RetVal(i)}; };
        c.indicator = std::move(average);
        return c;
    }
    if (name == QLatin1String("EXPAVG")) {
        auto average = std::make_unique<ExpMovAvg>(iniFile);
        average->GetSavedSettings(0);
        c.row = [a = average.get()](int i) { return QList<double>{a->RetVal(i)}; };
        c.indicator = std::move(average);
        return c;
    }
    const std::optional<IndicatorKind> kind = indicatorKind(name);
    if (!kind)
        return std::nullopt;
    c.indicator = makeIndicator(*kind, iniFile);
    c.indicator->GetSavedSettings(0);
    Indicator* made = c.indicator.get();
    switch (*kind) {
        case IndicatorKind::CCI:
            c.ofBars = true;
            c.row = [m = static_cast<CCI*>(made)](int i) {
                return QList<double>{m->RetVal(i), m->RetValAvg(i), m->RetValAvgAvg(i)};
            };
            break;
        case IndicatorKind::MACD:
            c.row = [m = static_cast<MACD*>(made)](int i) {
                return QList<double>{m->RetVal(i), m->RetValSig(i), m->RetValHist(i)};
            };
            break;
        case IndicatorKind::ROC:
            c.row = [m = static_cast<ROCPercent*>(made)](int i) { return QList<double>{m->RetVal(i)}; };
            break;
        case IndicatorKind::RSI:
            c.row = [m = static_cast<RSI*>(made)](int i) { return QList<double>{m->RetVal(i)}; };
            break;
        case IndicatorKind::STOCH:
            c.ofBars = true;
            c.row = [m = static_cast<Stoch*>(made)](int i) {
                return QList<double>{m->RetValK(i), m->RetValKSlow(i), m->RetValD(i)};
            };
            break;
    }
    return c;
}

}  // namespace

int indicators(const QStringList& args) {
    const char* const kUsage =
        "usage: ostravel-cli [--folder DIR] indicators --symbol S --name CCI|MACD|ROC%|RSI|STOCH|AVG|EXPAVG\n";
    const auto options = parsePairs(args, {QStringLiteral("--symbol"), QStringLiteral("--name")});
    if (!options || options->size() != 2)
        return usage(kUsage);
    try {
        HeadlessRun run;
        Program* const opened = run.open(options->at(QStringLiteral("--symbol")));
        if (!opened)
            return 1;
        Program& program = *opened;
        if (!loadHistory(program))
            return 1;
        const QString iniFile = chartIniPath();
        if (!ExistFile(iniFile))
            MakeIniFile(iniFile);
        std::optional<Calculator> calculator = calculatorFor(options->at(QStringLiteral("--name")), iniFile);
        if (!calculator)
            return usage(kUsage);

        std::optional<VbError> failed;
        const std::vector<StockRecord>& bars = program.module<HistoryState>().StockData;
        try {
            if (calculator->ofBars) {
                calculator->indicator->Calculate(bars);
            } else {
                std::vector<double> closes(bars.size());
                for (std::size_t i = 0; i < bars.size(); ++i) closes[i] = bars[i].Close;
                calculator->indicator->Calculate(closes);
            }
        } catch (const VbError& e) {
            failed = e;  // the values as they stand are printed all the same
        }
        char number[32];
        for (int i = calculator->indicator->RetBoundLo(); i <= calculator->indicator->RetBoundHi(); ++i) {
            QByteArray line = QByteArray::number(i);
            for (const double value : calculator->row(i)) {
                std::snprintf(number, sizeof number, "%.17g", value);
                line += ',' + QByteArray(number);
            }
            std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
            std::fputc('\n', stdout);
        }
        if (failed) {
            QTextStream(stderr) << error(*failed) << '\n';
            return 1;
        }
        return 0;
    } catch (const VbError& e) {
        QTextStream(stderr) << error(e) << '\n';
        return 1;
    }
}

int chart(const QStringList& args) {
    const char* const kUsage =
        "usage: ostravel-cli [--folder DIR] chart --symbol S --out FILE.png [--width W --height H]\n";
    const auto options = parsePairs(args, {QStringLiteral("--symbol"), QStringLiteral("--out"),
                                           QStringLiteral("--width"), QStringLiteral("--height")});
    if (!options || !options->count(QStringLiteral("--symbol")) || !options->count(QStringLiteral("--out")))
        return usage(kUsage);
    const auto size = [&](const char* name, int usual) {
        const auto found = options->find(QString::fromLatin1(name));
        return found == options->end() ? usual : found->second.toInt();
    };
    const int width = size("--width", 1024);
    const int height = size("--height", 768);
    if (width < 1 || height < 1 || width > 10000 || height > 10000)
        return usage(kUsage);
    try {
        HeadlessRun run;
        Program* const opened = run.open(options->at(QStringLiteral("--symbol")));
        if (!opened)
            return 1;
        Program& program = *opened;
        FrmMain window(program);
        window.Form_Load();
        window.Form_Resize(width, height);
        window.loadHistory();
        if (!window.DataReady) {
            QTextStream(stderr) << "ostravel-cli: no history of " << program.frame().cmbequity << '\n';
            return 1;
        }
        // The picture appears whole or not at all.
        QSaveFile out(options->at(QStringLiteral("--out")));
        if (!out.open(QIODevice::WriteOnly) || !window.ChartBoxV.save(&out, "PNG") || !out.commit()) {
            QTextStream(stderr) << "ostravel-cli: can't write " << out.fileName() << '\n';
            return 1;
        }
        return 0;
    } catch (const VbError& e) {
        QTextStream(stderr) << error(e) << '\n';
        return 1;
    }
}

}  // namespace ostravel::cli
