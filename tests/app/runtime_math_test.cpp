// Val, the two roundings, Str and CStr, and the integer and single-precision conversions.
#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

#include "runtime/readback.h"
#include "runtime/vberror.h"
#include "runtime/vbmath.h"
#include "tests/support/raised.h"
#include "tests/support/random_digits.h"

namespace ostravel {
namespace {

using test::errorOf;

struct ValCase {
    const char* text;
    double expected;
};

class ValTest : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValTest, ReadsThePrefix) {
    EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(GetParam().text)), GetParam().expected) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Val, ValTest,
                         ::testing::Values(ValCase{"", 0}, ValCase{"abc", 0}, ValCase{"  12", 12}, ValCase{"1 2", 12},
                                           ValCase{"\t4\n5", 45}, ValCase{"1.2.3", 1.2}, ValCase{".5", 0.5},
                                           ValCase{"-3.5abc", -3.5}, ValCase{"+7", 7}, ValCase{"- 5", -5},
                                           ValCase{"1,000", 1}, ValCase{"1e3", 1000}, ValCase{"1D2", 100},
                                           ValCase{"1.5e-2", 0.015}, ValCase{"2E", 2}, ValCase{"2E+x", 2},
                                           ValCase{".", 0}, ValCase{"-", 0}, ValCase{"1e-400", 0}, ValCase{"&H10", 16},
                                           ValCase{"&hff", 255}, ValCase{"&HFFFF", -1}, ValCase{"&H8000", -32768},
                                           ValCase{"&H10000", 65536}, ValCase{"&HFFFFFFFF", -1}, ValCase{"&O17", 15},
                                           ValCase{"&o777", 511}, ValCase{"&O8", 0}, ValCase{"&Hxyz", 0},
                                           ValCase{"&17", 0}, ValCase{"-&H10", 0}));

TEST(ValTest, NumbersTooLargeOverflow) {
    EXPECT_EQ(errorOf([] { Val(QStringLiteral("1e400")); }), err::Overflow);
    EXPECT_EQ(errorOf([] { Val(QStringLiteral("&H100000000")); }), err::Overflow);
}

// A box read back day after day: each read answers for the text the box holds at that read.
TEST(ReadBackTest, FollowsTheText) {
    ReadBack box;
    const struct {
        const char* text;
        double val;
        int strictError;  // 0: the strict parse reads `val`
    } reads[] = {{"50118", 50118, 0},
                 {"50118", 50118, 0},
                 {" 100236", 100236, 0},
                 {"12abc", 12, err::TypeMismatch},
                 {"12abc", 12, err::TypeMismatch},
                 {"", 0, err::TypeMismatch},
                 {"481.9", 481.9, 0}};
    for (const auto& r : reads) {
        const QString text = QString::fromLatin1(r.text);
        EXPECT_EQ(box.val(text), r.val) << r.text;
        if (r.strictError == 0) {
            EXPECT_EQ(box.number(text), r.val) << r.text;
        } else {
            EXPECT_EQ(errorOf([&] { box.number(text); }), r.strictError) << r.text;
        }
    }
    EXPECT_EQ(errorOf([&] { box.val(QStringLiteral("1e400")); }), err::Overflow);
    EXPECT_EQ(errorOf([&] { box.val(QStringLiteral("1e400")); }), err::Overflow);
}

struct ParseCase {
    const char* text;
    bool isNumber;
    double expected;
};

class ParseNumberTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(ParseNumberTest, AcceptsOnlyWholeNumbers) {
    const std::optional<double> number = parseNumber(QString::fromUtf8(GetParam().text));
    ASSERT_EQ(number.has_value(), GetParam().isNumber) << GetParam().text;
    if (number) {
        EXPECT_DOUBLE_EQ(*number, GetParam().expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Strict, ParseNumberTest,
    ::testing::Values(ParseCase{"12", true, 12}, ParseCase{"  -12.5  ", true, -12.5}, ParseCase{"+.5", true, 0.5},
                      ParseCase{"5.", true, 5}, ParseCase{"1e3", true, 1000}, ParseCase{"2.5E-1", true, 0.25},
                      ParseCase{"", false, 0}, ParseCase{"   ", false, 0}, ParseCase{"abc", false, 0},
                      ParseCase{"1.2.3", false, 0}, ParseCase{"12abc", false, 0}, ParseCase{"1 2", false, 0},
                      ParseCase{"1e", false, 0}, ParseCase{".", false, 0}, ParseCase{"-", false, 0}));

struct RoundCase {
    double value;
    int digits;
    double toEven;
    double awayFromZero;
};

class RoundTest : public ::testing::TestWithParam<RoundCase> {};

TEST_P(RoundTest, TiesGoToEvenOrAway) {
    const RoundCase& c = GetParam();
    EXPECT_DOUBLE_EQ(Round(c.value, c.digits), c.toEven) << c.value << " to " << c.digits;
    EXPECT_DOUBLE_EQ(roundHalfAway(c.value, c.digits), c.awayFromZero) << c.value << " to " << c.digits;
}

INSTANTIATE_TEST_SUITE_P(Ties, RoundTest,
                         ::testing::Values(RoundCase{0.5, 0, 0, 1}, RoundCase{1.5, 0, 2, 2}, RoundCase{2.5, 0, 2, 3},
                                           RoundCase{-2.5, 0, -2, -3}, RoundCase{-0.5, 0, 0, -1},
                                           RoundCase{2.4, 0, 2, 2}, RoundCase{2.6, 0, 3, 3}, RoundCase{-0.4, 0, 0, 0},
                                           RoundCase{2.675, 2, 2.68, 2.68}, RoundCase{2.665, 2, 2.66, 2.67},
                                           RoundCase{0.125, 2, 0.12, 0.13}, RoundCase{1.005, 2, 1.0, 1.01},
                                           RoundCase{9.995, 2, 10, 10}, RoundCase{9.985, 2, 9.98, 9.99},
                                           RoundCase{1234.5678, 2, 1234.57, 1234.57}, RoundCase{0.0004, 3, 0, 0},
                                           RoundCase{0.0005, 3, 0, 0.001}, RoundCase{12.5, 0, 12, 13},
                                           RoundCase{98765.5, 0, 98766, 98766}));

TEST(RoundTest, LeavesValuesWithNothingToRoundAndRefusesNegativeDigits) {
    const double sum = 0.1 + 0.2;
    EXPECT_EQ(Round(sum, 17), sum);
    EXPECT_EQ(Round(1e20 + 0.5), 1e20);
    EXPECT_DOUBLE_EQ(Round(sum, 2), 0.3);
    EXPECT_EQ(errorOf([] { Round(1.5, -1); }), err::InvalidProcedureCall);  // no negative digits
}

struct FixedCase {
    double value;
    int decimals;
    Tie tie;
    const char* expected;
};

class FixedDecimalTextTest : public ::testing::TestWithParam<FixedCase> {};

TEST_P(FixedDecimalTextTest, WritesPlainDigits) {
    const FixedCase& c = GetParam();
    EXPECT_EQ(fixedDecimalText(c.value, c.decimals, c.tie).toStdString(), c.expected) << c.value;
}

INSTANTIATE_TEST_SUITE_P(
    Text, FixedDecimalTextTest,
    ::testing::Values(FixedCase{1234.5, 2, Tie::AwayFromZero, "1234.50"}, FixedCase{0, 2, Tie::ToEven, "0.00"},
                      FixedCase{-0.001, 2, Tie::AwayFromZero, "0.00"}, FixedCase{-2.5, 0, Tie::AwayFromZero, "-3"},
                      FixedCase{-2.5, 0, Tie::ToEven, "-2"}, FixedCase{99.96, 1, Tie::ToEven, "100.0"},
                      FixedCase{0.0625, 3, Tie::ToEven, "0.062"},
                      FixedCase{1e20, 0, Tie::ToEven, "100000000000000000000"},
                      FixedCase{0.1, 20, Tie::ToEven, "0.10000000000000000000"}));

struct TextCase {
    double value;
    const char* str;
    const char* cstr;
};

class NumberTextTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(NumberTextTest, StrHasTheBlankAndCStrTheZero) {
    const TextCase& c = GetParam();
    EXPECT_EQ(Str(c.value).toStdString(), c.str) << c.value;
    EXPECT_EQ(numberToText(c.value).toStdString(), c.cstr) << c.value;
}

INSTANTIATE_TEST_SUITE_P(
    Text, NumberTextTest,
    ::testing::Values(TextCase{0.5, " .5", "0.5"}, TextCase{-0.5, "-.5", "-0.5"}, TextCase{140, " 140", "140"},
                      TextCase{1234.5, " 1234.5", "1234.5"}, TextCase{0, " 0", "0"}, TextCase{-3, "-3", "-3"},
                      TextCase{0.1 + 0.2, " .3", "0.3"}, TextCase{1.0 / 3, " .333333333333333", "0.333333333333333"},
                      TextCase{-1234567.891, "-1234567.891", "-1234567.891"},
                      TextCase{123456789012345, " 123456789012345", "123456789012345"},
                      TextCase{1e15, " 1E+15", "1E+15"}, TextCase{999999999999999.9, " 1E+15", "1E+15"},
                      TextCase{2.5e20, " 2.5E+20", "2.5E+20"}, TextCase{0.0001, " .0001", "0.0001"},
                      TextCase{0.00001, " 1E-05", "1E-05"}, TextCase{-1.5e-7, "-1.5E-07", "-1.5E-07"},
                      TextCase{1e100, " 1E+100", "1E+100"}));

struct IntegerCase {
    double value;
    int expected;  // 0 with overflow set means error 6
    bool overflow;
};

class ToIntegerTest : public ::testing::TestWithParam<IntegerCase> {};

TEST_P(ToIntegerTest, RoundsToEvenWithin16Bits) {
    const IntegerCase& c = GetParam();
    if (c.overflow) {
        EXPECT_EQ(errorOf([&] { toInteger(c.value); }), err::Overflow) << c.value;
    } else {
        EXPECT_EQ(toInteger(c.value), c.expected) << c.value;
    }
}

INSTANTIATE_TEST_SUITE_P(CInt, ToIntegerTest,
                         ::testing::Values(IntegerCase{2.5, 2, false}, IntegerCase{3.5, 4, false},
                                           IntegerCase{-2.5, -2, false}, IntegerCase{2.51, 3, false},
                                           IntegerCase{32767, 32767, false}, IntegerCase{-32768, -32768, false},
                                           IntegerCase{32767.4, 32767, false}, IntegerCase{32767.5, 0, true},
                                           IntegerCase{-32768.6, 0, true}, IntegerCase{1e10, 0, true}));

TEST(ToLongIntegerTest, RoundsToEvenWithin32Bits) {
    EXPECT_EQ(toLongInteger(4.5), 4);
    EXPECT_EQ(toLongInteger(-5.5), -6);
    EXPECT_EQ(toLongInteger(2147483647.4), 2147483647);
    EXPECT_EQ(toLongInteger(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(errorOf([] { toLongInteger(2147483647.5); }), err::Overflow);
    EXPECT_EQ(errorOf([] { toLongInteger(-2147483649.0); }), err::Overflow);
    EXPECT_EQ(errorOf([] { toLongInteger(3e12); }), err::Overflow);
}

TEST(SingleTest, KeepsTheRoundingOfA32BitFloat) {
    EXPECT_NE(single(0.1), 0.1);
    EXPECT_EQ(single(0.1), static_cast<double>(0.1f));
    EXPECT_EQ(single(0.5), 0.5);
    EXPECT_EQ(single(16777217.0), 16777216.0);
    EXPECT_EQ(toSingle(16777217.0), 16777216.0f);
}

// A decimal written with few digits is what the run time shows of its double, and rounds as the
// written digits do, ties included; the quick ways through these conversions must keep that.
TEST(DecimalTextTest, FewDigitsRoundAsWritten) {
    std::mt19937 random(20240611);
    const auto digitsOf = [&](int most) { return test::randomDigits(random, most); };
    for (int i = 0; i < 20000; ++i) {
        std::string whole = digitsOf(7);
        whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
        std::string places = digitsOf(4);
        const bool negative = i % 3 == 0;
        const std::string written = (negative ? "-" : "") + (whole.empty() ? "0" : whole) + "." + places;
        const double value = std::strtod(written.c_str(), nullptr);
        SCOPED_TRACE(written);
        EXPECT_EQ(Val(QString::fromStdString(written)), value);
        EXPECT_EQ(textToDouble(QString::fromStdString(written)), value);

        // CStr: the digits as written, without the zeros at the end.
        std::string trimmed = places.substr(0, places.find_last_not_of('0') + 1);
        std::string shown = (whole.empty() ? "0" : whole) + (trimmed.empty() ? "" : "." + trimmed);
        const bool zero = shown == "0";
        EXPECT_EQ(numberToText(value).toStdString(), (negative && !zero ? "-" : "") + shown);

        // Two places, halves away from zero or to the even digit, on the written digits.
        places.resize(std::max<std::size_t>(places.size(), 3), '0');
        for (const Tie tie : {Tie::AwayFromZero, Tie::ToEven}) {
            long long hundredths = std::stoll((whole.empty() ? "0" : whole) + places.substr(0, 2));
            const char next = places[2];
            const bool restZero = places.find_first_not_of('0', 3) == std::string::npos;
            if (next > '5' || (next == '5' && (!restZero || tie == Tie::AwayFromZero || hundredths % 2 == 1)))
                ++hundredths;
            char expected[40];
            std::snprintf(expected, sizeof expected, "%s%lld.%02lld", negative && hundredths != 0 ? "-" : "",
                          hundredths / 100, hundredths % 100);
            EXPECT_EQ(fixedDecimalText(value, 2, tie).toStdString(), expected);
            if (tie == Tie::ToEven) {
                EXPECT_EQ(Round(value, 2), std::strtod(expected, nullptr));
            }
        }
        const auto single = static_cast<float>(value);
        EXPECT_EQ(singleText(single), numberToText(QString::number(double(single), 'g', 7).toDouble()));
    }
}

}  // namespace
}  // namespace ostravel
