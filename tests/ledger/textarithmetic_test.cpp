#include "ledger/textarithmetic.h"

#include <gtest/gtest.h>

#include "runtime/vberror.h"
#include "runtime/vbmath.h"

namespace ostravel {
namespace {

TEST(TextArithmetic, FormattedTextsReadBackAsNumbers) {
    struct Case {
        Variant value;
        double number;
    };
    const Case cases[] = {
        {"12,34568", 1234568}, {"1,00000", 100000}, {"-1,235", -1235},   {".35", 0.35},
        {"-.5", -0.5},         {Variant(2.5), 2.5}, {"1,806.6", 1806.6},
    };
    for (const Case& c : cases) EXPECT_DOUBLE_EQ(arithmeticValue(c.value), c.number) << qPrintable(c.value.toString());
}

TEST(TextArithmetic, NoNumberIs13AndNullIs94) {
    struct Case {
        Variant value;
        int error;
    };
    const Case cases[] = {
        {"", err::TypeMismatch}, {"Rs.5", err::TypeMismatch}, {Variant::null(), err::InvalidUseOfNull}};
    for (const Case& c : cases) {
        try {
            arithmeticValue(c.value);
            ADD_FAILURE() << "no error";
        } catch (const VbError& e) {
            EXPECT_EQ(e.number(), c.error);
        }
    }
    EXPECT_TRUE(formattedOrNull(Variant::null(), QStringLiteral("#,###.##")).isNull());
    EXPECT_EQ(formattedOrNull(Variant(0.0), QStringLiteral("#,###.##")).toString(), QString());
}

TEST(TextArithmetic, SingleShowsSevenDigits) {
    struct Case {
        float value;
        const char* text;
    };
    const Case cases[] = {
        {0.1f, "0.1"},
        {496.25f, "496.25"},
        {-99.f, "-99"},
        {1234567.f, "1234567"},
        {12345678.f, "1.234568E+07"},
        {-20000000.f, "-2E+07"},
        {0.f, "0"},
        {123.4567f, "123.4567"},
    };
    for (const Case& c : cases) EXPECT_EQ(singleText(c.value), QString::fromUtf8(c.text));
}

}  // namespace
}  // namespace ostravel
