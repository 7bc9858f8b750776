#include "ledger/textarithmetic.h"

#include "app/base/vberror.h"
#include "app/base/vbformat.h"
#include "app/base/vbmath.h"

#include <cmath>

namespace ostravel {

namespace {

constexpr int kSingleDigits = 7;
constexpr double kSingleExponentFrom = 1e7;

}  // namespace

bool isEmptyText(const Variant& value) {
    return value.isEmpty() || (value.kind() == Variant::Kind::String && value.toString().isEmpty());
}

double arithmeticValue(const Variant& value) {
    if (value.kind() != Variant::Kind::String)
        return value.toDouble();
    QString text = value.toString();
    text.remove(QLatin1Char(','));
    const std::optional<double> number = parseNumber(text);
    if (!number)
        raise(err::TypeMismatch);
    return *number;
}

Variant formattedOrNull(const Variant& value, const QString& pattern) {
    if (value.isNull())
        return Variant::null();
    return Variant(format(value, pattern));
}

QString singleToText(float value) {
    const double v = double(value);
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

}  // namespace ostravel
