#include "position/vbvalues.h"

#include <cmath>
#include <limits>

#include "app/base/variant.h"
#include "app/base/vberror.h"
#include "app/base/vbmath.h"

namespace ostravel {

namespace {

// What a 32-bit float holds, and where CStr turns to the exponent form for one.
constexpr int kSingleDigits = 7;
constexpr double kSingleExponentFrom = 1e7;

}  // namespace

double divide(double a, double b) {
    if (b == 0)
        raise(a == 0 || std::isnan(a) ? err::Overflow : err::DivisionByZero);
    const double quotient = a / b;
    if (!std::isfinite(quotient))
        raise(err::Overflow);
    return quotient;
}

float toSingleChecked(double value) {
    if (std::isnan(value) || std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max()))
        raise(err::Overflow);
    return static_cast<float>(value);
}

QString singleText(float value) {
    const double v = static_cast<double>(value);
    if (std::fabs(v) < kSingleExponentFrom)
        return numberToText(QString::number(v, 'g', kSingleDigits).toDouble());
    // "1.234568E+07": the mantissa without trailing zeros.
    const QString text = QString::number(v, 'E', kSingleDigits - 1);
    const qsizetype e = text.indexOf(QLatin1Char('E'));
    QString mantissa = text.left(e);
    while (mantissa.endsWith(QLatin1Char('0'))) mantissa.chop(1);
    if (mantissa.endsWith(QLatin1Char('.')))
        mantissa.chop(1);
    return mantissa + text.mid(e);
}

double textToDouble(const QString& text) {
    QString digits = text;
    digits.remove(QLatin1Char(','));
    const std::optional<double> number = parseNumber(digits);
    if (!number)
        raise(err::TypeMismatch);
    return *number;
}

float textToSingle(const QString& text) {
    return toSingleChecked(textToDouble(text));
}

double columnNumber(const Variant& value) {
    return value.isNull() ? 0.0 : value.toDouble();
}

QString columnText(const Variant& value) {
    return value.isNull() ? QString() : value.toString();
}

}  // namespace ostravel
