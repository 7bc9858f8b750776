#include "store/schema.h"

#include <sqlite3.h>

#include <QFile>
#include <QStringList>
#include <QTextStream>

#include "runtime/vberror.h"
#include "store/fieldvalue.h"
#include "store/journal.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

// The symbol list shipped with the program, as the exchange publishes it.
const QString kSymbolList = QStringLiteral(":/store/nse-equity-list.csv");
const QString kQuoteSuffix = QStringLiteral(".NS");

ColumnShape autoNumber(const char* name) {
    return {QString::fromLatin1(name), ColumnType::AutoNumber, {}, {}};
}
ColumnShape integer(const char* name, const char* defaultValue = "") {
    return {QString::fromLatin1(name), ColumnType::Integer, QString::fromLatin1(defaultValue), {}};
}
ColumnShape real(const char* name, const char* defaultValue = "") {
    return {QString::fromLatin1(name), ColumnType::Real, QString::fromLatin1(defaultValue), {}};
}
ColumnShape text(const char* name, const char* defaultValue = "") {
    return {QString::fromLatin1(name), ColumnType::Text, QString::fromLatin1(defaultValue), {}};
}
ColumnShape date(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Date, {}, {}};
}
ColumnShape key(const char* name, const char* parent) {
    return {QString::fromLatin1(name), ColumnType::Integer, {}, QString::fromLatin1(parent)};
}
// Holds a position that no column of the program claims, so that the later ones stay in place.
ColumnShape spare(int position) {
    return {QStringLiteral("Spare%1").arg(position), ColumnType::Text, {}, {}};
}

std::vector<TableShape> buildTables() {
    std::vector<TableShape> tables;
    tables.push_back({QStringLiteral("users"),
                      {autoNumber("pkUserID"),
                       real("BeginningCash", "0"),
                       integer("QuoteDL", "0"),
                       text("LastName", "'Enter your surname'"),
                       text("FirstName", "'Enter your name'"),
                       real("MinTradeSell", "1000"),
                       real("MinTradeBuy", "1000"),
                       real("MinTradeBuySh", "1"),
                       real("MinTradeSellSh", "1"),
                       real("BuyFee", "0.85"),
                       real("SellFee", "0.85"),
                       real("ResistBuy", "10"),
                       real("ResistSell", "10"),
                       real("SpareSetting"),
                       text("eMail"),
                       integer("HistoryDL", "0"),
                       real("SecondsForQuote", "30"),
                       integer("QUICK", "1"),
                       spare(18),
                       spare(19),
                       spare(20),
                       spare(21),
                       spare(22),
                       real("BeginningShares", "500")},
                      {},
                      {}});
    tables.push_back({QStringLiteral("portfolio"),
                      {autoNumber("pkPortfolioID"), integer("fkUserID"), text("PortfolioName"), date("PortStartDate")},
                      QStringLiteral("UNIQUE (\"PortfolioName\")"),
                      {}});
    tables.push_back({QStringLiteral("equity"),
                      {autoNumber("pkEquityID"),
                       key("fkPortfolioID", "portfolio(pkPortfolioID)"),
                       integer("fkUserID"),
                       text("EquitySymbol"),
                       real("OriginalPrice", "0"),
                       real("OriginalShares", "0"),
                       real("OriginalCash", "0"),
                       text("portname"),
                       real("CurrentQuotePrice", "0"),
                       date("EquityStartDate"),
                       real("CurrentCash", "0"),
                       real("CurrentShares", "0"),
                       real("PortControl", "0"),
                       real("cps", "0"),
                       real("LastTradePrice", "0"),
                       real("NextBuyPrice", "0"),
                       real("NextBuyShares", "0"),
                       real("NextSellPrice", "0"),
                       real("NextSellShares", "0"),
                       date("LastUpdated"),
                       real("peratio", "0"),
                       real("eps", "0"),
                       real("div", "0"),
                       integer("VealieFlag", "0"),
                       real("volume", "0")},
                      {},
                      {QStringLiteral("fkPortfolioID"), QStringLiteral("EquitySymbol, portname")}});
    tables.push_back(
        {QStringLiteral("trades"),
         {autoNumber("pktradeid"), integer("fkequityid"), text("EquitySymbol"), date("TradeDate"), real("Tradedshares"),
          real("PricePerShare"), real("Commission"), text("Buyselltype"), real("TradeQuotePrice"), spare(9), spare(10),
          spare(11), spare(12), spare(13), spare(14), text("portname")},
         {},
         {QStringLiteral("fkequityid"), QStringLiteral("EquitySymbol, portname")}});
    tables.push_back({QStringLiteral("qoutense"),
                      {text("ticker"), text("name"), text("yahoonse"), text("symbol")},
                      {},
                      {QStringLiteral("ticker"), QStringLiteral("name")}});
    tables.push_back({QStringLiteral("currentprice"),
                      {real("price"), date("date"), text("equitysymbol"), integer("fkequityid")},
                      {},
                      {QStringLiteral("fkequityid"), QStringLiteral("equitysymbol")}});
    tables.push_back({QStringLiteral("simulation"),
                      {date("date"), spare(1), real("Open"), real("High"), real("Low"), real("Close"), real("Volume"),
                       text("EquitySymbol")},
                      {},
                      {QStringLiteral("date")}});
    tables.push_back(
        {QStringLiteral("simtrades"),
         {date("date"), real("price"), real("shareqty"), real("buysell"), spare(4), spare(5), text("EquitySymbol")},
         {},
         {}});
    tables.push_back({QStringLiteral("compare"),
                      {date("date"), real("BuyHoldValue"), real("ControlValue"), text("EquitySymbol")},
                      {},
                      {}});
    tables.push_back({QStringLiteral("NiftyQuote"), {text("symbol"), text("name")}, {}, {}});
    tables.push_back({QStringLiteral("bank"),
                      {autoNumber("pkBankID"), text("BankName"), text("AccountNumber"), real("Balance")},
                      {},
                      {}});
    tables.push_back({QStringLiteral("transaction"),
                      {autoNumber("pkTransactionID"), integer("fkBankID"), date("TransactionDate"), real("Amount"),
                       text("Description")},
                      {},
                      {}});
    return tables;
}

