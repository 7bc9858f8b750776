// ostravel-cli advise: the advice of one holding, stored as the program stores it, and printed.
#include <QTextStream>
#include <optional>

#include "cli/commands.h"
#include "cli/headless_prompt.h"
#include "context/program.h"
#include "position/advice.h"
#include "position/equitymanager.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/prompt.h"

namespace ostravel::cli {

namespace {

const char* const kUsage = "usage: ostravel-cli [--folder DIR] advise --portfolio P --symbol S [--price X]\n";

struct Options {
    QString portfolio;
    QString symbol;
    std::optional<QString> price;
};

std::optional<Options> parse(const QStringList& args) {
    Options options;
    for (qsizetype i = 0; i + 1 < args.size(); i += 2) {
        const QString& name = args.at(i);
        const QString& value = args.at(i + 1);
        if (name == QLatin1String("--portfolio"))
            options.portfolio = value;
        else if (name == QLatin1String("--symbol"))
            options.symbol = value;
        else if (name == QLatin1String("--price"))
            options.price = value;
        else
            return std::nullopt;
    }
    if (args.size() % 2 != 0 || options.portfolio.isEmpty() || options.symbol.isEmpty())
        return std::nullopt;
    return options;
}

}  // namespace

int advise(const QStringList& args) {
    QTextStream err(stderr);
    const std::optional<Options> options = parse(args);
    if (!options) {
        err << kUsage;
        return 2;
    }

    HeadlessRun run;
    run.prompt().whatIfPrice = options->price;
    Program* const opened = run.open(options->symbol);
    if (!opened)
        return 1;
    Program& program = *opened;
    program.frame().cmbportfolio.text = options->portfolio;

    const AdviceOutcome outcome = options->price ? advisewhatif(program) : advise(program);
    switch (outcome) {
        case AdviceOutcome::Advised:
            break;
        case AdviceOutcome::NotRun:
            err << "ostravel-cli: the price is no number, or 0: nothing advised\n";
            return 2;
        case AdviceOutcome::NoSharesOrPrice:
        case AdviceOutcome::NotInPortfolio:
            return 1;  // its message is printed
    }

    QTextStream out(stdout);
    out << "verdict=" << program.module<EquityManager>().lbladvise.caption << '\n';
    try {
        const auto holding = openHolding(program);
        for (const char* column : {"nextsellprice", "nextsellshares", "nextbuyprice", "nextbuyshares"})
            out << column << '=' << columnText(holding->field(QString::fromLatin1(column))) << '\n';
    } catch (const VbError& error) {
        err << "ostravel-cli: " << error.description() << '\n';
        return 1;
    }
    return 0;
}

}  // namespace ostravel::cli
