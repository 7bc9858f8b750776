// A program folder whose hosts.ini points at the loopback market service, with the fetcher's
// waits made short and every caption of the main frame recorded as it passes.
#pragma once

#include <QByteArray>
#include <QStringList>

#include "tests/ledger/holdings.h"
#include "tests/service/market_service.h"
#include "tests/support/program_test.h"

namespace ostravel::test {

// tests/data, as CTest hands it over.
QString testData(const QString& relative = {});
QByteArray readTestFile(const QString& path);

class MarketTest : public ProgramTest {
protected:
    MarketTest();
    ~MarketTest() override;

    // hosts.ini: the given [Hosts] lines, each "key=value".
    void writeHosts(const QStringList& lines);
    void setSecondsForQuote(double seconds);
    // The code in work and the period of equitymanager.
    void choose(const QString& code, const QDate& from, const QDate& to);
    QByteArray historyFile(const QString& symbol) const;
    // The portfolio "Growth" with these holdings, chosen in the main frame.
    void holdGrowth(std::initializer_list<TestHolding> holdings);

    MarketService m_service{testData()};
    QStringList m_captions;
    QTemporaryDir m_settings;
};

}  // namespace ostravel::test
