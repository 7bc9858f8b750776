#include "ledger/addremovecash.h"

#include "context/program.h"
#include "context/screens.h"
#include "ledger/portfolioexplorer.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kTitle = QStringLiteral("Ostravel");
const QString kLoadPlace = QStringLiteral("(Form) addremovecash::Sub Form_Load");
const QString kCombo1Place = QStringLiteral("(Form) addremovecash::Sub Combo1_Click");
const QString kCombo2Place = QStringLiteral("(Form) addremovecash::Sub Combo2_Click");
const QString kUpdatePlace = QStringLiteral("(Form) addremovecash::Sub cmdupdate_Click");

struct MovementCaptions {
    QString button;
    QString form;
};

MovementCaptions captionsOf(CashMovement movement) {
    switch (movement) {
        case CashMovement::Deposit:
            return {AddRemoveCash::kDepositCaption, QStringLiteral("Deposit Cash ")};
        case CashMovement::Withdrawal:
            return {AddRemoveCash::kWithdrawCaption, QStringLiteral("Withdraw Cash ")};
        case CashMovement::Interest:
            break;
    }
    return {AddRemoveCash::kInterestCaption, QStringLiteral("Add bank Interest or Dividend")};
}

QString holdingsOf(const QString& portfolio) {
    return QStringLiteral("select EquitySymbol,OriginalCash from equity where portname='") + sqlText(portfolio) +
           QStringLiteral("';");
}

QStringList symbolsOf(Recordset& rows) {
    QStringList symbols;
    for (; !rows.eof(); rows.moveNext()) symbols << rows.field(QStringLiteral("EquitySymbol")).toString();
    return symbols;
}

}  // namespace

AddRemoveCash::AddRemoveCash(Program& program) : FormState(program) {}

void AddRemoveCash::prepare(CashMovement movement) {
    load();
    OptionButton* chosen = movement == CashMovement::Deposit      ? &Option1
                           : movement == CashMovement::Withdrawal ? &Option2
                                                                  : &Option3;
    for (OptionButton* option : {&Option1, &Option2, &Option3}) {
        option->value = option == chosen;
        option->enabled = option == chosen;
    }
    const MovementCaptions captions = captionsOf(movement);
    cmdupdate.caption = captions.button;
    caption = captions.form;
}

void AddRemoveCash::Form_Load() {
    // This screen traps nothing: an error ends the procedure where it arose. Here it is reported
    // with the procedure's name instead of ending the program, and nothing after it runs.
    trapped(m_program->reporter(), kLoadPlace, [&] {
        Recordset& portfolios = currentRow(m_program->store().portfolio);
        Combo1.items.clear();
        if (portfolios.recordCount() > 0) {
            portfolios.moveFirst();
            for (; !portfolios.eof(); portfolios.moveNext())
                Combo1.items << portfolios.field(QStringLiteral("PortfolioName")).toString();
        }
        Combo1.text = Combo1.items.value(0);
        Combo2.items = symbolsOf(*m_program->store().database().openRecordset(holdingsOf(Combo1.text)));
    });
}

void AddRemoveCash::Combo1_Click() {
    trapped(m_program->reporter(), kCombo1Place, [&] {
        std::shared_ptr<Recordset> rows = m_program->store().database().openRecordset(holdingsOf(Combo1.text));
        if (rows->eof()) {
            m_program->prompt().inform(kNoEquity, kTitle);
            return;
        }
        Combo2.items = symbolsOf(*rows);
        // Selecting the first entry is a click on it.
        Combo2.text = Combo2.items.value(0);
        Combo2_Click();
    });
}

namespace {

std::shared_ptr<Recordset> openChosenHolding(Program& program, const QString& symbol, const QString& portfolio) {
    return program.store().database().openRecordset(QStringLiteral("select * from [equity] where EquitySymbol='") +
                                                    sqlText(symbol) + QStringLiteral("' And portname = '") +
                                                    sqlText(portfolio) + QLatin1Char('\''));
}

QString companyName(Program& program, const QString& ticker) {
    return currentRow(
               program.store().database().openRecordset(QStringLiteral("select name from qoutense where ticker='") +
                                                        sqlText(ticker) + QStringLiteral("';")))
        .field(QStringLiteral("name"))
        .toString();
}

}  // namespace

