#include "tests/simulation/simulation_fixture.h"

#include "market/history_import.h"
#include "runtime/vbdate.h"
#include "simulation/results.h"
#include "store/database.h"
#include "tests/support/store_rows.h"

namespace ostravel::test {

void SimulationTest::days(const std::vector<double>& closes) {
    if (m_program.frame().cmbequity.isEmpty())
        m_program.frame().cmbequity = QStringLiteral("TEST.NS");
    Database& db = m_program.store().database();
    db.execute(QStringLiteral("delete from simulation"));
    for (std::size_t i = 0; i < closes.size(); ++i)
        db.execute(
            QStringLiteral("insert into simulation (date, Open, High, Low, Close, Volume, EquitySymbol) "
                           "values ('%1', %2, %2, %2, %2, 1000, '%3')")
                .arg(day(int(i) + 1).toString(Qt::ISODate), sqlNumber(closes[i]), m_program.frame().equitySymbol()));
}

void SimulationTest::period(const QDate& from, const QDate& to) {
    em().load();
    em().dtbdate = dateSerial(from);
    em().dtedate = dateSerial(to);
}

void SimulationTest::importHistory(const QString& file, const QString& symbol) {
    ASSERT_TRUE(importHistoryFile(testData(QStringLiteral("history/") + file), symbol).error.isEmpty());
}

QString SimulationTest::field(const QString& name) {
    for (const auto& [key, value] : resultFields(m_program))
        if (key == name)
            return value;
    ADD_FAILURE() << "no figure " << name.toStdString();
    return {};
}

long long SimulationTest::rows(const QString& table) {
    return m_program.store().database().rowCount(table);
}

}  // namespace ostravel::test
