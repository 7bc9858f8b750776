// ostravel-cli as a script sees it: its output lines and exit codes.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include "store/database.h"
#include "tests/service/market_service.h"

namespace {

struct CliRun {
    int exitCode;
    QString out;
    QString err;
};

CliRun cli(const QStringList& args) {
    QProcess p;
    p.start(QStringLiteral(OSTRAVEL_CLI), args);
    p.waitForFinished(60000);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

TEST(CliInfo, CreatesTheDatabaseAndCountsEveryTable) {
    QTemporaryDir dir;
    const CliRun r = cli({QStringLiteral("--folder"), dir.path(), QStringLiteral("info")});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_TRUE(QFile::exists(dir.filePath(QStringLiteral("database/ostravel.mdb"))));
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    EXPECT_TRUE(lines.contains(QStringLiteral("users\t1")));
    EXPECT_TRUE(lines.contains(QStringLiteral("qoutense\t2219")));
    EXPECT_TRUE(lines.contains(QStringLiteral("equity\t0")));
    EXPECT_TRUE(lines.contains(QStringLiteral("transaction\t0")));
}

// Every command that opens the store refuses the same way, and leaves the file as it was.
TEST(Cli, EveryCommandRefusesAFileThatIsNoDatabaseAndLeavesIt) {
    const QStringList commands[] = {
        {QStringLiteral("info")},
        {QStringLiteral("advise"), QStringLiteral("--portfolio"), QStringLiteral("P"), QStringLiteral("--symbol"),
         QStringLiteral("INFY")},
        {QStringLiteral("simulate"), QStringLiteral("--symbol"), QStringLiteral("INFY"), QStringLiteral("--from"),
         QStringLiteral("2020-01-01"), QStringLiteral("--to"), QStringLiteral("2020-12-31")},
        {QStringLiteral("quote"), QStringLiteral("INFY")},
        {QStringLiteral("indicators"), QStringLiteral("--symbol"), QStringLiteral("INFY"), QStringLiteral("--name"),
         QStringLiteral("RSI")},
        {QStringLiteral("chart"), QStringLiteral("--symbol"), QStringLiteral("INFY"), QStringLiteral("--out"),
         QStringLiteral("x.png")},
        {QStringLiteral("history"), QStringLiteral("load"), QStringLiteral("--symbol"), QStringLiteral("INFY")},
    };
    for (const QStringList& command : commands) {
        SCOPED_TRACE(command.join(QLatin1Char(' ')).toStdString());
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("database"));
        const QString path = dir.filePath(QStringLiteral("database/ostravel.mdb"));
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("these are the user's notes, not a database");
        f.close();

        const CliRun r = cli(QStringList{QStringLiteral("--folder"), dir.path()} + command);
        EXPECT_EQ(r.exitCode, 1);
        EXPECT_TRUE(r.err.contains(QStringLiteral("ostravel-cli: ")) && r.err.contains(path)) << r.err.toStdString();
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        EXPECT_EQ(f.readAll(), QByteArray("these are the user's notes, not a database"));
    }
}

// The commands' own words are tested beside their logic; here, that each reaches its command.
TEST(Cli, UnknownWordsShowTheUsageOfTheCommandOrOfAll) {
    for (const auto& [args, usage] : {std::pair{QStringList{QStringLiteral("nonsense")}, "usage: ostravel-cli"},
                                      std::pair{QStringList{QStringLiteral("he3"), QStringLiteral("squeeze")},
                                                "usage: ostravel-cli he3 pack|unpack IN OUT"}}) {
        const CliRun r = cli(args);
        EXPECT_EQ(r.exitCode, 2);
        EXPECT_TRUE(r.err.contains(QLatin1String(usage))) << r.err.toStdString();
    }
}

}  // namespace

