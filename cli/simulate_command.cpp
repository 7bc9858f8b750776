// ostravel-cli simulate: what "Run Simulation" does with the program offline, on the history file
// of one stock, printed as the screen holds it.
#include <QTextStream>
#include <optional>

#include "cli/commands.h"
#include "cli/headless_prompt.h"
#include "cli/stock_options.h"
#include "context/program.h"
#include "position/equitymanager.h"
#include "runtime/vbdate.h"
#include "simulation/frame_commands.h"
#include "simulation/results.h"
#include "simulation/run_metrics.h"

namespace ostravel::cli {

namespace {

const char* const kUsage =
    "usage: ostravel-cli [--folder DIR] simulate --symbol S --from YYYY-MM-DD --to YYYY-MM-DD [--metrics]\n";

struct Options {
    QString symbol;
    double from = 0;
    double to = 0;
    bool metrics = false;
};

std::optional<Options> parse(const QStringList& args) {
    const QString metrics = QStringLiteral("--metrics");
    const std::optional<StockOptions> words = parseStockOptions(args, {metrics});
    if (!words || words->symbol.isEmpty() || !words->files.isEmpty())
        return std::nullopt;
    const std::optional<double> from = parseDate(words->from);
    const std::optional<double> to = parseDate(words->to);
    if (!from || !to)
        return std::nullopt;
    return Options{words->symbol, *from, *to, words->flags.contains(metrics)};
}

}  // namespace

int simulate(const QStringList& args) {
    QTextStream err(stderr);
    const std::optional<Options> options = parse(args);
    if (!options) {
        err << kUsage;
        return 2;
    }
    HeadlessRun run;
    Program* const opened = run.open(options->symbol);
    if (!opened)
        return 1;
    Program& program = *opened;
    program.frame().cmbequity_Change();
    EquityManager& em = program.module<EquityManager>();
    em.load();
    em.dtbdate = options->from;
    em.dtedate = options->to;

    // Offline, mainprocedures reads the history file; its message of a period without days has
    // gone to stderr.
    const RunOutcome outcome = cdmrunsimulation_Click(program);
    if (outcome == RunOutcome::NotComplete || outcome == RunOutcome::NotRun)
        return 1;

    QTextStream out(stdout);
    for (const auto& [name, value] : resultFields(program)) out << name << '=' << value << '\n';
    if (options->metrics)
        if (const std::optional<RunMetrics> metrics = runMetrics(program))
            for (const auto& [name, value] : metricFields(*metrics)) out << "metric." << name << '=' << value << '\n';
    out << "narrative:\n" << em.lblsimulation.caption;
    return 0;
}

}  // namespace ostravel::cli
