#include "store/store.h"

#include <QDir>
#include <QFileInfo>
#include <utility>
#include <vector>

#include "runtime/apppath.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "store/compaction.h"
#include "store/journal.h"

namespace ostravel {

namespace {

const QString kPlace = QStringLiteral("(Module) Module1::Sub connection");

}  // namespace

void openLiveDatabase(Database& database, const QString& path) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    recoverCompactionCopy(path);
    if (!QFileInfo::exists(path)) {
        database.create(path);
        return;
    }
    database.open(path);
    // A file of an earlier version, or restored from an old backup, gets its journal now.
    installJournal(*database.connection());
}

Store::Store(ErrorReporter& reporter) : m_reporter(reporter) {}

void Store::resetRecordsets() {
    for (std::shared_ptr<Recordset>* recordset :
         {&users, &portfolio, &trades, &equity, &qoutense, &niftyQuoteTable, &currentprice, &simulation, &compare,
          &niftyquote, &bank, &transaction_})
        recordset->reset();
}

void Store::connection() {
    resetRecordsets();
    QDir().mkpath(appFile(kDailyHistoryFolder));

    // Screens that reset their data call this with the database still open: it stays open.
    if (!m_database.isOpen()) {
        try {
            openLiveDatabase(m_database, appFile(kLiveDatabase));
        } catch (const DatabaseUnusable&) {
            throw;
        } catch (const VbError& error) {
            m_reporter.report(error, kPlace);
        }
    }

    // Kept: bank and transaction are opened though nothing reads them, and NiftyQuote twice; a
    // file without one of them is reported at every start.
    const std::vector<std::pair<std::shared_ptr<Recordset>*, QString>> tables = {
        {&users, QStringLiteral("users")},
        {&portfolio, QStringLiteral("portfolio")},
        {&trades, QStringLiteral("trades")},
        {&equity, QStringLiteral("equity")},
        {&qoutense, QStringLiteral("qoutense")},
        {&niftyQuoteTable, QStringLiteral("NiftyQuote")},
        {&currentprice, QStringLiteral("currentprice")},
        {&simulation, QStringLiteral("simulation")},
        {&compare, QStringLiteral("compare")},
        {&niftyquote, QStringLiteral("niftyquote")},
        {&bank, QStringLiteral("bank")},
        {&transaction_, QStringLiteral("transaction")},
    };
    for (const auto& entry : tables)
        trapped(m_reporter, kPlace, [&] { *entry.first = m_database.openRecordset(entry.second); });
    trapped(m_reporter, kPlace, [&] { m_database.execute(QStringLiteral("Delete * from simulation")); });
}

void Store::closeDatabase() {
    resetRecordsets();
    m_database.close();
}

}  // namespace ostravel
