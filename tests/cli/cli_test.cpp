// ostravel-cli as a script sees it: its output lines and exit codes.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

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

TEST(CliInfo, RefusesAFileThatIsNoDatabaseAndLeavesIt) {
    QTemporaryDir dir;
    QDir(dir.path()).mkpath(QStringLiteral("database"));
    const QString path = dir.filePath(QStringLiteral("database/ostravel.mdb"));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("these are the user's notes, not a database");
    f.close();

    const CliRun r = cli({QStringLiteral("--folder"), dir.path(), QStringLiteral("info")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.contains(path)) << r.err.toStdString();
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("these are the user's notes, not a database"));
}

TEST(CliHe3, PacksAndUnpacksAFileAndRefusesGarbage) {
    QTemporaryDir dir;
    const QString in = dir.filePath(QStringLiteral("in.txt"));
    const QString packed = dir.filePath(QStringLiteral("in.he3"));
    const QString out = dir.filePath(QStringLiteral("out.txt"));
    QFile f(in);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    const QByteArray text = QByteArray("Rs. 1,23,456.78 in cash and 500 shares of INFY\n").repeated(200);
    f.write(text);
    f.close();

    EXPECT_EQ(cli({QStringLiteral("he3"), QStringLiteral("pack"), in, packed}).exitCode, 0);
    EXPECT_EQ(cli({QStringLiteral("he3"), QStringLiteral("unpack"), packed, out}).exitCode, 0);
    QFile o(out);
    ASSERT_TRUE(o.open(QIODevice::ReadOnly));
    EXPECT_EQ(o.readAll(), text);

    const CliRun bad = cli({QStringLiteral("he3"), QStringLiteral("unpack"), in, dir.filePath(QStringLiteral("x"))});
    EXPECT_EQ(bad.exitCode, 2);
    EXPECT_FALSE(bad.err.isEmpty());
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("x"))));
}

TEST(Cli, UnknownCommandShowsUsage) {
    const CliRun r = cli({QStringLiteral("nonsense")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("usage:")));
}

}  // namespace
