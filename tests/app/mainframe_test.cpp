#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "context/single_instance.h"
#include "runtime/apppath.h"
#include "tests/support/program_test.h"
#include "tests/support/store_rows.h"

namespace ostravel {
namespace {

class MainFrameTest : public test::ProgramTest {
protected:
    Store& store() { return m_program.store(); }
    MainFrame& frame() { return m_program.frame(); }
    int count(const QString& table) {
        return int(
            store().database().openRecordset(QStringLiteral("select count(*) from ") + table)->field(0).toLong());
    }
    void addPortfolio(const QString& name) {
        test::addPortfolio(store().database(), name, QStringLiteral("2020-01-01"));
    }
};

TEST_F(MainFrameTest, EmptyDatabaseOpensWithSimulationAloneAndPortfoliosFollowIt) {
    frame().MDIForm_Load();
    EXPECT_EQ(frame().cmbportfolio.items, QStringList{QStringLiteral("Simulation")});
    EXPECT_EQ(frame().cmbportfolio.text, QStringLiteral("Simulation"));
    ASSERT_FALSE(frame().Cmbequityname.items.isEmpty());
    // The first company is selected, and its click has put its code in the code box.
    EXPECT_EQ(frame().Cmbequityname.text, frame().Cmbequityname.items.front());
    EXPECT_TRUE(frame().cmbequity.endsWith(QStringLiteral(".NS")));
    EXPECT_EQ(frame().caption, frame().Cmbequityname.text);
    EXPECT_TRUE(m_prompt.asked().isEmpty());

    // Portfolios follow Simulation in the table's order.
    addPortfolio(QStringLiteral("Zeta"));
    addPortfolio(QStringLiteral("Alpha's"));
    store().connection();
    frame().MDIForm_Load();
    EXPECT_EQ(frame().cmbportfolio.items,
              (QStringList{QStringLiteral("Simulation"), QStringLiteral("Zeta"), QStringLiteral("Alpha's")}));
    EXPECT_EQ(frame().cmbportfolio.text, QStringLiteral("Simulation"));
}

TEST_F(MainFrameTest, LoadEmptiesTheSimulationTable) {
    store().database().execute(
        QStringLiteral("insert into simulation ([date], [Close], EquitySymbol) values ('2020-01-01', 10, 'X')"));
    ASSERT_EQ(count(QStringLiteral("simulation")), 1);
    frame().MDIForm_Load();
    EXPECT_EQ(count(QStringLiteral("simulation")), 0);
}

TEST_F(MainFrameTest, CodeBoxFindsTheCompanyWithOrWithoutSuffix) {
    struct Case {
        const char* code;
        const char* name;
        const char* historyFile;
    };
    const Case cases[] = {
        {"INFY.NS", "Infosys Limited", "history/daily/INFY.csv"},
        {"INFY", "Infosys Limited", "history/daily/INFY.csv"},
        {"M&M.NS", "Mahindra & Mahindra Limited", "history/daily/M&M.csv"},
        {"NOSUCHCODE.NS", "", "history/daily/NOSUCHCODE.csv"},
        {"O'BRIEN", "", "history/daily/O'BRIEN.csv"},  // an apostrophe no longer breaks the query
    };
    for (const Case& c : cases) {
        frame().caption = QStringLiteral("before");
        frame().cmbequity = QString::fromUtf8(c.code);
        frame().cmbequity_Change();
        EXPECT_EQ(frame().caption, QString::fromUtf8(c.name)) << c.code;
        EXPECT_EQ(frame().Cmbequityname.text, QString::fromUtf8(c.name)) << c.code;
        EXPECT_EQ(frame().historyFileName, m_dir.filePath(QString::fromUtf8(c.historyFile))) << c.code;
    }
}

TEST_F(MainFrameTest, CompanyNameSetsTheCodeOrLeavesIt) {
    frame().Cmbequityname.text = QStringLiteral("Infosys Limited");
    frame().Cmbequityname_Click();
    EXPECT_EQ(frame().cmbequity, QStringLiteral("INFY.NS"));

    frame().Cmbequityname.text = QStringLiteral("No Such Company");
    frame().Cmbequityname_Click();
    EXPECT_EQ(frame().cmbequity, QStringLiteral("INFY.NS"));
}

TEST_F(MainFrameTest, PortfolioChangeIgnoresOutOfStackAndLogsOthers) {
    int calls = 0;
    frame().selectportfolio = [&] {
        ++calls;
        raise(calls == 1 ? err::OutOfStack : err::InvalidProcedureCall);
    };
    frame().cmbportfolio_Change();
    EXPECT_TRUE(m_prompt.asked().isEmpty());
    m_prompt.answer(Answer::OK);
    frame().cmbportfolio_Change();
    ASSERT_EQ(m_prompt.messages().size(), 1);
    EXPECT_TRUE(m_prompt.messages().front().startsWith(
        QStringLiteral("Error 5 in (Module) Mdiform1::Sub cmbportfolio_change\n")));
}

TEST_F(MainFrameTest, CloseButtonIsRefusedUnlessFromExit) {
    EXPECT_FALSE(frame().MDIForm_QueryUnload(false));
    ASSERT_EQ(m_prompt.asked().size(), 1);
    const Asked& a = m_prompt.asked().front();
    EXPECT_EQ(a.text, QStringLiteral("Please Close from File- Exit"));
    EXPECT_EQ(a.title, QStringLiteral("Close Ostravel"));
    EXPECT_EQ(a.icon, Icon::Information);
    EXPECT_TRUE(frame().MDIForm_QueryUnload(true));
    EXPECT_EQ(m_prompt.asked().size(), 1);
}

TEST_F(MainFrameTest, KeptExitCompactsThenAsksAndNoReopens) {
    const QString live = m_dir.filePath(QStringLiteral("database/ostravel.mdb"));
    // Fill and empty a table so that the file holds free space for the compaction to drop.
    {
        Transaction t(store().database(), QStringLiteral("Test"));
        for (int i = 0; i < 3000; ++i)
            store().database().execute(QStringLiteral("insert into simulation ([date], [Close], EquitySymbol) values "
                                                      "('2020-01-01', %1, 'SOME LONG SYMBOL TEXT TO TAKE ROOM')")
                                           .arg(i));
        t.commit();
    }
    addPortfolio(QStringLiteral("Kept"));
    const qint64 before = QFileInfo(live).size();

    m_prompt.answer(Answer::No);
    EXPECT_FALSE(frame().Exit());

    const Asked& a = m_prompt.asked().back();
    EXPECT_EQ(a.text, QStringLiteral("Do you really want to exit program?"));
    EXPECT_EQ(a.title, QStringLiteral("Exiting Program..."));
    EXPECT_EQ(a.buttons, Buttons::YesNo);
    EXPECT_EQ(a.icon, Icon::Question);

    EXPECT_LT(QFileInfo(live).size(), before);
    EXPECT_FALSE(QFile::exists(m_dir.filePath(QStringLiteral("database/ostraveltemp.mdb"))));
    // Reopened: fresh recordsets on their first rows, the data all there.
    EXPECT_FALSE(store().users->eof());
    EXPECT_EQ(store().portfolio->field(QStringLiteral("PortfolioName")).toString(), QStringLiteral("Kept"));
    EXPECT_EQ(count(QStringLiteral("simulation")), 0);
}

TEST_F(MainFrameTest, ExitYesEndsWithTheDatabaseCompactedAndClosed) {
    addPortfolio(QStringLiteral("Kept"));
    m_prompt.answer(Answer::Yes);
    EXPECT_TRUE(frame().Exit());
    EXPECT_FALSE(QFile::exists(m_dir.filePath(QStringLiteral("database/ostraveltemp.mdb"))));

    Program again(m_prompt);
    again.store().connection();
    EXPECT_EQ(again.store().portfolio->field(QStringLiteral("PortfolioName")).toString(), QStringLiteral("Kept"));
}

TEST(SingleInstanceTest, SecondStartIsRefusedBeforeTheDatabase) {
    QTemporaryDir dir;
    setAppPath(dir.path());
    const QString lock = dir.filePath(QStringLiteral("ostravel.lock"));
    ScriptedPrompt prompt;

    const SingleInstance first(lock);
    EXPECT_FALSE(refuseSecondInstance(first, prompt));
    EXPECT_TRUE(prompt.asked().isEmpty());

    const SingleInstance second(lock);
    EXPECT_TRUE(refuseSecondInstance(second, prompt));
    ASSERT_EQ(prompt.asked().size(), 1);
    EXPECT_EQ(prompt.asked().front().text, QStringLiteral("System is Already in Run Mode ..."));
    EXPECT_EQ(prompt.asked().front().title, QStringLiteral("System is Already Running ..."));
    EXPECT_EQ(prompt.asked().front().icon, Icon::Critical);
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("database/ostravel.mdb"))));
}

}  // namespace
}  // namespace ostravel
