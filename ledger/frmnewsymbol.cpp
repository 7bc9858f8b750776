#include "ledger/frmnewsymbol.h"

#include "context/program.h"
#include "position/holding.h"
#include "runtime/trap.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kAddPlace = QStringLiteral("(Form) frmnewsymbol::Sub cmdadd_Click");

}  // namespace

NewSymbol::NewSymbol(Program& program) : FormState(program) {}

QString NewSymbol::generatesql() const {
    return QStringLiteral("ticker='") + sqlText(txtnewsymbol.text) + QLatin1Char('\'');
}

void NewSymbol::cmdadd_Click() {
    Prompt& prompt = m_program->prompt();
    ErrorReporter& reporter = m_program->reporter();
    Store& store = m_program->store();
    const auto statement = [&](auto&& body) { return trapped(reporter, kAddPlace, body); };

    if (txtnewsymbol.text.isEmpty() || Text1.text.isEmpty()) {
        prompt.inform(QStringLiteral("Please Fill All Field"));
        focus = QStringLiteral("txtnewsymbol");
        return;
    }
    txtnewsymbol.text = txtnewsymbol.text.toUpper();

    // Any row of the symbol is a duplicate, the first one included.
    bool listed = false;
    statement([&] {
        auto rows = store.database().openRecordset(QStringLiteral("select ticker from qoutense where ticker='") +
                                                   sqlText(txtnewsymbol.text) + QStringLiteral("';"));
        rows->findFirst(generatesql());
        listed = !rows->noMatch();
        rows->close();
    });
    if (listed) {
        prompt.inform(
            QStringLiteral("The Current Symbol already in stock list, Select symbol which cannot find in the list"));
        focus = QStringLiteral("txtnewsymbol");
        return;
    }

    statement([&] { currentRow(store.qoutense).addNew(); });
    statement([&] { currentRow(store.qoutense).setField(0, txtnewsymbol.text); });
    statement([&] { currentRow(store.qoutense).setField(1, txtnewstock.text); });
    statement([&] { currentRow(store.qoutense).setField(2, Text1.text); });
    statement([&] { currentRow(store.qoutense).update(); });
    prompt.message(QStringLiteral("New stocksysmbol added"), Buttons::OK, Icon::Information, QStringLiteral("Added"));
}

void NewSymbol::cmdclose_Click() {
    unload();
}

}  // namespace ostravel
