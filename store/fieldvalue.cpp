#include "store/fieldvalue.h"

#include <sqlite3.h>

#include <QRegularExpression>
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

QString columnText(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
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
    const int stored = sqlite3_column_type(statement, column);
    if (stored == SQLITE_NULL)
        return Variant::null();
    switch (kind) {
        case FieldKind::Date:
            if (stored == SQLITE_TEXT) {
                const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
                if (const auto plain = plainIsoDay(bytes, sqlite3_column_bytes(statement, column)); plain && *plain)
                    return Variant::date(**plain);
                const QString text = columnText(statement, column);
                if (const std::optional<double> serial = parseIsoDate(text))
                    return Variant::date(*serial);
                if (const std::optional<double> serial = parseDate(text))
                    return Variant::date(*serial);
                return Variant(text);
            }
            return Variant::date(sqlite3_column_double(statement, column));
        case FieldKind::Text:
            return Variant(columnText(statement, column));
        case FieldKind::Integer:
        case FieldKind::Real:
        case FieldKind::Untyped:
            break;
    }
    switch (stored) {
        case SQLITE_INTEGER:
            if (kind == FieldKind::Real)
                return Variant(sqlite3_column_double(statement, column));
            return Variant(static_cast<std::int64_t>(sqlite3_column_int64(statement, column)));
        case SQLITE_FLOAT:
            return Variant(sqlite3_column_double(statement, column));
        default:
            return Variant(columnText(statement, column));
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
        case Variant::Kind::String: {
            const QByteArray text = value.toString().toUtf8();
            sqlite3_bind_text(statement, index, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
            return;
        }
        case Variant::Kind::Date: {
            if (char day[11]; wholeIsoDay(value.toDouble(), day)) {
                sqlite3_bind_text(statement, index, day, 10, SQLITE_TRANSIENT);
                return;
            }
            const QByteArray text = isoDateText(value.toDouble()).toUtf8();
            sqlite3_bind_text(statement, index, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
            return;
        }
    }
}

}  // namespace ostravel
