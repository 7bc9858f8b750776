#include "bench/support/bench_folder.h"

#include "runtime/apppath.h"
#include "store/database.h"
#include "store/store.h"

namespace ostravel::bench {

BenchFolder::BenchFolder(const std::function<void(Database&)>& fill) {
    setAppPath(m_dir.path());
    Database db;
    openLiveDatabase(db, databasePath());
    Transaction work(db, QStringLiteral("Bench holdings"));
    fill(db);
    work.commit();
}

QString BenchFolder::databasePath() const {
    return appFile(kLiveDatabase);
}

void addPortfolio(Database& db, const QString& name) {
    db.execute(QStringLiteral("insert into portfolio (fkUserID, PortfolioName, PortStartDate) values (1, '") + name +
               QStringLiteral("', #1/3/2005#)"));
}

void addTrade(Database& db, int holdingId, const QString& symbol, const QString& portfolio, const BenchTrade& trade) {
    const QString quoteColumn = trade.quoted ? QStringLiteral(", TradeQuotePrice") : QString();
    const QString quote = trade.quoted ? QStringLiteral(", 100.5") : QString();
    db.execute(QStringLiteral("insert into trades (fkequityid, EquitySymbol, portname, TradeDate, Tradedshares, "
                              "PricePerShare, Commission, Buyselltype%1) values (%2, '%3', '%4', #2/17/2006#, 10, "
                              "100.5, %5, '%6'%7)")
                   .arg(quoteColumn)
                   .arg(holdingId)
                   .arg(symbol, portfolio)
                   .arg(trade.commission)
                   .arg(trade.kind, quote));
}

RunningProgram::RunningProgram(const QString& portfolio, const QString& symbol) {
    program.store().connection();
    program.frame().cmbportfolio.text = portfolio;
    if (!symbol.isEmpty())
        program.frame().cmbequity = symbol + QStringLiteral(".NS");
}

}  // namespace ostravel::bench
