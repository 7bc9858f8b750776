// The frame's "Run Simulation" and "Get History" on real histories, from a file and from the
// loopback service, with what they write to the frame and to equitymanager.
#include "context/screens.h"
#include "market/history.h"
#include "position/equitymanager_actions.h"
#include "simulation/frame_commands.h"
#include "store/database.h"
#include "tests/simulation/simulation_fixture.h"

namespace ostravel::test {
namespace {

class SimulationCommandsTest : public SimulationTest {
protected:
    MainFrame& frame() { return m_program.frame(); }
    // A year of Tata Motors' history (TATAMOTORS, the listing now called TMPV) in its file, chosen
    // as the stock in work, over its whole span.
    void tataMotors() {
        importHistory(QStringLiteral("TATAMOTORS.csv"), QStringLiteral("TMPV"));
        frame().cmbequity = QStringLiteral("TMPV.NS");
        period(QDate(2021, 1, 1), QDate(2023, 1, 1));
    }
};

TEST_F(SimulationCommandsTest, RunSimulationWritesTheNarrativeUnderTheCompanysNameAndGetHistoryRunsWithout) {
    tataMotors();
    EXPECT_EQ(cdmrunsimulation_Click(m_program), RunOutcome::Completed);
    const QString name = QStringLiteral("Tata Motors Passenger Vehicles Limited");
    EXPECT_EQ(frame().caption, name);
    EXPECT_EQ(frame().cmbportfolio.text, MainFrame::kSimulation);
    EXPECT_EQ(frame().panel6, QStringLiteral("Simulation of ") + name);
    EXPECT_TRUE(
        em().lblsimulation.caption.startsWith(QLatin1Char(' ') + name + QStringLiteral("\r\n\r\nOn 19/10/2021 ")));
    EXPECT_TRUE(m_program.module<Screens>().shown().contains(QStringLiteral("equitymanager")));
    EXPECT_FALSE(em().Frame2_0Visible);
    EXPECT_FALSE(em().cmdaddtrade.enabled);
    EXPECT_TRUE(em().Command3.enabled);
    EXPECT_EQ(rows(QStringLiteral("compare")), 248);
    EXPECT_TRUE(m_captions.contains(QStringLiteral("Getting history of TMPV From file")));
    EXPECT_TRUE(m_prompt.asked().isEmpty());

    // Get History runs again, without the narrative.
    m_program.store().database().execute(QStringLiteral("delete from compare"));
    period(QDate(2021, 1, 1), QDate(2023, 1, 1));
    em().lblsimulation.caption = QStringLiteral("the last run's words");
    m_program.module<SimulationButtons>().cdmrunsimulation.enabled = false;
    EXPECT_EQ(Command1_Click(m_program), RunOutcome::Completed);
    EXPECT_EQ(em().lblsimulation.caption, QStringLiteral("the last run's words"));
    EXPECT_TRUE(m_program.module<SimulationButtons>().cdmrunsimulation.enabled);
    EXPECT_EQ(rows(QStringLiteral("compare")), 248);
    frame().cmbequity.clear();
    EXPECT_EQ(Command1_Click(m_program), RunOutcome::NotRun);
}

TEST_F(SimulationCommandsTest, ACodeNotInTheListStillGetsItsNarrative) {
    importHistory(QStringLiteral("TATAMOTORS.csv"), QStringLiteral("NOSUCH"));
    frame().cmbequity = QStringLiteral("NOSUCH.NS");
    frame().caption = QStringLiteral("the old caption");
    period(QDate(2021, 1, 1), QDate(2023, 1, 1));
    EXPECT_EQ(cdmrunsimulation_Click(m_program), RunOutcome::Completed);
    EXPECT_EQ(m_prompt.messages(), QStringList{kStockCodeWrong});
    EXPECT_TRUE(em().lblsimulation.caption.startsWith(QStringLiteral(" Got history of NOSUCH From File\r\n")));
    // "Enter Equity" runs nothing at all.
    m_prompt.clear();
    frame().cmbequity = QStringLiteral("Enter Equity");
    EXPECT_EQ(cdmrunsimulation_Click(m_program), RunOutcome::NotRun);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(SimulationCommandsTest, KeptRunSimulationReportsUnderGetHistorysName) {
    tataMotors();
    m_program.store().database().execute(QStringLiteral("drop table qoutense"));
    m_prompt.answer(Answer::OK);
    cdmrunsimulation_Click(m_program);
    ASSERT_FALSE(m_prompt.messages().isEmpty());
    EXPECT_TRUE(
        m_prompt.messages().front().contains(QStringLiteral(" in (Form) MDIForm1::Sub Command1_Click             \n")))
        << m_prompt.messages().front().toStdString();
}

TEST_F(SimulationCommandsTest, NothingLoadedDoesNotRunAnotherStocksHistory) {
    days({100, 130, 80, 90});
    frame().cmbequity = QStringLiteral("INFY.NS");
    period(day(1), day(9));
    m_prompt.answerText(std::nullopt);  // the file dialog for INFY's missing history is cancelled
    EXPECT_EQ(mainprocedures(m_program), RunOutcome::NotRun);
    EXPECT_EQ(rows(QStringLiteral("compare")), 0);
    // With the table empty the run says what is missing.
    m_program.store().database().execute(QStringLiteral("delete from simulation"));
    m_prompt.answerText(std::nullopt);
    EXPECT_EQ(mainprocedures(m_program), RunOutcome::NotComplete);
    EXPECT_EQ(m_prompt.messages(), QStringList{kHistoryNotComplete});
}

TEST_F(SimulationCommandsTest, OnlineTheHistoryComesFromTheServiceAndOnlyReadyGoesOn) {
    frame().OnlineFlag = true;
    frame().cmbequity = QStringLiteral("RELIANCE.NS");
    period(QDate(2022, 1, 1), QDate(2022, 12, 31));
    EXPECT_EQ(cdmrunsimulation_Click(m_program), RunOutcome::Completed);
    EXPECT_EQ(m_service.requests().size(), 2u);
    EXPECT_TRUE(m_captions.contains(QStringLiteral("Getting history of RELIANCE")));
    EXPECT_TRUE(m_captions.contains(QStringLiteral("Got history of RELIANCE")));
    EXPECT_EQ(frame().caption, QStringLiteral("Reliance Industries Limited"));
    const long long days = rows(QStringLiteral("compare"));
    EXPECT_GT(days, 240);

    // A service that is gone leaves its caption, and nothing runs.
    writeHosts({QStringLiteral("history=")});
    m_captions.clear();
    EXPECT_EQ(mainprocedures(m_program), RunOutcome::NotRun);
    EXPECT_EQ(frame().caption, kLengthBelow20);
    EXPECT_EQ(rows(QStringLiteral("compare")), days);
}

TEST_F(SimulationCommandsTest, TheEquityManagersButtonsReachTheSimulation) {
    QStringList asked;
    SimulationRequests& requests = m_program.module<SimulationRequests>();
    requests.cdmrunsimulation = [&] { asked << QStringLiteral("Run Simulation"); };
    requests.runsimulation = [&] { asked << QStringLiteral("runsimulation"); };
    EquityManagerActions& actions = m_program.module<EquityManagerActions>();
    actions.Command3_Click();
    frame().cmbportfolio.text = MainFrame::kSimulation;
    frame().cmbequity = QStringLiteral("TMPV.NS");
    actions.Command5_Click();
    EXPECT_EQ(asked, (QStringList{QStringLiteral("Run Simulation"), QStringLiteral("runsimulation")}));
    EXPECT_EQ(em().caption, QStringLiteral("Tata Motors Passenger Vehicles Limited"));
}

}  // namespace
}  // namespace ostravel::test
