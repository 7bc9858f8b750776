// Format with the number and date patterns the screens use, and on variants.
#include <gtest/gtest.h>

#include <string>

#include "runtime/variant.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "tests/support/random_digits.h"

namespace ostravel {
namespace {

struct NumberCase {
    double value;
    const char* pattern;
    const char* expected;
};

class FormatNumberTest : public ::testing::TestWithParam<NumberCase> {};

TEST_P(FormatNumberTest, LaysOutTheDigits) {
    const NumberCase& c = GetParam();
    EXPECT_EQ(formatNumber(c.value, QString::fromUtf8(c.pattern)).toStdString(), c.expected)
        << c.value << " with " << c.pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Grouping, FormatNumberTest,
    ::testing::Values(NumberCase{1234567, "#,##,###", "12,34,567"}, NumberCase{1000000, "#,##,###", "10,00,000"},
                      NumberCase{123, "#,##,###", "123"}, NumberCase{1234, "#,##,###", "1,234"},
                      NumberCase{12345678.9, "#,##,###,##", "1,23,456,79"}, NumberCase{1234.5, "#,###.##", "1,234.5"},
                      NumberCase{1234567.891, "#,###.##", "1,234,567.89"}, NumberCase{-1234.5, "#,###.##", "-1,234.5"},
                      NumberCase{999.999, "#,###.##", "1,000"}, NumberCase{1234567, "#,#####", "12,34567"},
                      NumberCase{-98765, "#,#####", "-98765"}, NumberCase{-9876543, "#,#####", "-98,76543"},
                      NumberCase{12345, "###,##", "123,45"}, NumberCase{12345.4, "#####", "12345"},
                      NumberCase{5, "0,000", "0,005"}));

INSTANTIATE_TEST_SUITE_P(Places, FormatNumberTest,
                         ::testing::Values(NumberCase{140, "######.##", "140"},
                                           NumberCase{140.256, "######.##", "140.26"}, NumberCase{0.5, "#.##", ".5"},
                                           NumberCase{0, "#", ""}, NumberCase{0, "######.##", ""},
                                           NumberCase{0, "#####", ""}, NumberCase{0, "0", "0"},
                                           NumberCase{2.5, "0", "3"}, NumberCase{-2.5, "0", "-3"},
                                           NumberCase{3.5, "0", "4"}, NumberCase{12.5, "#0", "13"},
                                           NumberCase{3, "0#", "03"}, NumberCase{12.345, "###0.00", "12.35"},
                                           NumberCase{0.1, "##0.00", "0.10"}, NumberCase{1.005, "0.00", "1.01"},
                                           NumberCase{0.05, "0.0", "0.1"}, NumberCase{-0.001, "#.##", ""},
                                           NumberCase{-0.001, "0.00", "0.00"}, NumberCase{0.12345, "#.000", ".123"},
                                           NumberCase{12.3456, "##.000", "12.346"}, NumberCase{7, "##.00", "7.00"},
                                           NumberCase{5.5, ".0", "5.5"}, NumberCase{1234, "", "1234"}));

INSTANTIATE_TEST_SUITE_P(Percent, FormatNumberTest,
                         ::testing::Values(NumberCase{0.1234, "##.##%", "12.34%"}, NumberCase{0.5, "#0.#%", "50%"},
                                           NumberCase{0.12345, "#0.##%", "12.35%"}, NumberCase{0, "##.##%", "%"},
                                           NumberCase{-0.0525, "#0.#%", "-5.3%"}, NumberCase{0.004, "#0.#%", "0.4%"}));

INSTANTIATE_TEST_SUITE_P(SectionsAndLiterals, FormatNumberTest,
                         ::testing::Values(NumberCase{-5, "0;(0)", "(5)"}, NumberCase{5, "0;(0)", "5"},
                                           NumberCase{0, "0;(0);\"nil\"", "nil"}, NumberCase{-5, "0;;\"nil\"", "-5"},
                                           NumberCase{1234, "\"Rs.\" #,###", "Rs. 1,234"},
                                           NumberCase{3, "\"#\"0", "#3"}, NumberCase{3, "\\#0", "#3"},
                                           NumberCase{42, "0 kg", "42 kg"}));

// The patterns a run writes every day, laid out by hand from the written digits of a decimal:
// rounded half away from zero on those digits, the whole part left out when it is 0 and no "0"
// asks for it, the places cut after their last digit that is not 0.
TEST(FormatNumberTest, RunPatternsRoundAsWritten) {
    const struct {
        const char* pattern;
        int decimals;
        bool zeroWhole;
        bool percent;
    } patterns[] = {{"####.##", 2, false, false}, {"#####.##", 2, false, false}, {"#0", 0, true, false},
                    {"0", 0, true, false},        {"##.##%", 2, false, true},    {"#0.##%", 2, true, true},
                    {"#0.#%", 1, true, true}};
    std::mt19937 random(20261122);
    const auto digits = [&](int most) { return test::randomDigits(random, most); };
    for (int i = 0; i < 20000; ++i) {
        const bool negative = i % 3 == 0;
        const std::string whole = digits(9);
        std::string places = digits(6);
        // Halves at every cut: the last written place a 5.
        if (i % 2 == 0 && !places.empty())
            places.back() = '5';
        const std::string written = (negative ? "-" : "") + (whole.empty() ? "0" : whole) + "." + places;
        const double value = std::strtod(written.c_str(), nullptr);
        for (const auto& p : patterns) {
            std::string kept = whole;
            std::string rest = places;
            if (p.percent) {
                rest.resize(std::max<std::size_t>(rest.size(), 2), '0');
                kept += rest.substr(0, 2);
                rest.erase(0, 2);
            }
            rest.resize(std::max<std::size_t>(rest.size(), std::size_t(p.decimals) + 1), '0');
            kept = "0" + kept + rest.substr(0, std::size_t(p.decimals));
            if (rest[std::size_t(p.decimals)] >= '5') {
                std::size_t at = kept.size();
                while (kept[--at] == '9') kept[at] = '0';
                ++kept[at];
            }
            std::string shownWhole = kept.substr(0, kept.size() - std::size_t(p.decimals));
            std::string shownPlaces = kept.substr(shownWhole.size());
            shownWhole.erase(0, std::min(shownWhole.find_first_not_of('0'), shownWhole.size()));
            if (shownWhole.empty() && p.zeroWhole)
                shownWhole = "0";
            shownPlaces.erase(shownPlaces.find_last_not_of('0') + 1);
            const bool zero = kept.find_first_not_of('0') == std::string::npos;
            const std::string expected = (negative && !zero ? "-" : "") + shownWhole +
                                         (shownPlaces.empty() ? "" : "." + shownPlaces) + (p.percent ? "%" : "");
            EXPECT_EQ(formatNumber(value, QString::fromLatin1(p.pattern)).toStdString(), expected)
                << written << " with " << p.pattern;
        }
    }
}

struct DateCase {
    const char* pattern;
    const char* expected;
};

class FormatDateTest : public ::testing::TestWithParam<DateCase> {};

// 17 Feb 2006 14:05:09, a Friday.
const double kAfternoon = dateTimeSerial(QDateTime(QDate(2006, 2, 17), QTime(14, 5, 9)));

TEST_P(FormatDateTest, WritesTheFields) {
    EXPECT_EQ(formatDate(kAfternoon, QString::fromUtf8(GetParam().pattern)).toStdString(), GetParam().expected)
        << GetParam().pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, FormatDateTest,
    ::testing::Values(DateCase{"dd/MMM/yyyy", "17/Feb/2006"}, DateCase{"dd/mmm/yyyy", "17/Feb/2006"},
                      DateCase{"dd/mm/YYYY", "17/02/2006"}, DateCase{"yyyy-mm-dd", "2006-02-17"}, DateCase{"d", "17"},
                      DateCase{"m/d/yy", "2/17/06"}, DateCase{"ddd", "Fri"}, DateCase{"dddd", "Friday"},
                      DateCase{"mmmm", "February"}, DateCase{"MMMM d", "February 17"}, DateCase{"y", "48"},
                      DateCase{"hh:mm:ss", "14:05:09"}, DateCase{"h:nn AM/PM", "2:05 PM"},
                      DateCase{"hh:nn am/pm", "02:05 pm"}, DateCase{"h:nn a/p", "2:05 p"}, DateCase{"mm:ss", "05:09"},
                      DateCase{"h:n:s", "14:5:9"}, DateCase{"dd/mm/yyyy hh:mm", "17/02/2006 14:05"},
                      DateCase{"Short Date", "17/02/2006"}, DateCase{"Long Date", "17 February 2006"},
                      DateCase{"General Date", "17/02/2006 14:05:09"}, DateCase{"\"day\" d", "day 17"}));

TEST(FormatDateTest, MidnightAndNoonInTwelveHours) {
    const double day = dateSerial(QDate(2006, 2, 17));
    EXPECT_EQ(formatDate(day + 0.5 / 24, QStringLiteral("h:nn AM/PM")), QStringLiteral("12:30 AM"));
    EXPECT_EQ(formatDate(day + 12.5 / 24, QStringLiteral("h:nn AM/PM")), QStringLiteral("12:30 PM"));
}

struct VariantCase {
    Variant value;
    const char* pattern;
    const char* expected;
};

class FormatVariantTest : public ::testing::TestWithParam<VariantCase> {};

TEST_P(FormatVariantTest, ChoosesNumberOrDate) {
    EXPECT_EQ(format(GetParam().value, QString::fromUtf8(GetParam().pattern)).toStdString(), GetParam().expected)
        << GetParam().pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, FormatVariantTest,
    ::testing::Values(VariantCase{Variant::date(38765), "dd/MMM/yyyy", "17/Feb/2006"},
                      VariantCase{Variant(38765), "dd/mm/yyyy", "17/02/2006"}, VariantCase{Variant(2.5), "0", "3"},
                      VariantCase{Variant(std::int64_t{1234567}), "#,##,###", "12,34,567"},
                      VariantCase{Variant("1234.5"), "#,###.##", "1,234.5"},
                      VariantCase{Variant(" 0.5 "), "#.##", ".5"},
                      VariantCase{Variant("17-FEB-2006"), "dd/mm/yyyy", "17/02/2006"},
                      VariantCase{Variant("17-FEB-2006"), "#,###.##", "17-FEB-2006"},
                      VariantCase{Variant("abc"), "dd/mm/yyyy", "abc"}, VariantCase{Variant(5.0), "0 days", "5 days"},
                      VariantCase{Variant::null(), "#,###.##", ""}, VariantCase{Variant(), "0", ""}));

}  // namespace
}  // namespace ostravel
