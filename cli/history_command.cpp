// ostravel-cli history save|load|fetch|import and bhav import: the history file and the
// day-file store, headless.
#include <QFile>
#include <QTextStream>
#include <optional>

#include "cli/commands.h"
#include "cli/headless_prompt.h"
#include "cli/stock_options.h"
#include "context/program.h"
#include "market/day_store.h"
#include "market/getfrominet.h"
#include "market/history.h"
#include "market/history_import.h"
#include "market/load_history.h"
#include "market/parse_history.h"
#include "market/update_history.h"
#include "position/equitymanager.h"
#include "runtime/vbdate.h"
#include "safety/whole_file.h"

namespace ostravel::cli {

namespace {

const char* const kUsage =
    "usage: ostravel-cli [--folder DIR] history save --symbol S RAWFILE\n"
    "       ostravel-cli [--folder DIR] history load --symbol S\n"
    "       ostravel-cli [--folder DIR] history fetch --symbol S --from YYYY-MM-DD --to YYYY-MM-DD\n"
    "       ostravel-cli [--folder DIR] history import --symbol S FILE\n";

using Options = StockOptions;

int usage() {
    QTextStream(stderr) << kUsage;
    return 2;
}

QString shortest(double value) {
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

int save(Program& program, const QString& rawFile) {
    HistoryState& h = program.module<HistoryState>();
    h.DataBuffer = readWholeFile(rawFile, QStringLiteral("history save"));
    MainFrame& frame = program.frame();
    frame.caption.clear();
    ParseAndSaveData(program);
    if (frame.caption.isEmpty() && QFile::exists(historyFilePath(frame)))
        return 0;
    QTextStream(stderr) << (frame.caption.isEmpty() ? QStringLiteral("The history file was not written.")
                                                    : frame.caption)
                        << '\n';
    return 1;
}

int load(Program& program) {
    const QString path = historyFilePath(program.frame());
    if (!ExistFile(path)) {
        QTextStream(stderr) << "ostravel-cli: there is no history file " << path << '\n';
        return 1;
    }
    if (!LoadHistoryFile(program)) {
        QTextStream(stderr) << program.frame().caption << '\n';
        return 1;
    }
    QTextStream out(stdout);
    for (const StockRecord& r : program.module<HistoryState>().StockData)
        out << r.Date << ',' << shortest(r.Open) << ',' << shortest(r.High) << ',' << shortest(r.Low) << ','
            << shortest(r.Close) << ',' << r.Volume << '\n';
    return 0;
}

int fetch(Program& program, const Options& options) {
    const std::optional<double> from = parseDate(options.from);
    const std::optional<double> to = parseDate(options.to);
    if (!from || !to)
        return usage();
    EquityManager& screen = program.module<EquityManager>();
    screen.load();
    screen.dtbdate = *from;
    screen.dtedate = *to;
    getinternetdata(program);
    const bool ready = program.frame().caption == kReady;
    const bool loaded = ready && LoadHistoryFile(program);
    QTextStream(stdout) << program.frame().caption << '\n';
    return loaded ? 0 : 1;
}

}  // namespace

int history(const QStringList& args) {
    const std::optional<Options> options = parseStockOptions(args.mid(1));
    if (args.isEmpty() || !options || options->symbol.isEmpty())
        return usage();
    const QString& action = args.front();
    if (action == QLatin1String("import")) {
        if (options->files.size() != 1)
            return usage();
        const HistoryImport result = importHistoryFile(options->files.front(), options->symbol);
        QTextStream(result.error.isEmpty() ? stdout : stderr) << importSummary(result) << '\n';
        return result.error.isEmpty() ? 0 : 1;
    }
    try {
        HeadlessRun run;
        Program* const program = run.open(options->symbol);
        if (!program)
            return 1;
        if (action == QLatin1String("save") && options->files.size() == 1)
            return save(*program, options->files.front());
        if (action == QLatin1String("load") && options->files.isEmpty())
            return load(*program);
        if (action == QLatin1String("fetch") && options->files.isEmpty())
            return fetch(*program, *options);
    } catch (const VbError& error) {
        QTextStream(stderr) << "ostravel-cli: " << error.description() << '\n';
        return 1;
    }
    return usage();
}

int bhav(const QStringList& args) {
    if (args.size() < 2 || args.front() != QLatin1String("import")) {
        QTextStream(stderr) << "usage: ostravel-cli [--folder DIR] bhav import FILE...\n";
        return 2;
    }
    QTextStream out(stdout);
    QTextStream err(stderr);
    int failed = 0;
    try {
        const std::unique_ptr<DayStore> store = openDayStore();
        for (const QString& file : args.mid(1)) {
            const QByteArray text = readWholeFile(file, QStringLiteral("bhav import"));
            if (!looksLikeDayFile(text)) {
                err << file << ": not an exchange day file\n";
                ++failed;
                continue;
            }
            const DayLoad loaded = loadDayText(*store, text);
            out << file << '\t' << loaded.added << " rows added\t" << loaded.refused << " rows refused\n";
        }
    } catch (const VbError& error) {
        err << "ostravel-cli: " << error.description() << '\n';
        return 1;
    }
    return failed == 0 ? 0 : 1;
}

}  // namespace ostravel::cli
