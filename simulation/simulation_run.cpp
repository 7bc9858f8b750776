#include "simulation/simulation_run.h"

#include "context/program.h"
#include "position/advice.h"
#include "position/equitymanager.h"
#include "position/holding.h"
#include "position/pcaresult.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"
#include "simulation/frmtradehistory.h"
#include "simulation/results.h"
#include "store/database.h"
#include "store/row_appender.h"

namespace ostravel {

namespace {

const QString kRunPlace = QStringLiteral("(Module) Module3::Sub runsimulation");
const QString kDailyPlace = QStringLiteral("(Module) Module3::Sub daily");
// A run reads nothing of a day but its date and close: the other columns are not read in.
const QString kDays = QStringLiteral("select [date], [Close] from simulation order by date");

// The simulated investor starts with about this much in stock, and as much in cash.
constexpr double kStartingStock = 50000;
// The screens hear of a run's progress this often.
constexpr std::int64_t kProgressEvery = 128;
// The days of compare go in by so many rows to a statement.
constexpr int kCompareGroup = 64;

// Ends runsimulation after its message: no day lies on or after the begin date.
struct NotComplete {};

class Run {
public:
    explicit Run(Program& program)
        : m_program(program),
          m_store(program.store()),
          m_em(program.module<EquityManager>()),
          m_v(program.module<SimulationValues>()),
          m_run(program.module<SimulationRun>()) {}

    RunOutcome go();

private:
    template <class Statement>
    void statement(Statement&& body) {
        trapped(std::forward<Statement>(body), [&](const VbError& e) {
            if (e.number() != err::NoCurrentRecord) {
                m_run.reporter.report(e, kRunPlace);
                return;
            }
            m_program.prompt().inform(kHistoryNotComplete);
            throw NotComplete{};
        });
    }
    template <class Statement>
    bool dailyStatement(Statement&& body) {
        return trapped(std::forward<Statement>(body), [&](const VbError& e) { m_run.reporter.report(e, kDailyPlace); });
    }
    void steps();
    void seekFirstDay();
    void moveToFirstDay();
    void daily();
    // Whether the screens want the run to go on after `done` days.
    bool goOn(std::int64_t done);

