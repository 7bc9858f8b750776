#include "cli/stock_options.h"

namespace ostravel::cli {

std::optional<StockOptions> parseStockOptions(const QStringList& args, const QStringList& knownFlags) {
    StockOptions options;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& word = args.at(i);
        if (!word.startsWith(QLatin1String("--"))) {
            options.files << word;
            continue;
        }
        if (knownFlags.contains(word)) {
            options.flags << word;
            continue;
        }
        if (i + 1 >= args.size())
            return std::nullopt;
        const QString& value = args.at(++i);
        if (word == QLatin1String("--symbol"))
            options.symbol = value;
        else if (word == QLatin1String("--from"))
            options.from = value;
        else if (word == QLatin1String("--to"))
            options.to = value;
        else
            return std::nullopt;
    }
    return options;
}

}  // namespace ostravel::cli