void AddRemoveCash::Combo2_Click() {
    trapped(m_program->reporter(), kCombo2Place, [&] {
        const QString name = companyName(*m_program, Combo2.text);
        Store& store = m_program->store();
        store.equity = openChosenHolding(*m_program, Combo2.text, Combo1.text);
        const Recordset& holding = currentRow(store.equity);
        Label3.caption = QStringLiteral("You have Current Cash Rs ") +
                         columnText(holding.field(QStringLiteral("CurrentCash"))) + QStringLiteral(" for ") + name +
                         QStringLiteral(", The Original Cash Was Rs.") +
                         columnText(holding.field(QStringLiteral("OriginalCash")));
    });
}

void AddRemoveCash::Combo2_Change() {
    // Runs at every key typed: a code that names no holding yet leaves the line as it was.
    passedOver([&] {
        const QString code = Combo2.text;
        QString name;
        if (code.endsWith(QLatin1String("NS")) || code.endsWith(QLatin1String("BO")))
            name = companyName(*m_program, code);
        Store& store = m_program->store();
        store.equity = openChosenHolding(*m_program, code, Combo1.text);
        Label3.caption = QStringLiteral("You have Rs ") +
                         columnText(currentRow(store.equity).field(QStringLiteral("CurrentCash"))) +
                         QStringLiteral(" for ") + name;
    });
}

void AddRemoveCash::cmdupdate_Click() {
    Program& program = *m_program;
    // Kept: asked before anything else is looked at, an amount of 0 included.
    const Answer answer = program.prompt().message(kSure, Buttons::YesNo, Icon::Information, kTitle);
    const double amount = Val(txtamount.text);
    if (txtamount.text.isEmpty() || amount == 0 || answer == Answer::No)
        return;

    bool changed = false;
    trapped(program.reporter(), kUpdatePlace, [&] {
        Store& store = program.store();
        // The journal tells deposits, withdrawals and earnings apart by the form's caption.
        Transaction work(store.database(), caption.trimmed());
        store.equity = openChosenHolding(program, Combo2.text, Combo1.text);
        Recordset& holding = currentRow(store.equity);
        const auto cash = [&](const char* column) { return holding.field(QString::fromLatin1(column)).toDouble(); };
        if (cmdupdate.caption == kInterestCaption) {
            holding.edit();
            holding.setField(QStringLiteral("CurrentCash"), cash("CurrentCash") + amount);
        } else if (cmdupdate.caption == kWithdrawCaption) {
            // Kept: taking out the whole balance is refused as well.
            if (!(cash("CurrentCash") > amount)) {
                program.prompt().inform(kTooMuch, kTitle);
                return;
            }
            holding.edit();
            holding.setField(QStringLiteral("CurrentCash"), cash("CurrentCash") - amount);
        } else if (cmdupdate.caption == kDepositCaption) {
            // Kept: new capital raises the original cash too, so that it isn't counted as profit;
            // interest and a withdrawal leave it.
            holding.edit();
            holding.setField(QStringLiteral("CurrentCash"), cash("CurrentCash") + amount);
            holding.setField(QStringLiteral("OriginalCash"), cash("OriginalCash") + amount);
        } else {
            return;
        }
        if (betweenWrites)
            betweenWrites("cash set");
        holding.update();
        work.commit();
        changed = true;
    });
    if (!changed)
        return;
    unload();
    trapped(program.reporter(), kUpdatePlace, [&] { selectportfolio(program); });
}

void AddRemoveCash::cmdclose_Click() {
    unload();
}

void showCashMovement(Program& program, CashMovement movement) {
    Recordset* portfolios = program.store().portfolio.get();
    if (!portfolios || portfolios->recordCount() == 0) {
        program.prompt().inform(AddRemoveCash::kNoPortfolio, kTitle);
        return;
    }
    program.module<AddRemoveCash>().prepare(movement);
    program.module<Screens>().show(QStringLiteral("addremovecash"));
}

}  // namespace ostravel