namespace {

QString data(const char* relative) {
    return qEnvironmentVariable("OSTRAVEL_TEST_DATA") + QLatin1Char('/') + QLatin1String(relative);
}

// A program folder whose hosts.ini names one service.
bool writeHosts(const QString& folder, const QString& line) {
    QDir().mkpath(folder);
    QFile hosts(QDir(folder).filePath(QStringLiteral("hosts.ini")));
    return hosts.open(QIODevice::WriteOnly) && hosts.write(("[Hosts]\n" + line + "\n").toLatin1()) > 0;
}

TEST(CliHistory, SavesAnAnswerAndLoadsItBackAsTheProgramReadsIt) {
    QTemporaryDir dir;
    const QString raw = dir.filePath(QStringLiteral("raw.txt"));
    QFile f(raw);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("HTTP/1.1 200 OK\r\nDate: Mon, 1 Jan 2007 10:00:00 GMT\r\n\r\nDate,Open,High,Low,Close,Volume,Adj Close\n" +
            QByteArray("2006-02-17,1.2345,2,1,1.5,1234567.6,1.5\n2006-02-16,0.1,0.2,0.3,0.30000000000000004,7,1\n")
                .repeated(8));
    f.close();
    const QString folder = dir.filePath(QStringLiteral("p"));
    ASSERT_EQ(cli({"--folder", folder, "history", "save", "--symbol", "TEST.NS", raw}).exitCode, 0);
    const CliRun load = cli({"--folder", folder, "history", "load", "--symbol", "TEST"});
    ASSERT_EQ(load.exitCode, 0) << load.err.toStdString();
    const QStringList lines = load.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 16);
    EXPECT_EQ(lines.front(), QStringLiteral("16/02/2006,0.1,0.2,0.3,0.3,7"));
    EXPECT_EQ(lines.back(), QStringLiteral("17/02/2006,1.234,2,1,1.5,1234568"));

    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write("no such thing as a date here");
    f.close();
    const CliRun bad = cli({"--folder", folder, "history", "save", "--symbol", "TEST", raw});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(bad.err.trimmed(), QStringLiteral("Error with Data, \"Date\" not found"));
    EXPECT_EQ(cli({"--folder", folder, "history", "load", "--symbol", "TEST"}).exitCode, 1);
}

TEST(CliHistory, ImportsByHeaderNamesAndLoadsDayFilesIntoTheStore) {
    QTemporaryDir dir;
    const CliRun imported =
        cli({"--folder", dir.path(), "history", "import", "--symbol", "MM", data("history/M&M.csv")});
    EXPECT_EQ(imported.out.trimmed(), QStringLiteral("2041 rows written, 0 null rows skipped, 0 rows refused"));
    const CliRun loaded = cli({"--folder", dir.path(), "history", "load", "--symbol", "MM.NS"});
    EXPECT_TRUE(loaded.out.startsWith(QStringLiteral("02/01/2012,343.9,346,334.9,337,3061024\n")));

    const QString day = data("bhav/cm23MAR2021bhav.csv");
    EXPECT_EQ(cli({"--folder", dir.path(), "bhav", "import", day}).out,
              day + QStringLiteral("\t2033 rows added\t0 rows refused\n"));
    EXPECT_EQ(cli({"--folder", dir.path(), "bhav", "import", day}).out,
              day + QStringLiteral("\t0 rows added\t0 rows refused\n"));
}

TEST(CliHistory, FetchesPagesFromTheServiceAndPrintsTheLastCaption) {
    QTemporaryDir dir;
    ostravel::test::MarketService service(qEnvironmentVariable("OSTRAVEL_TEST_DATA"));
    ASSERT_TRUE(writeHosts(dir.path(), QStringLiteral("history=") + service.hostPort()));
    ASSERT_EQ(cli({"--folder", dir.path(), "info"}).exitCode, 0);
    {
        ostravel::Database database;
        database.open(dir.filePath(QStringLiteral("database/ostravel.mdb")));
        database.execute(QStringLiteral("update users set SecondsForQuote = 0"));
    }
    const CliRun r = cli({"--folder", dir.path(), "history", "fetch", "--symbol", "RELIANCE.NS", "--from", "2022-01-01",
                          "--to", "2022-12-31"});
    EXPECT_EQ(r.out, QStringLiteral("Got history of RELIANCE From File\n")) << r.err.toStdString();
    EXPECT_EQ(service.requests().size(), 2u);
}

