#include "tests/support/store_rows.h"

#include "store/database.h"
#include "store/sqltext.h"

namespace ostravel::test {

QString sqlNumber(double value) {
    return QString::number(value, 'g', 17);
}

QString sqlNumberOrNull(const std::optional<double>& value) {
    return value ? sqlNumber(*value) : QStringLiteral("NULL");
}

void addPortfolio(Database& db, const QString& name, const QString& startDate) {
    db.execute(QStringLiteral("insert into portfolio (fkUserID, PortfolioName, PortStartDate) select 1, '%1', '%2' "
                              "where not exists (select 1 from portfolio where PortfolioName='%1')")
                   .arg(sqlText(name), startDate));
}

QString holdingWhere(const QString& symbol, const QString& portfolio) {
    return QStringLiteral(" where EquitySymbol='") + sqlText(symbol) + QStringLiteral("' and portname='") +
           sqlText(portfolio) + QLatin1Char('\'');
}

QVariant scalar(Database& db, const QString& sql) {
    const Variant value = db.openRecordset(sql)->field(0);
    if (value.isNull())
        return {};
    return value.kind() == Variant::Kind::String ? QVariant(value.toString()) : QVariant(value.toDouble());
}

}  // namespace ostravel::test
