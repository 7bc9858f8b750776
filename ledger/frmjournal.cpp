#include "ledger/frmjournal.h"

#include <QDateTime>
#include <map>

#include "context/program.h"
#include "ledger/portfolioexplorer.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "store/database.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kPlace = QStringLiteral("(Form) frmjournal::Sub cmdrestore_Click");
const QString kLoadPlace = QStringLiteral("(Form) frmjournal::Sub Form_Load");
const QString kStoredTime = QStringLiteral("yyyy-MM-dd hh:mm:ss");
const QString kShownTime = QStringLiteral("dd/MM/yyyy hh:mm:ss");

QString shownTime(const QString& stored) {
    const QDateTime at = QDateTime::fromString(stored, kStoredTime);
    return at.isValid() ? at.toString(kShownTime) : stored;
}

QString text(const Variant& value) {
    return value.isNull() || value.isEmpty() ? QString() : value.toString();
}

// The row in the program's words: "holding INFY of Growth", "trade 12: Buy 10 at Rs.100 ...".
QString describe(const JournalEntry& entry) {
    const std::vector<Variant>& row = entry.after ? *entry.after : *entry.before;
    const auto field = [&](const char* column) { return text(entry.value(row, QString::fromLatin1(column))); };
    if (entry.table == QLatin1String("portfolio"))
        return QStringLiteral("portfolio ") + field("PortfolioName");
    if (entry.table == QLatin1String("equity"))
        return QStringLiteral("holding %1 of %2").arg(field("EquitySymbol"), field("portname"));
    if (entry.table == QLatin1String("trades"))
        return QStringLiteral("trade %1: %2 %3 %4 at Rs.%5 on %6 in %7")
            .arg(QString::number(entry.key), field("Buyselltype"), field("Tradedshares"), field("EquitySymbol"),
                 field("PricePerShare"), field("TradeDate"), field("portname"));
    return QStringLiteral("price Rs.%1 of %2 on %3").arg(field("price"), field("equitysymbol"), field("date"));
}

QString kindWord(JournalEntry::Kind kind) {
    switch (kind) {
        case JournalEntry::Kind::Added:
            return QStringLiteral("Added");
        case JournalEntry::Kind::Changed:
            return QStringLiteral("Changed");
        case JournalEntry::Kind::Deleted:
            break;
    }
    return QStringLiteral("Deleted");
}

// "1 deleted, 2 changed": what the action did, in a few words.
QString summary(const JournalAction& action) {
    std::map<JournalEntry::Kind, int> counts;
    for (const JournalEntry& entry : action.entries) ++counts[entry.kind()];
    QStringList parts;
    for (const auto& [kind, count] : counts)
        parts << QString::number(count) + QLatin1Char(' ') + kindWord(kind).toLower();
    return parts.join(QStringLiteral(", "));
}

QString distinctJoined(const JournalAction& action, QString JournalEntry::*field) {
    QStringList values;
    for (const JournalEntry& entry : action.entries)
        if (!(entry.*field).isEmpty() && !values.contains(entry.*field, Qt::CaseInsensitive))
            values << entry.*field;
    return values.join(QStringLiteral(", "));
}

QString clashText(const JournalClash& clash) {
    const JournalEntry& entry = clash.entry();
    switch (clash.reason()) {
        case JournalClash::Reason::KeyInUse:
            return QStringLiteral("the %1 is there again.").arg(describe(entry));
        case JournalClash::Reason::Duplicate:
            if (entry.table == QLatin1String("equity"))
                return QStringLiteral("%1 holds %2 again.").arg(entry.portname, entry.symbol);
            return QStringLiteral("another %1 has its name now.").arg(describe(entry));
        case JournalClash::Reason::MissingParent:
            return QStringLiteral("the portfolio of the %1 is gone; restore the change that deleted it first.")
                .arg(describe(entry));
        case JournalClash::Reason::RowGone:
            return QStringLiteral("the %1 no longer exists.").arg(describe(entry));
        case JournalClash::Reason::ChangedSince:
            break;
    }
    return QStringLiteral("the %1 has changed since (%2).").arg(describe(entry), clash.column());
}

// A holding comes back only where its portfolio holds no other of that symbol: every lookup
// of a holding is by the two.
void refuseRepeatedHoldings(Database& db, const JournalAction& action) {
    for (const JournalEntry& entry : action.entries) {
        if (entry.table != QLatin1String("equity") || entry.kind() != JournalEntry::Kind::Deleted)
            continue;
        auto held = db.openRecordset(QStringLiteral("select pkEquityID from equity where EquitySymbol='") +
                                     sqlText(entry.symbol) + QStringLiteral("' and portname='") +
                                     sqlText(entry.portname) + QLatin1Char('\''));
        if (!held->eof())
            throw JournalClash(JournalClash::Reason::Duplicate, entry);
    }
}

