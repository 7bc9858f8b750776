#include <QProcess>

#include "position_fixture.h"

namespace ostravel {
namespace {

class AdviseCliTest : public PositionTest {
protected:
    struct Run {
        int exitCode;
        QString out, err;
    };
    Run cli(const QStringList& args) {
        QProcess process;
        process.start(QStringLiteral(OSTRAVEL_CLI), QStringList{QStringLiteral("--folder"), m_dir.path()} + args);
        process.waitForFinished();
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
};

TEST_F(AdviseCliTest, PrintsTheStoredAdvice) {
    addHolding(HoldingRow());
    const struct {
        QStringList args;
        int exitCode;
        QString out;
        QString err;
    } cases[] = {
        {{"advise", "--portfolio", "Growth", "--symbol", "INFY.NS"},
         0,
         "verdict=HOLD\nnextsellprice=122.22\nnextsellshares=8\nnextbuyprice=81.82\nnextbuyshares=12\n",
         ""},
        {{"advise", "--portfolio", "Growth", "--symbol", "INFY", "--price", "75"},
         0,
         "verdict=BUY\nnextsellprice=122.22\nnextsellshares=8\nnextbuyprice=75\nnextbuyshares=23\n",
         ""},
        {{"advise", "--portfolio", "Value", "--symbol", "INFY.NS"},
         1,
         "",
         "Please select the stock available in your portfolio \n"},
        {{"advise", "--symbol", "INFY.NS"},
         2,
         "",
         "usage: ostravel-cli [--folder DIR] advise --portfolio P --symbol S [--price X]\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args.join(QLatin1Char(' ')).toStdString());
        const Run run = cli(c.args);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(run.err, c.err);
    }
}

}  // namespace
}  // namespace ostravel
