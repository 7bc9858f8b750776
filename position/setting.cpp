#include "position/setting.h"

#include <optional>

#include "context/program.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/trap.h"
#include "store/database.h"

namespace ostravel {

namespace {

const QString kLoadPlace = QStringLiteral("(Form) setting::Sub Form_Load");
const QString kOkPlace = QStringLiteral("(Form) setting::Sub cmdOK_Click");

}  // namespace

Setting::Setting(Program& program) : m_program(program) {}

void Setting::Form_Load() {
    for (TextBox* box : {&txtmsell, &txtmbuy, &txtmtbuy, &txtmtsell, &txtbuyres, &txtsellres, &txtbcash})
        *box = TextBox();
    cmdhelp = Button{kHelp};
    helpShown = false;

    ErrorReporter& reporter = m_program.reporter();
    std::shared_ptr<Recordset> trades;
    float sum = 0;
    trapped(reporter, kLoadPlace, [&] {
        trades = m_program.store().database().openRecordset(
            QStringLiteral("select Tradedshares,PricePerShare,portname from [trades]") + holdingCondition(m_program));
    });
    trapped(reporter, kLoadPlace, [&] {
        for (Recordset& rows = currentRow(trades); !rows.eof(); rows.moveNext())
            sum = toSingleChecked(sum + columnNumber(rows.field(QStringLiteral("Tradedshares"))) *
                                            columnNumber(rows.field(QStringLiteral("PricePerShare"))));
    });
    // Two thirds of the amount traded.
    trapped(reporter, kLoadPlace, [&] { txtbcash.text = singleText((sum + sum) / 3); });
}

void Setting::cmdok_Click() {
    ErrorReporter& reporter = m_program.reporter();
    Store& store = m_program.store();
    const auto statement = [&](auto&& body) { trapped(reporter, kOkPlace, body); };

    std::optional<Transaction> work;
    statement([&] { work.emplace(store.database(), QStringLiteral("Position Setting")); });
    std::shared_ptr<Recordset> holding;
    statement([&] { holding = openHolding(m_program); });

    // The rule's settings are one row for all holdings.
    const std::pair<const char*, const TextBox*> settings[] = {
        {"MinTradeSell", &txtmsell},    {"MinTradeBuy", &txtmbuy}, {"MinTradeBuySh", &txtmtbuy},
        {"MinTradeSellSh", &txtmtsell}, {"ResistBuy", &txtbuyres}, {"ResistSell", &txtsellres},
    };
    statement([&] { currentRow(store.users).edit(); });
    for (const auto& [column, box] : settings)
        statement([&] { currentRow(store.users).setField(QString::fromLatin1(column), box->text); });
    statement([&] { currentRow(store.users).update(); });

    statement([&] { currentRow(holding).edit(); });
    statement([&] { currentRow(holding).setField(QStringLiteral("CurrentCash"), txtbcash.text); });
    statement([&] { currentRow(holding).setField(QStringLiteral("OriginalCash"), txtbcash.text); });
    statement([&] { currentRow(holding).update(); });
    statement([&] { currentRow(holding).close(); });
    if (work)
        statement([&] { work->commit(); });

    statement([&] {
        if (m_program.frame().selectportfolio)
            m_program.frame().selectportfolio();
    });
    if (unload)
        unload();
}

void Setting::cmdhelp_Click() {
    helpShown = cmdhelp.caption == kHelp;
    cmdhelp.caption = helpShown ? kClose : kHelp;
}

}  // namespace ostravel
