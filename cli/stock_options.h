// The words of the commands on one stock: "--symbol S", "--from D", "--to D", flags that stand
// alone, and the plain words between them.
#pragma once

#include <QStringList>
#include <optional>

namespace ostravel::cli {

struct StockOptions {
    QString symbol;
    QString from;
    QString to;
    QStringList files;  // the plain words, in order
    QStringList flags;  // those of the known flags that were given
};

// nullopt for an unknown "--name" or one without its value.
std::optional<StockOptions> parseStockOptions(const QStringList& args, const QStringList& knownFlags = {});

}  // namespace ostravel::cli
