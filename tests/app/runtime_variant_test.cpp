// The variant's conversions: Null raises 94, a text that is no number 13; and the error type.
#include <gtest/gtest.h>

#include <functional>

#include "runtime/variant.h"
#include "runtime/vberror.h"
#include "tests/support/raised.h"

namespace ostravel {
namespace {

using test::errorOf;

struct Conversion {
    const char* name;
    std::function<void(const Variant&)> convert;
};

const Conversion kConversions[] = {
    {"toDouble", [](const Variant& v) { v.toDouble(); }}, {"toLong", [](const Variant& v) { v.toLong(); }},
    {"toString", [](const Variant& v) { v.toString(); }}, {"toBool", [](const Variant& v) { v.toBool(); }},
    {"toDate", [](const Variant& v) { v.toDate(); }},
};

TEST(VariantTest, NullRaisesInvalidUseOfNull) {
    for (const Conversion& conversion : kConversions)
        EXPECT_EQ(errorOf([&] { conversion.convert(Variant::null()); }), err::InvalidUseOfNull) << conversion.name;
}

class TextNoNumberTest : public ::testing::TestWithParam<const char*> {};

TEST_P(TextNoNumberTest, RaisesTypeMismatch) {
    const Variant text(GetParam());
    EXPECT_EQ(errorOf([&] { text.toDouble(); }), err::TypeMismatch) << GetParam();
    EXPECT_EQ(errorOf([&] { text.toLong(); }), err::TypeMismatch) << GetParam();
    EXPECT_EQ(errorOf([&] { text.toBool(); }), err::TypeMismatch) << GetParam();
    EXPECT_FALSE(text.isNumeric());
}

INSTANTIATE_TEST_SUITE_P(Texts, TextNoNumberTest, ::testing::Values("", "abc", "1.2.3", "12abc", "Rs.5", "1,5"));

TEST(VariantTest, EmptyReadsAsZeroAndNothing) {
    const Variant empty;
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_EQ(empty.toDouble(), 0.0);
    EXPECT_EQ(empty.toLong(), 0);
    EXPECT_EQ(empty.toString(), QString());
    EXPECT_FALSE(empty.toBool());
}

struct NumberCase {
    Variant value;
    double asDouble;
    std::int64_t asLong;
    const char* asText;
};

class VariantNumberTest : public ::testing::TestWithParam<NumberCase> {};

TEST_P(VariantNumberTest, ConvertsAsTheRunTime) {
    const NumberCase& c = GetParam();
    EXPECT_DOUBLE_EQ(c.value.toDouble(), c.asDouble);
    EXPECT_EQ(c.value.toLong(), c.asLong);
    EXPECT_EQ(c.value.toString().toStdString(), c.asText);
}

INSTANTIATE_TEST_SUITE_P(
    Values, VariantNumberTest,
    ::testing::Values(NumberCase{Variant(0.5), 0.5, 0, "0.5"}, NumberCase{Variant(2.5), 2.5, 2, "2.5"},
                      NumberCase{Variant(3.5), 3.5, 4, "3.5"}, NumberCase{Variant(-1234.5), -1234.5, -1234, "-1234.5"},
                      NumberCase{Variant(140), 140, 140, "140"},
                      NumberCase{Variant(std::int64_t{5000000000}), 5e9, 5000000000, "5000000000"},
                      NumberCase{Variant("  12.5 "), 12.5, 12, "  12.5 "},
                      NumberCase{Variant("-1e3"), -1000, -1000, "-1e3"}, NumberCase{Variant(true), -1, -1, "True"},
                      NumberCase{Variant(false), 0, 0, "False"},
                      NumberCase{Variant::date(38765.5), 38765.5, 38766, "17/02/2006 12:00:00"}));

TEST(VariantTest, LongOutOfRangeOverflows) {
    EXPECT_EQ(errorOf([] { Variant(1e19).toLong(); }), err::Overflow);
}

TEST(VariantTest, ToBoolReadsWordsAndNumbers) {
    EXPECT_TRUE(Variant("True").toBool());
    EXPECT_FALSE(Variant(" false ").toBool());
    EXPECT_TRUE(Variant("-1").toBool());
    EXPECT_FALSE(Variant("0").toBool());
    EXPECT_TRUE(Variant(0.25).toBool());
}

TEST(VariantTest, ToDateParsesTexts) {
    EXPECT_EQ(Variant("17/Feb/2006").toDate(), 38765.0);
    EXPECT_EQ(Variant(38765).toDate(), 38765.0);
    EXPECT_EQ(errorOf([] { Variant("Date").toDate(); }), err::TypeMismatch);
}

TEST(VariantTest, IsNumericTakesNumbersAndNumericTexts) {
    EXPECT_TRUE(Variant(5).isNumeric());
    EXPECT_TRUE(Variant(true).isNumeric());
    EXPECT_TRUE(Variant().isNumeric());
    EXPECT_TRUE(Variant(" 12 ").isNumeric());
    EXPECT_TRUE(Variant("1e5").isNumeric());
    EXPECT_FALSE(Variant::null().isNumeric());
    EXPECT_FALSE(Variant::date(38765).isNumeric());
}

TEST(VariantTest, EqualityComparesKindAndValue) {
    EXPECT_EQ(Variant(1), Variant(std::int64_t{1}));
    EXPECT_FALSE(Variant(1) == Variant(1.0));
    EXPECT_FALSE(Variant::date(1) == Variant(1.0));
    EXPECT_EQ(Variant::null(), Variant::null());
    EXPECT_FALSE(Variant() == Variant::null());
    EXPECT_EQ(Variant("a"), Variant(QStringLiteral("a")));
    EXPECT_FALSE(Variant("a") == Variant("A"));
    EXPECT_EQ(Variant(1).kind(), Variant::Kind::Long);
    EXPECT_EQ(Variant("x").kind(), Variant::Kind::String);
}

struct DescriptionCase {
    int number;
    const char* description;
};

class StandardDescriptionTest : public ::testing::TestWithParam<DescriptionCase> {};

TEST_P(StandardDescriptionTest, NamesTheError) {
    const VbError error(GetParam().number);
    EXPECT_EQ(error.description().toStdString(), GetParam().description);
    EXPECT_STREQ(error.what(), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(Numbers, StandardDescriptionTest,
                         ::testing::Values(DescriptionCase{err::TypeMismatch, "Type mismatch"},
                                           DescriptionCase{err::InvalidUseOfNull, "Invalid use of Null"},
                                           DescriptionCase{err::DivisionByZero, "Division by zero"},
                                           DescriptionCase{err::InvalidArrayIndex, "Invalid property array index"},
                                           DescriptionCase{err::NoCurrentRecord, "No current record."},
                                           DescriptionCase{err::ItemNotFound, "Item not found in this collection."},
                                           DescriptionCase{err::DataTypeConversion, "Data type conversion error."},
                                           DescriptionCase{err::PathFileAccess, "Path/File access error"},
                                           DescriptionCase{9999, "Application-defined or object-defined error"}));

TEST(VbErrorTest, KeepsTheRaisersTextAndSource) {
    try {
        raise(err::FileNotFound, QStringLiteral("Datei fehlt: ä"), QStringLiteral("store"));
        FAIL() << "raise returned";
    } catch (const VbError& error) {
        EXPECT_EQ(error.number(), 53);
        EXPECT_EQ(error.description(), QStringLiteral("Datei fehlt: ä"));
        EXPECT_EQ(error.source(), QStringLiteral("store"));
        EXPECT_STREQ(error.what(), "Datei fehlt: ä");
    }
}

}  // namespace
}  // namespace ostravel
