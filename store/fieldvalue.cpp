#include "store/fieldvalue.h"

#include <sqlite3.h>

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "runtime/vbdate.h"
#include "runtime/vberror.h"

namespace ostravel {

namespace {

constexpr double kSecondsPerDay = 86400.0;
// The day serial 0, 30 Dec 1899, as a Julian day; and a bound well inside QDate's range.
constexpr qint64 kEpochJulianDay = 2415019;
constexpr double kWholeDayLimit = 2.0e6;

QString valueText(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

[[noreturn]] void conversionError() {
    raise(err::DataTypeConversion);
}

// A whole day as "yyyy-MM-dd", without the general date and time routines: every date of a
// history is one. False for a serial with a time of day.
bool wholeIsoDay(double serial, char (&text)[11]) {
    if (serial != std::floor(serial) || !(std::fabs(serial) < kWholeDayLimit))
        return false;
    int year = 0;
    int month = 0;
    int day = 0;
    QDate::fromJulianDay(kEpochJulianDay + static_cast<qint64>(serial)).getDate(&year, &month, &day);
    if (year < 1 || year > 9999) {
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
        return true;
    }
    // The usual years written digit by digit: every row of a run's tables writes its day.
    const auto digits = [&](int at, int value, int count) {
        for (int i = at + count - 1; i >= at; --i, value /= 10) text[i] = static_cast<char>('0' + value % 10);
    };
    digits(0, year, 4);
    text[4] = '-';
    digits(5, month, 2);
    text[7] = '-';
    digits(8, day, 2);
    text[10] = '\0';
    return true;
}

// "yyyy-MM-dd", the form the store writes, read without the pattern: the serial, an invalid
// day as none, and no answer at all for any other form.
template <class Char>
std::optional<std::optional<double>> plainIsoDay(const Char* text, qsizetype size) {
    if (size != 10 || text[4] != Char('-') || text[7] != Char('-'))
        return std::nullopt;
    int parts[3] = {0, 0, 0};
    const int starts[3] = {0, 5, 8};
    const int ends[3] = {4, 7, 10};
    for (int p = 0; p < 3; ++p)
        for (int i = starts[p]; i < ends[p]; ++i) {
            if (text[i] < Char('0') || text[i] > Char('9'))
                return std::nullopt;
            parts[p] = parts[p] * 10 + int(text[i] - Char('0'));
        }
    const QDate day(parts[0], parts[1], parts[2]);
    return day.isValid() ? std::optional<double>(dateSerial(day)) : std::nullopt;
}

Variant numberFrom(const Variant& value) {
    if (value.kind() == Variant::Kind::String && !value.isNumeric())
        conversionError();
    return Variant(value.toDouble());
}

}  // namespace

FieldKind fieldKindOf(const char* declaredType) {
    if (declaredType == nullptr)
        return FieldKind::Untyped;
    const QString type = QString::fromUtf8(declaredType).toUpper();
    if (type.contains(QLatin1String("INT")))
        return FieldKind::Integer;
    if (type.contains(QLatin1String("DATE")) || type.contains(QLatin1String("TIME")))
        return FieldKind::Date;
    if (type.contains(QLatin1String("CHAR")) || type.contains(QLatin1String("TEXT")) ||
        type.contains(QLatin1String("CLOB")))
        return FieldKind::Text;
    if (type.isEmpty())
        return FieldKind::Untyped;
    return FieldKind::Real;
}

QString isoDateText(double serial) {
    if (char text[11]; wholeIsoDay(serial, text))
        return QString::fromLatin1(text, 10);
    const QDateTime moment = serialToDateTime(serial);
    if (moment.time() == QTime(0, 0))
        return moment.date().toString(QStringLiteral("yyyy-MM-dd"));
    return moment.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

std::optional<double> parseIsoDate(const QString& text) {
    if (const auto plain = plainIsoDay(reinterpret_cast<const char16_t*>(text.utf16()), text.size()))
        return *plain;
    static const QRegularExpression pattern(
        QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})(?:[ T](\\d{2}):(\\d{2})(?::(\\d{2}))?)?$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QDate day(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    if (!day.isValid())
        return std::nullopt;
    double serial = dateSerial(day);
    if (!match.captured(4).isEmpty()) {
        const QTime time(match.captured(4).toInt(), match.captured(5).toInt(), match.captured(6).toInt());
        if (!time.isValid())
            return std::nullopt;
        const double fraction = time.msecsSinceStartOfDay() / 1000.0 / kSecondsPerDay;
        serial = serial < 0 ? serial - fraction : serial + fraction;
    }
    return serial;
}

Variant readField(sqlite3_stmt* statement, int column, FieldKind kind) {
    return readValue(sqlite3_column_value(statement, column), kind);
}

Variant readValue(sqlite3_value* value, FieldKind kind) {
    const int stored = sqlite3_value_type(value);
    if (stored == SQLITE_NULL)
        return Variant::null();
    switch (kind) {
        case FieldKind::Date:
            if (stored == SQLITE_TEXT) {
                const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
                if (const auto plain = plainIsoDay(bytes, sqlite3_value_bytes(value)); plain && *plain)
                    return Variant::date(**plain);
                const QString text = valueText(value);
                if (const std::optional<double> serial = parseIsoDate(text))
                    return Variant::date(*serial);
                if (const std::optional<double> serial = parseDate(text))
                    return Variant::date(*serial);
                return Variant(text);
            }
            return Variant::date(sqlite3_value_double(value));
        case FieldKind::Text:
            return Variant(valueText(value));
        case FieldKind::Integer:
        case FieldKind::Real:
        case FieldKind::Untyped:
            break;
    }
    switch (stored) {
        case SQLITE_INTEGER:
            if (kind == FieldKind::Real)
                return Variant(sqlite3_value_double(value));
            return Variant(static_cast<std::int64_t>(sqlite3_value_int64(value)));
        case SQLITE_FLOAT:
            return Variant(sqlite3_value_double(value));
        default:
            return Variant(valueText(value));
    }
}

Variant toFieldValue(const Variant& value, FieldKind kind) {
    if (value.isNull() || value.isEmpty())
        return Variant::null();
    switch (kind) {
        case FieldKind::Integer:
            return Variant(numberFrom(value).toLong());
        case FieldKind::Real:
            return numberFrom(value);
        case FieldKind::Date:
            if (value.kind() == Variant::Kind::String) {
                const std::optional<double> serial = parseDate(value.toString());
                if (!serial)
                    conversionError();
                return Variant::date(*serial);
            }
            return Variant::date(value.toDouble());
        case FieldKind::Text:
            return Variant(value.toString());
        case FieldKind::Untyped:
            break;
    }
    return value;
}

bool appendStoredText(const Variant& value, std::string& texts) {
    switch (value.kind()) {
        case Variant::Kind::String: {
            const QString text = value.toString();
            const auto* begin = reinterpret_cast<const char16_t*>(text.constData());
            const auto* end = begin + text.size();
            // The usual text is plain ASCII, which is its own UTF-8.
            if (std::all_of(begin, end, [](char16_t c) { return c < 0x80; })) {
                const std::size_t at = texts.size();
                texts.resize(at + static_cast<std::size_t>(text.size()));
                std::transform(begin, end, texts.begin() + static_cast<std::ptrdiff_t>(at),
                               [](char16_t c) { return static_cast<char>(c); });
            } else {
                const QByteArray utf8 = text.toUtf8();
                texts.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
            }
            return true;
        }
        case Variant::Kind::Date:
            if (char day[11]; wholeIsoDay(value.toDouble(), day)) {
                texts.append(day, 10);
            } else {
                const QByteArray text = isoDateText(value.toDouble()).toUtf8();
                texts.append(text.constData(), static_cast<std::size_t>(text.size()));
            }
            return true;
        case Variant::Kind::Empty:
        case Variant::Kind::Null:
        case Variant::Kind::Boolean:
        case Variant::Kind::Long:
        case Variant::Kind::Double:
            break;
    }
    return false;
}

void bindStoredText(sqlite3_stmt* statement, int index, std::string_view text) {
    sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void bindField(sqlite3_stmt* statement, int index, const Variant& value) {
    switch (value.kind()) {
        case Variant::Kind::Empty:
        case Variant::Kind::Null:
            sqlite3_bind_null(statement, index);
            return;
        case Variant::Kind::Boolean:
        case Variant::Kind::Long:
            sqlite3_bind_int64(statement, index, value.toLong());
            return;
        case Variant::Kind::Double:
            sqlite3_bind_double(statement, index, value.toDouble());
            return;
        case Variant::Kind::String:
        case Variant::Kind::Date:
            break;
    }
    std::string text;
    appendStoredText(value, text);
    sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

}  // namespace ostravel
