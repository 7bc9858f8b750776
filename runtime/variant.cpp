#include "runtime/variant.h"

#include <cmath>

#include "runtime/vbdate.h"
#include "runtime/vberror.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

// True is -1 to the run time, as the store's Yes/No columns keep it.
constexpr double kTrueValue = -1.0;

double textToNumber(const QString& text) {
    const std::optional<double> number = parseNumber(text);
    if (!number)
        raise(err::TypeMismatch);
    return *number;
}

}  // namespace

Variant Variant::null() {
    Variant value;
    value.m_value = NullTag{};
    return value;
}

Variant Variant::date(double serial) {
    Variant value;
    value.m_value = DateTag{serial};
    return value;
}

bool Variant::isNumeric() const {
    switch (kind()) {
        case Kind::Empty:
        case Kind::Boolean:
        case Kind::Long:
        case Kind::Double:
            return true;
        case Kind::String:
            return parseNumber(std::get<QString>(m_value)).has_value();
        case Kind::Null:
        case Kind::Date:
            return false;
    }
    return false;
}

double Variant::toDouble() const {
    switch (kind()) {
        case Kind::Empty:
            return 0.0;
        case Kind::Null:
            raise(err::InvalidUseOfNull);
        case Kind::Boolean:
            return std::get<bool>(m_value) ? kTrueValue : 0.0;
        case Kind::Long:
            return static_cast<double>(std::get<std::int64_t>(m_value));
        case Kind::Double:
            return std::get<double>(m_value);
        case Kind::String:
            return textToNumber(std::get<QString>(m_value));
        case Kind::Date:
            return std::get<DateTag>(m_value).serial;
    }
    return 0.0;
}

std::int64_t Variant::toLong() const {
    if (kind() == Kind::Long)
        return std::get<std::int64_t>(m_value);
    const double rounded = std::nearbyint(toDouble());
    // 2^63 is the first double out of range; NaN fails both tests.
    constexpr double kLimit = 9223372036854775808.0;
    if (!(rounded >= -kLimit && rounded < kLimit))
        raise(err::Overflow);
    return static_cast<std::int64_t>(rounded);
}

QString Variant::toString() const {
    switch (kind()) {
        case Kind::Empty:
            return {};
        case Kind::Null:
            raise(err::InvalidUseOfNull);
        case Kind::Boolean:
            return std::get<bool>(m_value) ? QStringLiteral("True") : QStringLiteral("False");
        case Kind::Long:
            return QString::number(std::get<std::int64_t>(m_value));
        case Kind::Double:
            return numberToText(std::get<double>(m_value));
        case Kind::String:
            return std::get<QString>(m_value);
        case Kind::Date:
            return dateToString(std::get<DateTag>(m_value).serial);
    }
    return {};
}

void Variant::toString(QString& text) const {
    // The numbers of a day, written every day of a run. A whole number below 1e15 is its own
    // shortest decimal, as CStr of the double writes it.
    constexpr double kExactWhole = 1e15;
    if (kind() == Kind::Double)
        numberToText(std::get<double>(m_value), text);
    else if (kind() == Kind::Long && std::abs(static_cast<double>(std::get<std::int64_t>(m_value))) < kExactWhole)
        numberToText(static_cast<double>(std::get<std::int64_t>(m_value)), text);
    else
        text = toString();
}

bool Variant::toBool() const {
    if (kind() == Kind::String) {
        const QString text = std::get<QString>(m_value).trimmed();
        if (text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
            return false;
    }
    if (kind() == Kind::Boolean)
        return std::get<bool>(m_value);
    return toDouble() != 0.0;
}

double Variant::toDate() const {
    if (kind() != Kind::String)
        return toDouble();
    const QString& text = std::get<QString>(m_value);
    if (const std::optional<double> serial = parseDate(text))
        return *serial;
    raise(err::TypeMismatch);
}

bool Variant::operator==(const Variant& other) const {
    return m_value == other.m_value;
}

}  // namespace ostravel