QString quoted(const QString& name) {
    return QLatin1Char('"') + name + QLatin1Char('"');
}

QString columnSql(const ColumnShape& column) {
    QString sql = quoted(column.name);
    switch (column.type) {
        case ColumnType::AutoNumber:
            return sql + QStringLiteral(" INTEGER PRIMARY KEY AUTOINCREMENT");
        case ColumnType::Integer:
            sql += QStringLiteral(" INTEGER");
            break;
        case ColumnType::Real:
            sql += QStringLiteral(" REAL");
            break;
        // The engine compares texts without regard to case, in lookups as in unique names.
        case ColumnType::Text:
            sql += QStringLiteral(" TEXT COLLATE NOCASE");
            break;
        case ColumnType::Date:
            sql += QStringLiteral(" DATE");
            break;
    }
    if (!column.defaultValue.isEmpty())
        sql += QStringLiteral(" DEFAULT ") + column.defaultValue;
    if (!column.references.isEmpty())
        sql += QStringLiteral(" REFERENCES ") + column.references + QStringLiteral(" ON DELETE CASCADE");
    return sql;
}

void fillSymbolList(SqliteConnection& connection) {
    QFile file(kSymbolList);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        raise(err::FileNotFound, QStringLiteral("File not found: ") + kSymbolList);
    QTextStream in(&file);
    in.readLine();  // the exchange's header
    Statement insert = connection.prepare(
        QStringLiteral("insert into qoutense (ticker, name, yahoonse, symbol) values (?1, ?2, ?3, ?4)"));
    while (!in.atEnd()) {
        const QStringList fields = in.readLine().split(QLatin1Char(','));
        if (fields.size() < 2 || fields.at(0).trimmed().isEmpty())
            continue;
        const QString symbol = fields.at(0).trimmed();
        sqlite3_reset(insert.get());
        bindField(insert.get(), 1, Variant(symbol));
        bindField(insert.get(), 2, Variant(fields.at(1).trimmed()));
        bindField(insert.get(), 3, Variant(symbol + kQuoteSuffix));
        bindField(insert.get(), 4, Variant(symbol));
        insert.step();
    }
}

}  // namespace

const std::vector<TableShape>& schemaTables() {
    static const std::vector<TableShape> tables = buildTables();
    return tables;
}

QString createTableSql(const TableShape& table) {
    QStringList parts;
    for (const ColumnShape& column : table.columns) parts << columnSql(column);
    if (!table.constraints.isEmpty())
        parts << table.constraints;
    return QStringLiteral("CREATE TABLE ") + quoted(table.name) + QStringLiteral(" (") +
           parts.join(QStringLiteral(", ")) + QLatin1Char(')');
}

void createSchema(SqliteConnection& connection) {
    for (const TableShape& table : schemaTables()) {
        connection.run(createTableSql(table));
        for (const QString& columns : table.indexes) {
            QString name = columns;
            name.remove(QLatin1Char(' '));
            name.replace(QLatin1Char(','), QLatin1Char('_'));
            QStringList quotedColumns;
            for (const QString& column : columns.split(QLatin1Char(','))) quotedColumns << quoted(column.trimmed());
            connection.run(QStringLiteral("CREATE INDEX ") + quoted(table.name + QStringLiteral("_by_") + name) +
                           QStringLiteral(" ON ") + quoted(table.name) + QStringLiteral(" (") +
                           quotedColumns.join(QStringLiteral(", ")) + QLatin1Char(')'));
        }
    }
    // A deleted portfolio takes its holdings along (by key), and their trades and prices with
    // them. A holding deleted on its own leaves its trades: the trade screen's Close removes a
    // symbol's holdings in every portfolio, and the ledger of the others must survive that.
    connection.run(
        QStringLiteral("CREATE TRIGGER portfolio_takes_its_ledger BEFORE DELETE ON portfolio BEGIN "
                       "DELETE FROM trades WHERE fkequityid IN (SELECT pkEquityID FROM equity WHERE fkPortfolioID = "
                       "OLD.pkPortfolioID); "
                       "DELETE FROM currentprice WHERE fkequityid IN "
                       "(SELECT pkEquityID FROM equity WHERE fkPortfolioID = OLD.pkPortfolioID); END"));
    connection.run(QStringLiteral("INSERT INTO users DEFAULT VALUES"));
    fillSymbolList(connection);
    installJournal(connection);
}

}  // namespace ostravel