    Program& m_program;
    Store& m_store;
    EquityManager& m_em;
    SimulationValues& m_v;
    SimulationRun& m_run;
    std::int64_t m_k = 0;  // the first day's row, counted from the first row
};

RunOutcome Run::go() {
    m_run.reporter.newRun();
    m_run.outcome = RunOutcome::Completed;
    m_run.daysDone = 0;
    m_run.daysMost = 0;
    // All of a run's rows go in together: a run that breaks off leaves the last one's tables.
    std::optional<Transaction> work;
    statement([&] { work.emplace(m_store.database(), QStringLiteral("Run Simulation")); });
    try {
        steps();
    } catch (const NotComplete&) {
        m_run.outcome = RunOutcome::NotComplete;
    }
    if (m_v.compareRows)
        trapped([&] { m_v.compareRows->flush(); }, [&](const VbError& e) { m_run.reporter.report(e, kRunPlace); });
    m_v.simtrades.reset();
    m_v.compareRows.reset();
    m_v.symbol.clear();
    m_v.beginning = {};
    if (work)
        statement([&] { work->commit(); });
    return m_run.outcome;
}

void Run::steps() {
    m_em.load();
    m_em.Command6.enabled = false;

    std::shared_ptr<Recordset> trades;
    statement([&] { trades = m_store.database().openRecordset(QStringLiteral("select * from simtrades")); });
    bool traded = false;
    statement([&] { traded = currentRow(trades).recordCount() > 0; });
    // Kept: compare is emptied only together with simtrades, so a run that traded nothing leaves
    // the last run's days in compare, and the next run adds to them.
    if (traded) {
        statement([&] { m_store.database().execute(QStringLiteral("delete * from simtrades")); });
        statement([&] { m_store.database().execute(QStringLiteral("delete * from compare")); });
    }
    m_v.symbol = m_program.frame().equitySymbol();
    statement([&] { m_v.simtrades = std::make_shared<RowAppender>(m_store.database(), QStringLiteral("simtrades")); });
    statement([&] {
        m_v.compareRows = std::make_shared<RowAppender>(m_store.database(), QStringLiteral("compare"), kCompareGroup);
    });

    // The days are only read during the run: they are read once.
    statement([&] { m_store.simulation = m_store.database().openSnapshot(kDays); });
    statement([&] { m_run.simrows = m_run.day().recordCount(); });
    m_run.simbegin = m_em.dtbdate;
    m_run.simend = m_em.dtedate;
    AdviceValues& advice = m_program.module<AdviceValues>();
    advice.sellcount = 0;
    advice.buycount = 0;
    m_v.simcps = 0;

    seekFirstDay();

    // Kept: every run sets BeginningShares anew and saves it, over what the user set.
    Recordset* users = m_store.users.get();
    statement([&] { currentRow(m_store.users).edit(); });
    statement([&] {
        const double close = m_run.day().field(QStringLiteral("Close")).toDouble();
        currentRow(m_store.users).setField(QStringLiteral("BeginningShares"), Round(divide(kStartingStock, close)));
    });
    statement([&] { currentRow(m_store.users).update(); });
    // A save that failed must not stay pending in the row that the whole program reads.
    if (users)
        passedOver([&] { users->cancelUpdate(); });

    equitybegin(m_program);
    // Kept: the sampling choice is read and nothing is done with it: every run walks every day.
    statement([&] { (void)m_em.Combo1.text; });
    // A trade history open on the last run shows the new one at its next opening.
    m_program.module<FrmTradeHistory>().unload();
    daily();
    m_v.simportcontrol = 0;

    // The pickers show the span covered: its first day, and the table's last (or the day the
    // run was stopped on).
    statement([&] { moveToFirstDay(); });
    statement([&] { m_em.dtbdate = m_run.day().field(QStringLiteral("date")).toDate(); });
    if (m_run.outcome == RunOutcome::Stopped) {
        statement([&] {
            moveToFirstDay();
            for (std::int64_t i = 1; i < m_run.daysDone; ++i) m_run.day().moveNext();
        });
    } else {
        statement([&] { m_run.day().moveLast(); });
    }
    statement([&] { m_em.dtedate = m_run.day().field(QStringLiteral("date")).toDate(); });
    m_em.Command6.enabled = true;
}

void Run::seekFirstDay() {
    statement([&] { m_run.day().moveFirst(); });
    statement([&] {
        // With no day on or after the begin date the loop runs off the table, and the read of
        // the date there raises 3021.
        for (m_k = 0; m_k <= m_run.simrows; ++m_k) {
            if (m_run.day().field(0).toDate() >= m_run.simbegin) {
                m_run.simrows -= m_k;
                break;
            }
            m_run.day().moveNext();
        }
    });
    statement([&] { moveToFirstDay(); });
}

void Run::moveToFirstDay() {
    m_run.day().moveFirst();
    for (std::int64_t i = 0; i < m_k; ++i) m_run.day().moveNext();
}

bool Run::goOn(std::int64_t done) {
    m_run.daysDone = done;
    if (done % kProgressEvery != 0 || !m_run.progress || m_run.progress(done, m_run.daysMost))
        return true;
    m_run.outcome = RunOutcome::Stopped;
    return false;
}

void Run::daily() {
    m_em.clearcolor();
    // Kept: with R days from the first day on the loop makes at most R - 1 steps, so the last
    // day of the table is never simulated.
    m_run.daysMost = std::max<std::int64_t>(m_run.simrows - 1, 0);
    for (std::int64_t i = 0; i <= m_run.simrows - 2; ++i) {
        simulationstep(m_program);
        equitycurrent(m_program);
        pcaresult(m_program);
        if (!goOn(i + 1))
            break;
        dailyStatement([&] { m_run.day().moveNext(); });
        bool end = false;
        dailyStatement([&] { end = m_run.day().eof(); });
        if (end)
            break;
        bool past = false;
        dailyStatement([&] { past = m_run.day().field(QStringLiteral("date")).toDate() > m_run.simend; });
        if (past)
            break;
    }
}

}  // namespace

SimulationRun::SimulationRun(Program& program) : reporter(program.reporter()), m_program(program) {}

Recordset& SimulationRun::day() {
    return currentRow(m_program.store().simulation);
}

RunOutcome runsimulation(Program& program) {
    return Run(program).go();
}

}  // namespace ostravel
