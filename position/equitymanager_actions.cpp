#include "position/equitymanager_actions.h"

#include "context/program.h"
#include "context/screens.h"
#include "position/advice.h"
#include "position/equitymanager.h"
#include "position/holding.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kActivatePlace = QStringLiteral("(Form) equitymanager::Sub Form_Activate");
const QString kRecalculatePlace = QStringLiteral("(Form) equitymanager::Sub Command5_Click");
const QString kAddTradePlace = QStringLiteral("(Form) equitymanager::Sub cmdaddtrade_Click");

const QString kSell = QStringLiteral("SELL");

// Ends Recalculate after its message for a code that is not in the symbol list.
struct SelectEquity {};

}  // namespace

EquityManagerActions::EquityManagerActions(Program& program) : m_program(program) {}

void EquityManagerActions::Form_Activate() {
    ErrorReporter& reporter = m_program.reporter();
    Store& store = m_program.store();
    const bool simulation = m_program.frame().cmbportfolio.text == MainFrame::kSimulation;

    trapped(reporter, kActivatePlace,
            [&] { store.equity = store.database().openRecordset(QStringLiteral("select * from equity")); });
    bool noHolding = false;
    trapped(reporter, kActivatePlace, [&] { noHolding = currentRow(store.equity).recordCount() == 0; });
    if (noHolding && !simulation) {
        Prompt& prompt = m_program.prompt();
        if (prompt.message(kNoEquity, Buttons::YesNo, Icon::None, kNoEquityTitle) == Answer::Yes) {
            bool noPortfolio = false;
            trapped(reporter, kActivatePlace, [&] { noPortfolio = currentRow(store.portfolio).recordCount() == 0; });
            Screens& screens = m_program.module<Screens>();
            if (noPortfolio) {
                if (prompt.message(kNoPortfolio, Buttons::OKCancel, Icon::None, kNoPortfolioTitle) == Answer::OK)
                    trapped(reporter, kActivatePlace, [&] { screens.show(QStringLiteral("Create")); });
            } else {
                const LedgerRequests& ledger = m_program.module<LedgerRequests>();
                if (ledger.newHolding)
                    ledger.newHolding(kActivatePlace);
                trapped(reporter, kActivatePlace, [&] { screens.show(QStringLiteral("Newholding")); });
            }
        }
    }

    EquityManager& em = m_program.module<EquityManager>();
    em.Command3.enabled = simulation;
    loadusersetting(m_program);
}

EquityManagerActions::Recalculated EquityManagerActions::Command5_Click() {
    EquityManager& em = m_program.module<EquityManager>();
    const auto statement = [&](auto&& body) {
        trapped(body, [&](const VbError& e) {
            if (e.number() != err::NoCurrentRecord) {
                m_program.reporter().report(e, kRecalculatePlace);
                return;
            }
            m_program.prompt().message(kSelectEquity, Buttons::OK, Icon::None, kSelectEquityTitle);
            throw SelectEquity{};
        });
    };

    try {
        em.Command5.enabled = false;
        if (m_program.frame().cmbportfolio.text == MainFrame::kSimulation) {
            if (const SimulationRequests& simulation = m_program.module<SimulationRequests>(); simulation.runsimulation)
                simulation.runsimulation();
            // Simulated trades are the simulation's own: nothing to add by hand.
            em.cmdaddtrade.enabled = false;
        } else {
            em.Label17_2.caption = EquityManager::kActualTrade;
            statement([&] { advise(m_program); });
            em.cmdaddtrade.enabled = true;
            em.Frame4Visible = true;
        }
        em.Command5.enabled = true;

        std::shared_ptr<Recordset> name;
        statement([&] {
            name = m_program.store().database().openRecordset(
                QStringLiteral("select name from qoutense where ticker='") + sqlText(m_program.frame().equitySymbol()) +
                QStringLiteral("';"));
        });
        statement([&] { em.caption = currentRow(name).field(0).toString(); });
        statement([&] { currentRow(name).close(); });
    } catch (const SelectEquity&) {
        return Recalculated::SelectEquity;
    }
    return Recalculated::Done;
}

void EquityManagerActions::Command3_Click() {
    if (const SimulationRequests& simulation = m_program.module<SimulationRequests>(); simulation.cdmrunsimulation)
        simulation.cdmrunsimulation();
}

void EquityManagerActions::cmdwhatif_Click() {
    m_program.module<EquityManager>().Frame4Visible = true;
    if (m_program.frame().cmbportfolio.text != MainFrame::kSimulation)
        advisewhatif(m_program);
}

EquityManagerActions::TradeStart EquityManagerActions::cmdaddtrade_Click() {
    ErrorReporter& reporter = m_program.reporter();
    MainFrame& frame = m_program.frame();
    EquityManager& em = m_program.module<EquityManager>();

    // A holding is in the portfolio for this purpose once a trade of it stands there.
    std::shared_ptr<Recordset> trades;
    trapped(reporter, kAddTradePlace, [&] {
        trades = m_program.store().database().openRecordset(
            QStringLiteral("select pktradeid,EquitySymbol,TradeDate,Tradedshares,PricePerShare,Commission,"
                           "Buyselltype from [trades]") +
            holdingCondition(m_program));
    });
    bool inPortfolio = false;
    trapped(reporter, kAddTradePlace, [&] { inPortfolio = !currentRow(trades).eof(); });
    if (!inPortfolio) {
        m_program.prompt().inform(frame.cmbequity + kNotInPortfolio);
        return TradeStart::NotInPortfolio;
    }

    const bool sell = em.lbladvise.caption == kSell;
    const LedgerRequests& ledger = m_program.module<LedgerRequests>();
    if (ledger.adviceTrade)
        ledger.adviceTrade(sell ? em.txtnextsell.text : em.txtnextbuy.text,
                           sell ? em.txtnextsellshare.text : em.txtnextbuyshare.text, sell, kAddTradePlace);
    trapped(reporter, kAddTradePlace, [&] { currentRow(trades).close(); });
    trapped(reporter, kAddTradePlace, [&] { m_program.module<Screens>().show(QStringLiteral("trade")); });
    return TradeStart::Shown;
}

}  // namespace ostravel