// "1 portfolio, 3 holdings, 9 trades": the rows a restore brought back.
QString restoredRows(const JournalAction& action) {
    const std::pair<const char*, const char*> names[] = {
        {"portfolio", "portfolio"}, {"equity", "holding"}, {"trades", "trade"}, {"currentprice", "price"}};
    QStringList parts;
    for (const auto& [table, name] : names) {
        int count = 0;
        for (const JournalEntry& entry : action.entries)
            if (entry.table == QLatin1String(table) && entry.kind() == JournalEntry::Kind::Deleted)
                ++count;
        if (count > 0)
            parts << QStringLiteral("%1 %2%3").arg(count).arg(QString::fromLatin1(name),
                                                              count == 1 ? QString() : QStringLiteral("s"));
    }
    return parts.join(QStringLiteral(", "));
}

}  // namespace

FrmJournal::FrmJournal(Program& program) : FormState(program) {}

void FrmJournal::Form_Load() {
    reload();
}

void FrmJournal::reload() {
    trapped(m_program->reporter(), kLoadPlace, [&] { m_actions = journalActions(m_program->store().database()); });
    QStringList portfolios;
    QStringList symbols;
    for (const JournalAction& action : m_actions) {
        for (const JournalEntry& entry : action.entries) {
            if (!entry.portname.isEmpty() && !portfolios.contains(entry.portname, Qt::CaseInsensitive))
                portfolios << entry.portname;
            if (!entry.symbol.isEmpty() && !symbols.contains(entry.symbol, Qt::CaseInsensitive))
                symbols << entry.symbol;
        }
    }
    portfolios.sort(Qt::CaseInsensitive);
    symbols.sort(Qt::CaseInsensitive);
    for (auto [box, values] : {std::pair{&Combo1, portfolios}, std::pair{&Combo2, symbols}}) {
        box->items = QStringList{kAll} + values;
        if (!box->items.contains(box->text))
            box->text = kAll;
    }
    fillLines();
}

void FrmJournal::fillLines() {
    lines.clear();
    m_shown.clear();
    const auto matches = [](const QString& filter, const QString& value) {
        return filter == kAll || filter.compare(value, Qt::CaseInsensitive) == 0;
    };
    for (std::size_t i = 0; i < m_actions.size(); ++i) {
        const JournalAction& action = m_actions[i];
        bool shown = false;
        for (const JournalEntry& entry : action.entries)
            shown = shown || (matches(Combo1.text, entry.portname) && matches(Combo2.text, entry.symbol));
        if (!shown)
            continue;
        ActionLine line;
        line.cells = {shownTime(action.at), action.action, distinctJoined(action, &JournalEntry::portname),
                      distinctJoined(action, &JournalEntry::symbol), summary(action)};
        for (const JournalEntry& entry : action.entries) {
            line.rows << kindWord(entry.kind()) + QLatin1Char(' ') + describe(entry);
            for (const QString& column : entry.changedColumns())
                line.rows << QStringLiteral("    %1: %2 → %3")
                                 .arg(column, text(entry.value(*entry.before, column)),
                                      text(entry.value(*entry.after, column)));
        }
        line.restorable = action.deletedRows();
        lines.push_back(std::move(line));
        m_shown.push_back(i);
    }
    select(-1);
}

void FrmJournal::Combo_Click() {
    fillLines();
}

void FrmJournal::select(int index) {
    selected = index >= 0 && index < int(lines.size()) ? index : -1;
    cmdrestore.enabled = selected >= 0 && lines[std::size_t(selected)].restorable;
}

void FrmJournal::cmdrestore_Click() {
    if (!cmdrestore.enabled)
        return;
    Program& program = *m_program;
    const JournalAction action = m_actions[m_shown[std::size_t(selected)]];
    const Answer answer = program.prompt().message(
        QStringLiteral("Put back the rows that \"%1\" of %2 deleted?").arg(action.action, shownTime(action.at)),
        Buttons::YesNo, Icon::Question, kCaption);
    if (answer != Answer::Yes)
        return;

    Database& db = program.store().database();
    // The unit of work takes back whatever came back before a row that stands in the way.
    const bool restored = trapped(
        [&] {
            Transaction work(db, QStringLiteral("Restore of ") + action.action);
            refuseRepeatedHoldings(db, action);
            restoreJournalAction(db, action);
            work.commit();
        },
        [&](const VbError& e) {
            if (const auto* clash = dynamic_cast<const JournalClash*>(&e))
                program.prompt().message(QStringLiteral("Nothing was restored: ") + clashText(*clash), Buttons::OK,
                                         Icon::Exclamation, kCaption);
            else
                program.reporter().report(e, kPlace);
        });
    if (!restored)
        return;
    program.prompt().message(QStringLiteral("Restored: ") + restoredRows(action) + QLatin1Char('.'), Buttons::OK,
                             Icon::Information, kCaption);

    // A portfolio that came back joins the main frame's list; the overview shows its holdings.
    MainFrame& frame = program.frame();
    for (const JournalEntry& entry : action.entries)
        if (entry.table == QLatin1String("portfolio") && entry.kind() == JournalEntry::Kind::Deleted)
            frame.cmbportfolio.items << entry.portname;
    trapped(program.reporter(), kPlace, [&] {
        program.store().portfolio = db.openRecordset(QStringLiteral("select * from portfolio"));
        selectportfolio(program);
    });
    reload();
}

}  // namespace ostravel
