// The module-level state of the store: the live database and the recordsets that connection
// opens for the whole run, under the names of their tables.
#pragma once

#include <QString>
#include <memory>

#include "store/database.h"
#include "store/recordset.h"

namespace ostravel {

class ErrorReporter;

// Where the program keeps its files, below App.Path.
inline const QString kLiveDatabase = QStringLiteral("database/ostravel.mdb");
inline const QString kDailyHistoryFolder = QStringLiteral("history/daily");

// Opens the live file, first taking back a copy that an interrupted compaction left in its
// place, and makes a new one with every table, and its folder, when there is none. Either way
// the file has its journal of changes.
void openLiveDatabase(Database& database, const QString& path);

class Store {
public:
    explicit Store(ErrorReporter& reporter);

    // Opens the database and the recordsets below, in their order, and empties simulation.
    // A failing step goes to the error log and the next one runs; a file that is no database
    // or is damaged raises DatabaseUnusable, and is left as it is.
    void connection();
    // Closes the database; the recordsets go with it.
    void closeDatabase();

    Database& database() { return m_database; }

    std::shared_ptr<Recordset> users;
    std::shared_ptr<Recordset> portfolio;
    std::shared_ptr<Recordset> trades;
    std::shared_ptr<Recordset> equity;
    std::shared_ptr<Recordset> qoutense;
    // The table NiftyQuote as connection opens it first; never used after that.
    std::shared_ptr<Recordset> niftyQuoteTable;
    std::shared_ptr<Recordset> currentprice;
    std::shared_ptr<Recordset> simulation;
    std::shared_ptr<Recordset> compare;
    // The same table a second time, replaced at start-up by the list of company names.
    std::shared_ptr<Recordset> niftyquote;
    std::shared_ptr<Recordset> bank;
    std::shared_ptr<Recordset> transaction_;

private:
    void resetRecordsets();

    ErrorReporter& m_reporter;
    Database m_database;
};

}  // namespace ostravel
