#include "market/technical.h"

#include "context/program.h"
#include "market/day_file.h"
#include "market/day_store.h"
#include "runtime/trap.h"
#include "runtime/vbformat.h"

namespace ostravel {

namespace {

const QString kNumber = QStringLiteral("####.##");

QString table(const QDate& day) {
    return QStringLiteral("[") + QString::number(day.year()) + QStringLiteral("]");
}

QString place(const char* procedure) {
    return QStringLiteral("(Form) Technical::Sub ") + QString::fromLatin1(procedure);
}

}  // namespace

// The store names the day's column TIMESTAMP where the statements write "timpstamp"; the rest of
// each statement stands as written.
QString Technical::gainers(const QDate& day) {
    return QStringLiteral("select  symbol ,last,prevclose,(prevclose-last)*-100/prevclose as Percentage,tottrdqty") +
           QStringLiteral(" from ") + table(day) + QStringLiteral(" where prevclose < last") +
           QStringLiteral(" and TIMESTAMP =") + QStringLiteral("'") + dayTimestamp(day) + QStringLiteral("'") +
           QStringLiteral(" order by (prevclose-last)*100/prevclose ");
}

QString Technical::lossers(const QDate& day) {
    return QStringLiteral("select  symbol ,last,prevclose,(last-prevclose)*100/prevclose,tottrdqty") +
           QStringLiteral(" from ") + table(day) + QStringLiteral(" where prevclose > last") +
           QStringLiteral(" and TIMESTAMP =") + QStringLiteral("'") + dayTimestamp(day) + QStringLiteral("'") +
           QStringLiteral(" order by (last-prevclose)/prevclose");
}

// SQL can't test an aggregate's alias in a where clause, nor mix the day's rows with their
// average without a group: the average of the day's volumes comes from a subquery, and the rows
// are those whose volume is above five times it, in the written order.
QString Technical::volume(const QDate& day) {
    const QString onDay = QStringLiteral(" TIMESTAMP ='") + dayTimestamp(day) + QStringLiteral("'");
    return QStringLiteral("select  symbol ,last,prevclose,tottrdqty,avgtot from ") + table(day) +
           QStringLiteral(", (select avg(tottrdqty)*5 as avgtot from ") + table(day) + QStringLiteral(" where") +
           onDay + QStringLiteral(") as day where tottrdqty > avgtot and") + onDay +
           QStringLiteral(" order by tottrdqty-avgtot/5");
}

Technical::Technical(Program& program) : m_program(program) {
    MSFlexGrid1.setFormatString(kFormat);
    for (int col = 0; col < kCols; ++col) MSFlexGrid1.setColWidth(col, kColWidth);
}

Technical::~Technical() = default;

void Technical::Form_Load() {
    trapped(m_program.reporter(), place("Form_Load"), [&] { m_store = openDayStore(); });
}

void Technical::Command1_Click() {
    statement = gainers(DTPicker1);
    fill(place("Command1_Click"));
}

void Technical::Command2_Click() {
    statement = lossers(DTPicker1);
    fill(place("Command2_Click"));
}

void Technical::Command3_Click() {
    statement = volume(DTPicker1);
    fill(place("Command3_Click"));
}

void Technical::fill(const QString& where) {
    MSFlexGrid1.clear(1);
    MSFlexGrid1.setFormatString(kFormat);
    if (!m_store)
        return;
    // A year the store has no table for lists nothing, as a day without trading does.
    DayStore::Rows rows;
    trapped(m_program.reporter(), where, [&] {
        const int year = DTPicker1.year();
        if (!m_store->hasYear(year))
            return;
        passedOver([&] { m_store->indexDays(year); });
        rows = m_store->select(statement);
    });
    for (const auto& fields : rows) {
        const int row = MSFlexGrid1.rows();
        MSFlexGrid1.addRow();
        MSFlexGrid1.setTextMatrix(row, 0, QString::number(row));
        for (std::size_t i = 0; i < fields.size() && int(i) + 1 < kCols; ++i) {
            const Variant& value = fields[i];
            MSFlexGrid1.setTextMatrix(row, int(i) + 1,
                                      value.isNumber() ? formatNumber(value.toDouble(), kNumber) : format(value, {}));
        }
    }
}

void Technical::MSFlexGrid1_Click(int row) {
    if (row < 1 || row >= MSFlexGrid1.rows())
        return;
    MainFrame& frame = m_program.frame();
    frame.cmbequity = MSFlexGrid1.textMatrix(row, 1);
    frame.cmbequity_Change();
    frame.showChanges();
}

}  // namespace ostravel
