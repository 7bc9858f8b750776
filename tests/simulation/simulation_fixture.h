// A program folder for the simulation's tests: made-up days straight into simulation, the
// period of equitymanager, and the run's figures read back by the names of their boxes.
#pragma once

#include <QDate>
#include <vector>

#include "position/equitymanager.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {

class SimulationTest : public MarketTest {
protected:
    // Day n of a made-up stock: 1 January 2021 is day 1.
    static QDate day(int n) { return QDate(2021, 1, 1).addDays(n - 1); }
    // One close a day from day 1 on, of the stock in work (TEST unless chosen).
    void days(const std::vector<double>& closes);
    void period(const QDate& from, const QDate& to);
    // A history file of tests/data under the program's folder, as "Import History" writes it.
    void importHistory(const QString& file, const QString& symbol);
    EquityManager& em() { return m_program.module<EquityManager>(); }
    // A figure of the run by its name, as resultFields gives it.
    QString field(const QString& name);
    long long rows(const QString& table);
};

}  // namespace ostravel::test
