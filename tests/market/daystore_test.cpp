// The day-file store: the exchange's files parsed with their refusals, a day loaded once only,
// "Update History" against the loopback service, and the same store on a PostgreSQL server
// that the test starts in a folder of its own.
#include <pwd.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include "market/day_file.h"
#include "market/day_store.h"
#include "market/update_history.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

QByteArray dayFile(const char* name) {
    return readTestFile(testData(QStringLiteral("bhav/") + QLatin1String(name)));
}

TEST(DayFile, RefusesShortLinesAndTextsInNumbersAndKeepsTheRest) {
    const DayFile bad = parseDayFile(
        "SYMBOL,SERIES,OPEN,HIGH,LOW,CLOSE,LAST,PREVCLOSE,TOTTRDQTY,TOTTRDVAL,TIMESTAMP,\n"
        "RELIANCE,EQ,1,2,3,4,5,6,7,8,23-MAR-2021,\nSHORT,EQ,1,2\nTEXT,EQ,1,two,3,4,5,6,7,8,23-MAR-2021,\n"
        "INFY,EQ,1,2,3,4,5,6,7,8,23-MAR-2021,9,INE,\n");
    ASSERT_EQ(bad.rows.size(), 2u);
    EXPECT_EQ(bad.refused, 2);
    EXPECT_EQ(bad.rows[1].SYMBOL, QStringLiteral("INFY"));
    EXPECT_EQ(bad.rows[1].day, QDate(2021, 3, 23));
    EXPECT_EQ(dayFilePath(QDate(2021, 3, 5)),
              QStringLiteral("/content/historical/EQUITIES/2021/MAR/cm05MAR2021bhav.csv"));
}

// The same checks on either engine: two days, each loaded twice, and the last day seen.
void loadTwiceAddsNothing(DayStore& store) {
    EXPECT_FALSE(store.lastDay().has_value());
    EXPECT_EQ(loadDayText(store, dayFile("cm23MAR2021bhav.csv")).added, 2033);
    EXPECT_EQ(loadDayText(store, dayFile("cm23MAR2021bhav.csv")).added, 0);
    EXPECT_EQ(loadDayText(store, dayFile("cm24MAR2021bhav.csv")).added, 2014);
    EXPECT_EQ(store.lastDay(), QDate(2021, 3, 24));
    EXPECT_EQ(loadDayText(store, "<html>Not Found</html>").added, 0);
}

TEST(DayStoreSqlite, ADayLoadsOnceOnly) {
    QTemporaryDir dir;
    loadTwiceAddsNothing(*openSqliteDayStore(dir.filePath(QStringLiteral("NSEHISTORY.mdb"))));
}

class UpdateHistoryTest : public MarketTest {};

TEST_F(UpdateHistoryTest, FetchesEachDayFromTheStoresLastAndKeepsTheFiles) {
    {
        const auto store = openDayStore();
        loadDayText(*store, dayFile("cm23MAR2021bhav.csv"));
    }
    m_prompt.answer(Answer::OK);
    const long long added = cmdupdatehistory_Click(m_program, QDate(2021, 3, 26));
    EXPECT_EQ(added, 2014);
    EXPECT_EQ(m_prompt.messages(), QStringList({QStringLiteral("All Stock History")}));
    EXPECT_EQ(m_program.frame().caption, QStringLiteral("2014 Total  Record updated "));
    QStringList paths;
    for (const ServiceRequest& r : m_service.requests()) paths << r.path;
    EXPECT_EQ(paths, QStringList({"/content/historical/EQUITIES/2021/MAR/cm24MAR2021bhav.csv",
                                  "/content/historical/EQUITIES/2021/MAR/cm25MAR2021bhav.csv",
                                  "/content/historical/EQUITIES/2021/MAR/cm26MAR2021bhav.csv"}));
    EXPECT_EQ(readTestFile(m_folder.file(QStringLiteral("history/bhav/cm24MAR2021bhav.csv"))),
              dayFile("cm24MAR2021bhav.csv"));
    EXPECT_EQ(openDayStore()->lastDay(), QDate(2021, 3, 24));
}

// A PostgreSQL server of the test's own: initdb into a temporary folder, a Unix socket and no
// TCP, stopped at the end. As root the server runs as the postgres user.
class PostgresServer {
public:
    PostgresServer() {
        const QString bin = binFolder();
        if (bin.isEmpty())
            return;
        m_dir.setAutoRemove(true);
        const QString data = m_dir.filePath(QStringLiteral("data"));
        QStringList prefix;
        if (::geteuid() == 0) {
            const passwd* user = ::getpwnam("postgres");
            if (!user || ::chown(m_dir.path().toLocal8Bit().constData(), user->pw_uid, user->pw_gid) != 0)
                return;
            prefix = {QStringLiteral("runuser"), QStringLiteral("-u"), QStringLiteral("postgres"),
                      QStringLiteral("--")};
        }
        m_pgctl = prefix + QStringList{bin + QStringLiteral("/pg_ctl"), QStringLiteral("-D"), data};
        if (!run(prefix + QStringList{bin + QStringLiteral("/initdb"), QStringLiteral("-D"), data, QStringLiteral("-U"),
                                      QStringLiteral("ostravel"), QStringLiteral("--auth=trust")}))
            return;
        m_started = run(m_pgctl + QStringList{QStringLiteral("-w"), QStringLiteral("-l"),
                                              m_dir.filePath(QStringLiteral("log")), QStringLiteral("-o"),
                                              QStringLiteral("-k %1 -c listen_addresses=''").arg(m_dir.path()),
                                              QStringLiteral("start")});
    }
    ~PostgresServer() {
        if (m_started)
            run(m_pgctl + QStringList{QStringLiteral("-w"), QStringLiteral("-m"), QStringLiteral("fast"),
                                      QStringLiteral("stop")});
    }
    bool started() const { return m_started; }
    QString socketFolder() const { return m_dir.path(); }

private:
    static QString binFolder() {
        QStringList places = {QFileInfo(QStandardPaths::findExecutable(QStringLiteral("initdb"))).absolutePath()};
        for (const QString& version : QDir(QStringLiteral("/usr/lib/postgresql"))
                                          .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed))
            places << QStringLiteral("/usr/lib/postgresql/") + version + QStringLiteral("/bin");
        for (const QString& place : places)
            if (QFile::exists(place + QStringLiteral("/pg_ctl")) && QFile::exists(place + QStringLiteral("/initdb")))
                return place;
        return {};
    }
    static bool run(const QStringList& command) {
        QProcess p;
        p.setProcessChannelMode(QProcess::MergedChannels);
        p.start(command.front(), command.mid(1));
        const bool ok = p.waitForFinished(120000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
        if (!ok)
            ADD_FAILURE() << command.join(' ').toStdString() << "\n" << p.readAll().toStdString();
        return ok;
    }

    QTemporaryDir m_dir{QStringLiteral("/tmp/ostravel-pg-XXXXXX")};
    QStringList m_pgctl;
    bool m_started = false;
};

TEST(DayStorePostgres, ADayLoadsOnceOnlyOnARealServer) {
    PostgresServer server;
    ASSERT_TRUE(server.started()) << "the PostgreSQL server (scripts/setup.sh installs it) did not start";
    const auto store = openPostgresDayStore(
        {server.socketFolder(), QString(), QStringLiteral("postgres"), QStringLiteral("ostravel")});
    loadTwiceAddsNothing(*store);
}

}  // namespace
}  // namespace ostravel::test
