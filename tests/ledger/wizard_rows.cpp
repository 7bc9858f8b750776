#include "tests/ledger/wizard_rows.h"

#include "store/database.h"
#include "store/sqltext.h"

namespace ostravel {

long long addKeyedHolding(Database& db, const KeyedHolding& h) {
    db.execute(QStringLiteral("insert into equity (fkPortfolioID, fkUserID, EquitySymbol, portname, EquityStartDate, "
                              "OriginalPrice, OriginalShares, OriginalCash, CurrentQuotePrice, cps, VealieFlag) "
                              "values ((select pkPortfolioID from portfolio where PortfolioName='%1'), 1, '%2', '%1', "
                              "'%3', 100, 10, 1000, 120, %4, 1)")
                   .arg(sqlText(h.portfolio), h.symbol, h.startDate)
                   .arg(h.cps));
    return db.openRecordset(QStringLiteral("select max(pkEquityID) from equity"))->field(0).toLong();
}

void addKeyedTrade(Database& db, long long holdingId, const KeyedHolding& h) {
    db.execute(QStringLiteral("insert into trades (fkequityid, EquitySymbol, portname, TradeDate, Tradedshares, "
                              "PricePerShare, Commission, Buyselltype) values (%1, '%2', '%3', '2024-01-03', 10, 100, "
                              "5, 'Buy')")
                   .arg(holdingId)
                   .arg(h.symbol, sqlText(h.portfolio)));
}

QStringList tableRows(Database& db, const QString& sql) {
    QStringList rows;
    for (auto rs = db.openRecordset(sql); !rs->eof(); rs->moveNext()) {
        QStringList fields;
        for (int i = 0; i < rs->fieldCount(); ++i) {
            const Variant value = rs->field(i);
            fields << (value.isNull() ? QStringLiteral("Null") : value.toString());
        }
        rows << fields.join(QLatin1Char('|'));
    }
    return rows;
}

}  // namespace ostravel
