// Date serials, the run-time date parser's accept and reject lists, and CStr of a date.
#include <gtest/gtest.h>

#include "runtime/vbdate.h"
#include "runtime/vberror.h"

namespace ostravel {
namespace {

TEST(DateSerialTest, CountsDaysFrom30Dec1899) {
    EXPECT_EQ(dateSerial(QDate(1899, 12, 30)), 0.0);
    EXPECT_EQ(dateSerial(QDate(1900, 1, 1)), 2.0);
    EXPECT_EQ(dateSerial(QDate(2006, 2, 17)), 38765.0);
    EXPECT_EQ(dateSerial(QDate(1899, 12, 29)), -1.0);
    EXPECT_EQ(dateTimeSerial(QDateTime(QDate(2006, 2, 17), QTime(18, 0))), 38765.75);
    EXPECT_EQ(dateTimeSerial(QDateTime(QDate(1899, 12, 29), QTime(12, 0))), -1.5);
}

TEST(DateSerialTest, ReadsBackToTheNearestSecond) {
    EXPECT_EQ(serialToDateTime(-1.5), QDateTime(QDate(1899, 12, 29), QTime(12, 0)));
    EXPECT_EQ(serialToDateTime(38765.75), QDateTime(QDate(2006, 2, 17), QTime(18, 0)));
    EXPECT_EQ(serialToDateTime(38765.0 + 86399.6 / 86400), QDateTime(QDate(2006, 2, 18), QTime(0, 0)));
    EXPECT_EQ(serialToDate(38765.99), QDate(2006, 2, 17));
    const QDateTime moment(QDate(2011, 7, 3), QTime(9, 41, 27));
    EXPECT_EQ(serialToDateTime(dateTimeSerial(moment)), moment);
}

struct AcceptCase {
    const char* text;
    QDateTime expected;
};

class ParseDateAcceptTest : public ::testing::TestWithParam<AcceptCase> {};

TEST_P(ParseDateAcceptTest, ReadsTheDate) {
    const std::optional<double> serial = parseDate(QString::fromUtf8(GetParam().text));
    ASSERT_TRUE(serial.has_value()) << GetParam().text;
    EXPECT_EQ(serialToDateTime(*serial), GetParam().expected) << GetParam().text;
    EXPECT_TRUE(isDate(QString::fromUtf8(GetParam().text)));
}

QDateTime day(int year, int month, int dayOfMonth, QTime time = QTime(0, 0)) {
    return {QDate(year, month, dayOfMonth), time};
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ParseDateAcceptTest,
    ::testing::Values(AcceptCase{"17/Feb/2006", day(2006, 2, 17)}, AcceptCase{"17-Feb-2006", day(2006, 2, 17)},
                      AcceptCase{"17-FEB-2006", day(2006, 2, 17)}, AcceptCase{"17 Feb 2006", day(2006, 2, 17)},
                      AcceptCase{"17 february 2006", day(2006, 2, 17)}, AcceptCase{"Feb 17, 2006", day(2006, 2, 17)},
                      AcceptCase{"17/02/2006", day(2006, 2, 17)}, AcceptCase{"02/17/2006", day(2006, 2, 17)},
                      AcceptCase{"03/04/2006", day(2006, 4, 3)}, AcceptCase{"1/1/2005", day(2005, 1, 1)},
                      AcceptCase{"29/02/2004", day(2004, 2, 29)}, AcceptCase{"2006-02-17", day(2006, 2, 17)},
                      AcceptCase{"2006/02/17", day(2006, 2, 17)}, AcceptCase{"17.02.2006", day(2006, 2, 17)},
                      AcceptCase{"  17/02/2006  ", day(2006, 2, 17)}, AcceptCase{"17/02/06", day(2006, 2, 17)},
                      AcceptCase{"17/02/29", day(2029, 2, 17)}, AcceptCase{"17/02/30", day(1930, 2, 17)},
                      AcceptCase{"17-Feb-99", day(1999, 2, 17)},
                      AcceptCase{"17/02/2006 14:05", day(2006, 2, 17, QTime(14, 5))},
                      AcceptCase{"17/02/2006 14:05:09", day(2006, 2, 17, QTime(14, 5, 9))},
                      AcceptCase{"17/02/2006 2:05 PM", day(2006, 2, 17, QTime(14, 5))},
                      AcceptCase{"17/02/2006 12:00 AM", day(2006, 2, 17)},
                      AcceptCase{"2006-02-17 12:15 pm", day(2006, 2, 17, QTime(12, 15))},
                      AcceptCase{"12:30", day(1899, 12, 30, QTime(12, 30))},
                      AcceptCase{"2:30 pm", day(1899, 12, 30, QTime(14, 30))}));

class ParseDateRejectTest : public ::testing::TestWithParam<const char*> {};

TEST_P(ParseDateRejectTest, IsNoDate) {
    EXPECT_FALSE(parseDate(QString::fromUtf8(GetParam())).has_value()) << GetParam();
    EXPECT_FALSE(isDate(QString::fromUtf8(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Texts, ParseDateRejectTest,
                         ::testing::Values("Date", "", "   ", "32/01/2006", "29/02/2005", "13/13/2006", "abc 2006",
                                           "17/Foo/2006", "17/Febr/2006", "25:00", "17/02/2006 10:61",
                                           "17/02/2006 13:00 PM", "hello", "17/02-2006", "2006", "17/02/0050"));

struct ToStringCase {
    double serial;
    const char* expected;
};

class DateToStringTest : public ::testing::TestWithParam<ToStringCase> {};

TEST_P(DateToStringTest, WritesDayFirst) {
    EXPECT_EQ(dateToString(GetParam().serial).toStdString(), GetParam().expected) << GetParam().serial;
}

INSTANTIATE_TEST_SUITE_P(Serials, DateToStringTest,
                         ::testing::Values(ToStringCase{38765, "17/02/2006"},
                                           ToStringCase{38765.5, "17/02/2006 12:00:00"},
                                           ToStringCase{36526.75, "01/01/2000 18:00:00"},
                                           ToStringCase{0.25, "06:00:00"}, ToStringCase{0, "00:00:00"},
                                           ToStringCase{1, "31/12/1899"}, ToStringCase{-1.5, "29/12/1899 12:00:00"}));

TEST(NamesTest, AreEnglishAndCountFromSunday) {
    EXPECT_EQ(monthName(2), QStringLiteral("February"));
    EXPECT_EQ(monthName(9, true), QStringLiteral("Sep"));
    EXPECT_EQ(weekdayName(1), QStringLiteral("Sunday"));
    EXPECT_EQ(weekdayName(6, true), QStringLiteral("Fri"));
    EXPECT_THROW(monthName(13), VbError);
    EXPECT_THROW(weekdayName(0), VbError);
}

TEST(ClockTest, TodayIsTheDayOfNow) {
    const double before = today();
    const double moment = now();
    EXPECT_GE(moment, before);
    EXPECT_LT(moment, before + 2.0);  // a run across midnight may see the next day
    EXPECT_EQ(today(), std::floor(today()));
}

}  // namespace
}  // namespace ostravel
