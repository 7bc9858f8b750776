#include "tests/market/market_fixture.h"

#include <QFile>
#include <QSettings>

#include "market/winsock.h"
#include "position/equitymanager.h"
#include "runtime/vbdate.h"

namespace ostravel::test {

QString testData(const QString& relative) {
    const QString root = qEnvironmentVariable("OSTRAVEL_TEST_DATA");
    return relative.isEmpty() ? root : root + QLatin1Char('/') + relative;
}

QByteArray readTestFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

MarketTest::MarketTest() {
    // The proxy's registry key lives in a folder of the test's own.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    writeHosts({QStringLiteral("history=") + m_service.hostPort(), QStringLiteral("quote=") + m_service.hostPort(),
                QStringLiteral("bhav=") + m_service.hostPort()});
    setSecondsForQuote(0);
    Winsock& ws = m_program.module<Winsock>();
    ws.waitStepMs = 1;
    ws.idleLimitMs = 3000;
    m_program.frame().mirror = [this] {
        if (m_captions.isEmpty() || m_captions.back() != m_program.frame().caption)
            m_captions << m_program.frame().caption;
    };
}

MarketTest::~MarketTest() {
    m_program.frame().mirror = {};
}

void MarketTest::writeHosts(const QStringList& lines) {
    QFile file(m_folder.file(QStringLiteral("hosts.ini")));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(("[Hosts]\n" + lines.join(QLatin1Char('\n')) + "\n").toLatin1());
}

void MarketTest::setSecondsForQuote(double seconds) {
    m_program.store().database().execute(QStringLiteral("update users set SecondsForQuote = %1").arg(seconds));
}

void MarketTest::choose(const QString& code, const QDate& from, const QDate& to) {
    m_program.frame().cmbequity = code;
    EquityManager& screen = m_program.module<EquityManager>();
    screen.load();
    screen.dtbdate = dateSerial(from);
    screen.dtedate = dateSerial(to);
}

QByteArray MarketTest::historyFile(const QString& symbol) const {
    return readTestFile(m_folder.file(QStringLiteral("history/daily/") + symbol + QStringLiteral(".csv")));
}

void MarketTest::holdGrowth(std::initializer_list<TestHolding> holdings) {
    Database& db = m_program.store().database();
    addPortfolio(db, QStringLiteral("Growth"));
    for (const TestHolding& holding : holdings) addHolding(db, QStringLiteral("Growth"), holding);
    m_program.frame().cmbportfolio.text = QStringLiteral("Growth");
}

}  // namespace ostravel::test
