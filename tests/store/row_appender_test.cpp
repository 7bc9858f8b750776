// A run's rows written in groups through one statement each, and read back as they were set.
#include "store/row_appender.h"

#include <QDateTime>

#include "runtime/vbdate.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

// Texts of every kind of length and character, Null between texts and numbers given as text,
// in groups of three rows and a last group that the flush writes.
TEST(RowAppenderTest, GroupsComeBackAsTheirRowsWereSet) {
    ScratchDatabase store;
    const double day = dateSerial(QDate(2021, 1, 4));
    const double afternoon = dateTimeSerial(QDateTime(QDate(2021, 1, 5), QTime(14, 30)));
    const struct {
        Variant date, buyHold, control, symbol;
    } rows[] = {
        {Variant::date(day), 100.5, -3, "RELIANCE"},
        {Variant::date(day + 1), Variant::null(), 7, "M&M"},
        {Variant::date(afternoon), "12.5", 1e6, QStringLiteral("Société Générale")},
        {Variant::null(), 0.25, Variant::null(), ""},
        {"17-FEB-2006", -0.5, 2, QStringLiteral("A company whose name runs long ₹")},
        {Variant::date(day + 3), 1, 2, Variant::null()},
        {Variant::date(day + 4), 3, 4, "TCS"},
    };
    {
        RowAppender compare(store.db, QStringLiteral("compare"), 3);
        for (const auto& row : rows) {
            compare.addNew();
            compare.setField(QStringLiteral("date"), row.date);
            compare.setField(1, row.buyHold);
            compare.setField(QStringLiteral("controlvalue"), row.control);
            compare.setField(QStringLiteral("EquitySymbol"), row.symbol);
            compare.update();
        }
        compare.flush();
    }
    const auto written = store.db.openSnapshot(QStringLiteral("select * from compare order by rowid"));
    ASSERT_EQ(written->recordCount(), long(std::size(rows)));
    for (const auto& row : rows) {
        const Variant expected[] = {toFieldValue(row.date, FieldKind::Date), toFieldValue(row.buyHold, FieldKind::Real),
                                    toFieldValue(row.control, FieldKind::Real), row.symbol};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(written->field(i), expected[i]) << i << " of " << row.symbol.toString().toStdString();
        written->moveNext();
    }
}

}  // namespace
}  // namespace ostravel::test
