// Rows written straight into the program's database for a test's set-up, and values read back.
#pragma once

#include <QString>
#include <QVariant>
#include <optional>

namespace ostravel {
class Database;
}

namespace ostravel::test {

// Every digit of the double, so that the column holds exactly the value of the test.
QString sqlNumber(double value);
// None as NULL.
QString sqlNumberOrNull(const std::optional<double>& value);

// A portfolio of the first user, unless one of that name is there already.
void addPortfolio(Database& db, const QString& name, const QString& startDate);

// The condition that picks one holding's rows, from " where" on.
QString holdingWhere(const QString& symbol, const QString& portfolio);

// The first column of the first row of a query; Null as an invalid QVariant.
QVariant scalar(Database& db, const QString& sql);

}  // namespace ostravel::test
