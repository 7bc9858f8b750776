#include "tests/store/storetestsupport.h"

#include <QFile>

namespace ostravel::test {

ScratchFolder::ScratchFolder() {
    EXPECT_TRUE(m_dir.isValid());
}

ScratchDatabase::ScratchDatabase() : path(folder.file(QStringLiteral("ostravel.mdb"))) {
    db.create(path);
}

void addSampleData(Database& db) {
    db.execute(
        QStringLiteral("insert into portfolio (fkUserID, PortfolioName, PortStartDate) "
                       "values (1, 'Growth', #1/3/2005#)"));
    db.execute(
        QStringLiteral("insert into portfolio (fkUserID, PortfolioName, PortStartDate) "
                       "values (1, 'Income', #6/1/2005#)"));
    const struct {
        int portfolio;
        const char* portname;
        const char* symbol;
        double price;
    } holdings[] = {{1, "Growth", "INFY", 1400.5},
                    {1, "Growth", "TCS", 2100},
                    {1, "Growth", "M&M", 640},
                    {2, "Income", "INFY", 1500}};
    for (const auto& h : holdings) {
        const QString values = QStringLiteral("%1, 1, '%2', '%3', %4, 10, 20000, %4, 5000, 10, #2/17/2006#")
                                   .arg(h.portfolio)
                                   .arg(QString::fromLatin1(h.symbol), QString::fromLatin1(h.portname))
                                   .arg(h.price);
        db.execute(QStringLiteral("insert into equity (fkPortfolioID, fkUserID, EquitySymbol, portname, "
                                  "OriginalPrice, OriginalShares, OriginalCash, CurrentQuotePrice, CurrentCash, "
                                  "CurrentShares, EquityStartDate) values (") +
                   values + QLatin1Char(')'));
    }
    // Two buys and a sell for each holding, and two prices seen.
    for (int equity = 1; equity <= 4; ++equity) {
        const QString symbol = equity == 2   ? QStringLiteral("TCS")
                               : equity == 3 ? QStringLiteral("M&M")
                                             : QStringLiteral("INFY");
        const QString portname = equity == 4 ? QStringLiteral("Income") : QStringLiteral("Growth");
        const QString head = QStringLiteral(
                                 "insert into trades (fkequityid, EquitySymbol, portname, TradeDate, "
                                 "Tradedshares, PricePerShare, Commission, Buyselltype) values (%1, '%2', '%3', ")
                                 .arg(equity)
                                 .arg(symbol, portname);
        db.execute(head + QStringLiteral("#2/17/2006#, 10, 100, 8.5, 'Buy')"));
        db.execute(head + QStringLiteral("#3/1/2006#, 5, 110, 4.68, 'Buy')"));
        db.execute(head + QStringLiteral("#4/3/2006#, -3, 125, 3.19, 'Sell')"));
        const QString price = QStringLiteral(
            "insert into currentprice (price, date, equitysymbol, fkequityid) "
            "values (%1, %2, '%3', %4)");
        db.execute(price.arg(120).arg(QStringLiteral("#4/3/2006#"), symbol).arg(equity));
        db.execute(price.arg(121.5).arg(QStringLiteral("#4/4/2006 15:30:00#"), symbol).arg(equity));
    }
}

QByteArray fileBytes(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

}  // namespace ostravel::test
