#include "position/websetting.h"

#include "context/program.h"
#include "position/holding.h"
#include "position/vbvalues.h"
#include "runtime/trap.h"

namespace ostravel {

namespace {

// Kept: the dialog websetting reports under the form name "web".
const QString kLoadPlace = QStringLiteral("(Form) web::Sub Form_Load");
const QString kOkPlace = QStringLiteral("(Form) web::Sub cmdOK_Click");
const QString kApplyPlace = QStringLiteral("(Form) web::Sub cmdapply_Click");
const QString kCancelPlace = QStringLiteral("(Form) web::Sub cmdCancel_Click");
const QString kPreferencePlace = QStringLiteral("(Module) Module1::Sub userpreference");

constexpr int kLongestQuoteWait = 200;

struct Bound {
    int position;  // users' column, by position
    TextBox WebSetting::*box;
};

// Tab 0's boxes by users' positions 5 to 12 and 23.
constexpr Bound kPositionBoxes[] = {
    {5, &WebSetting::txtmsell},   {6, &WebSetting::txtmbuy},     {7, &WebSetting::txtmtbuy},
    {8, &WebSetting::txtmtsell},  {9, &WebSetting::txtfeebuy},   {10, &WebSetting::txtfeesell},
    {11, &WebSetting::txtbuyres}, {12, &WebSetting::txtsellres}, {23, &WebSetting::txtbshares},
};

// Kept: Apply's tab 0 from BuyFee on gives each column the box before its own, so that the buy
// minimum lands in BuyFee and ResistSell's box in SpareSetting; OK writes them right.
constexpr Bound kAppliedBoxes[] = {
    {5, &WebSetting::txtmsell},    {6, &WebSetting::txtmbuy},    {7, &WebSetting::txtmtbuy},
    {8, &WebSetting::txtmtsell},   {9, &WebSetting::txtmbuy},    {10, &WebSetting::txtfeebuy},
    {11, &WebSetting::txtfeesell}, {12, &WebSetting::txtbuyres}, {13, &WebSetting::txtsellres},
    {23, &WebSetting::txtbshares},
};

bool isZero(const Variant& value) {
    return columnNumber(value) == 0;
}

}  // namespace

WebSetting::WebSetting(Program& program) : m_program(program) {}

void WebSetting::Form_Load() {
    ErrorReporter& reporter = m_program.reporter();
    Store& store = m_program.store();
    const auto statement = [&](auto&& body) { trapped(reporter, kLoadPlace, body); };

    Combo3.items.clear();
    for (int seconds = 1; seconds <= kLongestQuoteWait; ++seconds) Combo3.items << QString::number(seconds);
    // A value outside the list still shows, as it stands.
    statement([&] { Combo3.text = columnText(currentRow(store.users).field(QStringLiteral("SecondsForQuote"))); });
    cmbgqs.items = {kInternet, kUserEntry};
    cmbhs.items = {kInternet, kUserEntry};
    statement([&] {
        cmbgqs.text = isZero(currentRow(store.users).field(QStringLiteral("QuoteDL"))) ? kInternet : kUserEntry;
    });
    statement([&] {
        cmbhs.text = isZero(currentRow(store.users).field(QStringLiteral("HistoryDL"))) ? kInternet : kUserEntry;
    });
    userpreference(m_program);
}

void userpreference(Program& program) {
    WebSetting& web = program.module<WebSetting>();
    ErrorReporter& reporter = program.reporter();
    Store& store = program.store();
    const auto statement = [&](auto&& body) { trapped(reporter, kPreferencePlace, body); };
    const auto users = [&]() -> Recordset& { return currentRow(store.users); };

    statement([&] { store.connection(); });
    for (const Bound& bound : kPositionBoxes)
        statement([&] { (web.*bound.box).text = columnText(users().field(bound.position)); });
    statement([&] { web.txtlastname.text = columnText(users().field(QStringLiteral("LastName"))); });
    statement([&] { web.txtfirstname.text = columnText(users().field(QStringLiteral("FirstName"))); });
    statement([&] { web.txtemail.text = columnText(users().field(QStringLiteral("eMail"))); });
    statement([&] { web.Check2 = static_cast<int>(columnNumber(users().field(QStringLiteral("QUICK")))); });
}

void WebSetting::cmdok_Click() {
    ErrorReporter& reporter = m_program.reporter();
    Store& store = m_program.store();
    const auto statement = [&](auto&& body) { trapped(reporter, kOkPlace, body); };
    const auto users = [&]() -> Recordset& { return currentRow(store.users); };

    statement([&] { users().edit(); });
    for (const Bound& bound : kPositionBoxes)
        statement([&] { users().setField(bound.position, (this->*bound.box).text); });
    statement([&] { users().setField(QStringLiteral("QuoteDL"), cmbgqs.text == kUserEntry ? 1 : 0); });
    statement([&] { users().setField(QStringLiteral("HistoryDL"), cmbhs.text == kInternet ? 0 : 1); });
    statement([&] { users().setField(QStringLiteral("SecondsForQuote"), Combo3.text); });
    statement([&] { users().setField(QStringLiteral("LastName"), txtlastname.text); });
    statement([&] { users().setField(QStringLiteral("FirstName"), txtfirstname.text); });
    statement([&] { users().setField(QStringLiteral("eMail"), txtemail.text); });
    // Kept: OK leaves QUICK, which only Apply on the user tab and the quick start screen write.
    statement([&] { users().update(); });
    if (unload)
        unload();
}

void WebSetting::cmdapply_Click() {
    ErrorReporter& reporter = m_program.reporter();
    Store& store = m_program.store();
    const auto statement = [&](auto&& body) { trapped(reporter, kApplyPlace, body); };
    const auto users = [&]() -> Recordset& { return currentRow(store.users); };

    statement([&] { store.connection(); });
    statement([&] { users().edit(); });
    // Kept: Apply saves the open tab alone; what was typed on the others stays unsaved.
    switch (currentTab) {
        case kPositionTab:
            for (const Bound& bound : kAppliedBoxes)
                statement([&] { users().setField(bound.position, (this->*bound.box).text); });
            break;
        case kServiceTab:
            statement([&] { users().setField(QStringLiteral("QuoteDL"), cmbgqs.text == kUserEntry ? 1 : 0); });
            statement([&] { users().setField(QStringLiteral("HistoryDL"), cmbhs.text == kInternet ? 0 : 1); });
            statement([&] { users().setField(QStringLiteral("SecondsForQuote"), Combo3.text); });
            break;
        case kUserTab:
            statement([&] { users().setField(QStringLiteral("LastName"), txtlastname.text); });
            statement([&] { users().setField(QStringLiteral("FirstName"), txtfirstname.text); });
            statement([&] { users().setField(QStringLiteral("eMail"), txtemail.text); });
            statement([&] { users().setField(QStringLiteral("QUICK"), Check2); });
            break;
        default:
            break;
    }
    statement([&] { users().update(); });
}

void WebSetting::cmdCancel_Click() {
    trapped(m_program.reporter(), kCancelPlace, [&] {
        if (unload)
            unload();
    });
}

}  // namespace ostravel