TEST(CliCharts, IndicatorsPrintEachBarAndAnErrorKeepsTheValuesAsTheyStand) {
    QTemporaryDir dir;
    cli({"--folder", dir.path(), "history", "import", "--symbol", "TATAMOTORS", data("history/TATAMOTORS.csv")});
    const std::pair<const char*, qsizetype> names[] = {{"CCI", 4},   {"MACD", 4}, {"ROC%", 2},  {"RSI", 2},
                                                       {"STOCH", 4}, {"AVG", 2},  {"EXPAVG", 2}};
    for (const auto& [name, fields] : names) {
        const CliRun r = cli({"--folder", dir.path(), "indicators", "--symbol", "TATAMOTORS", "--name", name});
        ASSERT_EQ(r.exitCode, 0) << name << r.err.toStdString();
        const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        ASSERT_EQ(lines.size(), 249) << name;
        EXPECT_EQ(lines.back().split(QLatin1Char(',')).size(), fields) << name;
        EXPECT_TRUE(lines.front().startsWith(QStringLiteral("0,"))) << name;
    }
    EXPECT_TRUE(QFile::exists(dir.filePath(QStringLiteral("Chart.INI"))));
    // RSI over one bar divides by zero at the first rise: the bars before it are printed as they are.
    QFile ini(dir.filePath(QStringLiteral("Chart.INI")));
    ASSERT_TRUE(ini.open(QIODevice::ReadWrite));
    const QByteArray text = ini.readAll().replace("RsiLen=14", "RsiLen=1");
    ini.resize(0);
    ini.write(text);
    ini.close();
    const CliRun failed = cli({"--folder", dir.path(), "indicators", "--symbol", "TATAMOTORS", "--name", "RSI"});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_TRUE(failed.err.contains(QStringLiteral("run-time error 11"))) << failed.err.toStdString();
    EXPECT_TRUE(failed.out.startsWith(QStringLiteral("0,0\n1,0\n")));

    const QString picture = dir.filePath(QStringLiteral("chart.png"));
    const CliRun drawn = cli({"--folder", dir.path(), "chart", "--symbol", "TATAMOTORS", "--out", picture, "--width",
                              "640", "--height", "480"});
    ASSERT_EQ(drawn.exitCode, 0) << drawn.err.toStdString();
    EXPECT_EQ(QImage(picture).size(), QSize(640, 480));
    EXPECT_EQ(cli({"--folder", dir.path(), "chart", "--symbol", "NOSUCH", "--out", picture}).exitCode, 1);
}

TEST(CliMarket, PrintsTheQuoteTableAndTheDayScreenersGrid) {
    QTemporaryDir dir;
    ostravel::test::MarketService service(qEnvironmentVariable("OSTRAVEL_TEST_DATA"));
    ASSERT_TRUE(writeHosts(dir.path(), QStringLiteral("quote=") + service.hostPort()));
    const CliRun quote = cli({"--folder", dir.path(), "quote", "RELIANCE.NS+TATAMOTORS.NS"});
    const QStringList lines = quote.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2) << quote.err.toStdString();
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("RELIANCE\t2444.10\t-23.50\t2467.60\t6,287,407\t\t")));
    EXPECT_EQ(lines[0].split(QLatin1Char('\t')).size(), 12);
    EXPECT_TRUE(lines[1].startsWith(QStringLiteral("TATAMOTORS\t404.25\t+8.15\t")));

    cli({"--folder", dir.path(), "bhav", "import", data("bhav/cm23MAR2021bhav.csv"), data("bhav/cm24MAR2021bhav.csv")});
    const CliRun gainers = cli({"--folder", dir.path(), "technical", "--date", "2021-03-24", "gainers"});
    EXPECT_EQ(gainers.out.count(QLatin1Char('\n')), 485);
    EXPECT_TRUE(gainers.out.startsWith(QStringLiteral("1\tTATACOMM\t1085.1\t426.8\t154.24\t")))
        << gainers.out.left(80).toStdString();
    EXPECT_EQ(cli({"--folder", dir.path(), "technical", "--date", "24/03/2021", "gainers"}).exitCode, 2);
}

}  // namespace
