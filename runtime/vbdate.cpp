#include "runtime/vbdate.h"

#include <QRegularExpression>
#include <QTime>
#include <array>
#include <cmath>

#include "runtime/vberror.h"

namespace ostravel {

namespace {

constexpr int kSecondsPerDay = 86400;
// 30 Dec 1899, as a constant so that other files' statics may use the serials.
constexpr QDate kEpoch = QDate::fromJulianDay(2415019);

constexpr std::array<const char*, 12> kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                                 "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<const char*, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};

double combine(double days, double fraction) {
    return days >= 0.0 ? days + fraction : days - fraction;
}

// A month written as its English name or its first three letters; 0 when it is none.
int monthFromName(const QString& name) {
    for (int i = 0; i < 12; ++i) {
        const QString full = QString::fromLatin1(kMonths[static_cast<std::size_t>(i)]);
        if (name.compare(full, Qt::CaseInsensitive) == 0 || name.compare(full.left(3), Qt::CaseInsensitive) == 0)
            return i + 1;
    }
    return 0;
}

// Years of one or two digits fall in 1930..2029, as the run time's window has them.
int fullYear(const QString& digits) {
    const int year = digits.toInt();
    if (digits.size() > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

std::optional<QDate> makeDate(int year, int month, int day) {
    const QDate date(year, month, day);
    if (year < 100 || !date.isValid())
        return std::nullopt;
    return date;
}

std::optional<QDate> parseDayPart(const QString& text) {
    static const QString kSep = QStringLiteral(R"((?:\s*[-/.,]\s*|\s+))");
    static const QRegularExpression dayMonthName(QStringLiteral(R"(^(\d{1,2})%1([a-z]+)%1(\d{1,4})$)").arg(kSep),
                                                 QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression monthNameDay(QStringLiteral(R"(^([a-z]+)%1(\d{1,2})%1(\d{1,4})$)").arg(kSep),
                                                 QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression yearFirst(QStringLiteral(R"(^(\d{3,4})([-/.])(\d{1,2})\2(\d{1,2})$)"));
    static const QRegularExpression numeric(QStringLiteral(R"(^(\d{1,2})([-/.])(\d{1,2})\2(\d{1,4})$)"));

    if (const auto m = dayMonthName.match(text); m.hasMatch()) {
        const int month = monthFromName(m.captured(2));
        if (month == 0)
            return std::nullopt;
        return makeDate(fullYear(m.captured(3)), month, m.captured(1).toInt());
    }
    if (const auto m = monthNameDay.match(text); m.hasMatch()) {
        const int month = monthFromName(m.captured(1));
        if (month == 0)
            return std::nullopt;
        return makeDate(fullYear(m.captured(3)), month, m.captured(2).toInt());
    }
    if (const auto m = yearFirst.match(text); m.hasMatch())
        return makeDate(m.captured(1).toInt(), m.captured(3).toInt(), m.captured(4).toInt());
    if (const auto m = numeric.match(text); m.hasMatch()) {
        const int first = m.captured(1).toInt();
        const int second = m.captured(3).toInt();
        const int year = fullYear(m.captured(4));
        if (const auto dayFirst = makeDate(year, second, first))
            return dayFirst;
        return makeDate(year, first, second);
    }
    return std::nullopt;
}

// The time as a fraction of a day; nullopt when the figures are no time.
std::optional<double> timeFraction(int hour, int minute, int second, const QString& meridian) {
    if (!meridian.isEmpty()) {
        if (hour > 12)
            return std::nullopt;
        const bool pm = meridian.startsWith(u'p', Qt::CaseInsensitive);
        if (hour == 12)
            hour = 0;
        if (pm)
            hour += 12;
    }
    if (hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return static_cast<double>(hour * 3600 + minute * 60 + second) / kSecondsPerDay;
}

}  // namespace

double dateSerial(const QDate& date) {
    return static_cast<double>(kEpoch.daysTo(date));
}

double dateTimeSerial(const QDateTime& dateTime) {
    const double fraction = static_cast<double>(dateTime.time().msecsSinceStartOfDay()) / (kSecondsPerDay * 1000.0);
    return combine(dateSerial(dateTime.date()), fraction);
}

QDateTime serialToDateTime(double serial) {
    auto days = static_cast<qint64>(std::trunc(serial));
    auto seconds = std::llround(std::fabs(serial - static_cast<double>(days)) * kSecondsPerDay);
    if (seconds >= kSecondsPerDay) {
        seconds -= kSecondsPerDay;
        days += serial < 0.0 ? -1 : 1;
    }
    return QDateTime(kEpoch.addDays(days), QTime::fromMSecsSinceStartOfDay(static_cast<int>(seconds) * 1000));
}

QDate serialToDate(double serial) {
    return serialToDateTime(serial).date();
}

std::optional<double> parseDate(const QString& text) {
    static const QRegularExpression withTime(
        QStringLiteral(R"(^(.*?)\s*(?:(\d{1,2}):(\d{1,2})(?::(\d{1,2}))?\s*([ap]m?)?)?$)"),
        QRegularExpression::CaseInsensitiveOption);
    const QString trimmed = text.trimmed();
    const auto m = withTime.match(trimmed);
    if (trimmed.isEmpty() || !m.hasMatch())
        return std::nullopt;

    double fraction = 0.0;
    const bool hasTime = m.hasCaptured(2);
    if (hasTime) {
        const auto time =
            timeFraction(m.captured(2).toInt(), m.captured(3).toInt(), m.captured(4).toInt(), m.captured(5));
        if (!time)
            return std::nullopt;
        fraction = *time;
    }
    const QString dayPart = m.captured(1);
    if (dayPart.isEmpty())
        return hasTime ? std::optional<double>(fraction) : std::nullopt;
    const std::optional<QDate> date = parseDayPart(dayPart);
    if (!date)
        return std::nullopt;
    return combine(dateSerial(*date), fraction);
}

bool isDate(const QString& text) {
    return parseDate(text).has_value();
}

QString dateToString(double serial) {
    const QDateTime dateTime = serialToDateTime(serial);
    const QTime time = dateTime.time();
    const QString clock = QString::asprintf("%02d:%02d:%02d", time.hour(), time.minute(), time.second());
    if (serial >= 0.0 && serial < 1.0)
        return clock;
    const QDate date = dateTime.date();
    QString text = QString::asprintf("%02d/%02d/%04d", date.day(), date.month(), date.year());
    if (time.msecsSinceStartOfDay() != 0)
        text += u' ' + clock;
    return text;
}

QString monthName(int month, bool abbreviate) {
    if (month < 1 || month > 12)
        raise(err::InvalidProcedureCall);
    const QString name = QString::fromLatin1(kMonths[static_cast<std::size_t>(month - 1)]);
    return abbreviate ? name.left(3) : name;
}

QString weekdayName(int weekday, bool abbreviate) {
    if (weekday < 1 || weekday > 7)
        raise(err::InvalidProcedureCall);
    const QString name = QString::fromLatin1(kWeekdays[static_cast<std::size_t>(weekday - 1)]);
    return abbreviate ? name.left(3) : name;
}

double now() {
    return dateTimeSerial(QDateTime::currentDateTime());
}

double today() {
    return dateSerial(QDate::currentDate());
}

}  // namespace ostravel
