// A fresh program folder with its database, and the rows the position tests need.
#pragma once

#include <optional>

#include "tests/support/program_test.h"

namespace ostravel {

struct RuleSettings {
    double minTradeSell = 1000;
    double minTradeBuy = 1000;
    double minTradeSellSh = 1;
    double minTradeBuySh = 1;
    double resistSell = 10;
    double resistBuy = 10;
};

struct HoldingRow {
    QString symbol = QStringLiteral("INFY");
    QString portfolio = QStringLiteral("Growth");
    double price = 120;
    double cash = 5000;
    std::optional<double> portControl = 10000;  // none: the column is left empty
    double shares = 100;
};

class PositionTest : public test::ProgramTest {
protected:
    Store& store() { return m_program.store(); }
    void execute(const QString& sql);
    void setRule(const RuleSettings& rule);
    void addHolding(const HoldingRow& row);
    void addTrade(const HoldingRow& row, double shares, double price, const QString& kind);
    // A column of the holding row, as text.
    QString stored(const HoldingRow& row, const QString& column);
    // The first column of the first row; an empty one as an invalid QVariant.
    QVariant scalar(const QString& sql);
    QVariant usersColumn(const QString& column) {
        return scalar(QStringLiteral("select ") + column + QStringLiteral(" from users"));
    }
    QVariantList usersColumns(const QStringList& columns) {
        QVariantList values;
        for (const QString& column : columns) values << usersColumn(column);
        return values;
    }
    // Selects the holding in the main frame, the code with its ".NS".
    void select(const HoldingRow& row);
};

}  // namespace ostravel
