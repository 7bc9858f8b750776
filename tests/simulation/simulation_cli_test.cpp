// ostravel-cli simulate as a script sees it: a whole run on a real history against its golden
// file (the printed figures, every row of simtrades and compare, the narrative), and its refusals.
#include <QFile>
#include <QProcess>

#include "store/database.h"
#include "tests/simulation/simulation_fixture.h"

namespace ostravel::test {
namespace {

struct CliRun {
    int exitCode;
    QByteArray out;
    QString err;
};

class SimulationCliTest : public SimulationTest {
protected:
    CliRun cli(const QStringList& args) {
        QProcess p;
        p.start(QStringLiteral(OSTRAVEL_CLI), QStringList{QStringLiteral("--folder"), m_dir.path()} + args);
        p.waitForFinished(120000);
        return {p.exitCode(), p.readAllStandardOutput(), QString::fromUtf8(p.readAllStandardError())};
    }
    // A table's rows as lines of its fields, in the table's order.
    QByteArray table(const QString& sql) {
        Database db;
        db.open(m_folder.live());
        QByteArray lines;
        for (auto rs = db.openRecordset(sql); !rs->eof(); rs->moveNext()) {
            QStringList fields;
            for (int i = 0; i < rs->fieldCount(); ++i)
                fields << (rs->field(i).isNull() ? QString() : rs->field(i).toString());
            lines += fields.join(QLatin1Char(',')).toUtf8() + '\n';
        }
        return lines;
    }
};

// The golden file shows each CR of the narrative as "<CR>", so that it reads as plain lines.
TEST_F(SimulationCliTest, AWholeRunOnARealHistoryMatchesItsGoldenFile) {
    importHistory(QStringLiteral("TATAMOTORS.csv"), QStringLiteral("TMPV"));
    const QStringList args = {QStringLiteral("simulate"),   QStringLiteral("--symbol"),   QStringLiteral("TMPV.NS"),
                              QStringLiteral("--from"),     QStringLiteral("2021-01-01"), QStringLiteral("--to"),
                              QStringLiteral("2023-01-01"), QStringLiteral("--metrics")};
    const CliRun run = cli(args);
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();
    QByteArray shown = "$ ostravel-cli --folder DIR " + args.join(QLatin1Char(' ')).toUtf8() + '\n' + run.out;
    shown.replace('\r', "<CR>");
    shown += "\n\n# simtrades: date,price,shareqty,buysell,,,EquitySymbol\n" +
             table(QStringLiteral("select * from simtrades")) +
             "\n# compare: date,BuyHoldValue,ControlValue,EquitySymbol\n" +
             table(QStringLiteral("select * from compare"));

    const QString golden = testData(QStringLiteral("simulation/TMPV.golden"));
    if (qEnvironmentVariableIsSet("OSTRAVEL_WRITE_GOLDEN")) {
        QFile out(golden);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(shown);
    }
    EXPECT_EQ(shown, readTestFile(golden));
}

TEST_F(SimulationCliTest, RefusesWhatItCannotRun) {
    importHistory(QStringLiteral("TATAMOTORS.csv"), QStringLiteral("TMPV"));
    const struct {
        QStringList args;
        int exitCode;
        QString err;
    } cases[] = {
        {{"simulate", "--symbol", "TMPV", "--from", "2023-01-01", "--to", "2024-01-01"},
         1,
         "History is not Complete for the Selected Period\n"},
        {{"simulate", "--symbol", "TMPV", "--from", "2023-01-01"},
         2,
         "usage: ostravel-cli [--folder DIR] simulate --symbol S --from YYYY-MM-DD --to YYYY-MM-DD [--metrics]\n"},
    };
    for (const auto& c : cases) {
        const CliRun run = cli(c.args);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_TRUE(run.out.isEmpty());
        EXPECT_EQ(run.err, c.err);
    }
}

}  // namespace
}  // namespace ostravel::test
