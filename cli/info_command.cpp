// ostravel-cli info: the tables of the folder's database with their numbers of rows.
#include <QTextStream>

#include "cli/commands.h"
#include "runtime/apppath.h"
#include "store/database.h"
#include "store/store.h"

namespace ostravel::cli {

int info(const QStringList& args) {
    QTextStream err(stderr);
    if (!args.isEmpty()) {
        err << "usage: ostravel-cli [--folder DIR] info\n";
        return 2;
    }
    Database database;
    try {
        openLiveDatabase(database, appFile(kLiveDatabase));
        QTextStream out(stdout);
        for (const QString& table : database.tableNames()) out << table << '\t' << database.rowCount(table) << '\n';
    } catch (const VbError& error) {
        err << "ostravel-cli: " << error.description() << '\n';
        return 1;
    }
    return 0;
}

}  // namespace ostravel::cli
