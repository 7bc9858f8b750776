#include "market/history_fields.h"

#include <charconv>
#include <string>

#include "runtime/vbdate.h"

namespace ostravel {

namespace {

bool allDigits(QByteArrayView text) {
    for (const char c : text)
        if (c < '0' || c > '9')
            return false;
    return true;
}

// The number of a date's field: a few digits, nothing else.
std::optional<int> digits(QByteArrayView text) {
    if (text.isEmpty() || text.size() > 4 || !allDigits(text))
        return std::nullopt;
    int value = 0;
    for (const char c : text) value = value * 10 + (c - '0');
    return value;
}

std::optional<QDate> validDay(std::optional<int> year, std::optional<int> month, std::optional<int> day) {
    if (!year || !month || !day || !QDate::isValid(*year, *month, *day))
        return std::nullopt;
    return QDate(*year, *month, *day);
}

}  // namespace

std::optional<QDate> isoDay(QByteArrayView text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    return validDay(digits(text.first(4)), digits(text.sliced(5, 2)), digits(text.sliced(8, 2)));
}

std::optional<QDate> fileDay(QByteArrayView text) {
    if (text.size() != 11 || text[2] != '/' || text[6] != '/')
        return std::nullopt;
    const QString month = QString::fromLatin1(text.sliced(3, 3));
    for (int m = 1; m <= 12; ++m)
        if (monthName(m, true) == month)
            return validDay(digits(text.sliced(7, 4)), m, digits(text.first(2)));
    return std::nullopt;
}

QString fileDayText(const QDate& day) {
    return QStringLiteral("%1/%2/%3")
        .arg(day.day(), 2, 10, QLatin1Char('0'))
        .arg(monthName(day.month(), true))
        .arg(day.year());
}

std::optional<double> plainDecimal(QByteArrayView text) {
    const qsizetype point = text.indexOf('.');
    const QByteArrayView whole = point < 0 ? text : text.first(point);
    const QByteArrayView decimals = point < 0 ? QByteArrayView() : text.sliced(point + 1);
    if (whole.isEmpty() || !allDigits(whole) || !allDigits(decimals) || whole.size() + decimals.size() > 15)
        return std::nullopt;
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::optional<double> roundedPlainDecimal(QByteArrayView text) {
    const qsizetype point = text.indexOf('.');
    const QByteArrayView whole = point < 0 ? text : text.first(point);
    const QByteArrayView decimals = point < 0 ? QByteArrayView() : text.sliced(point + 1);
    if (whole.isEmpty() || whole.size() > 9 || (whole.size() > 1 && whole[0] == '0') || !allDigits(whole) ||
        !allDigits(decimals) || whole.size() + decimals.size() > 15)
        return std::nullopt;
    // The text holds the value's significant digits: round them as text, halves to the even digit.
    std::string kept(whole.data(), static_cast<std::size_t>(whole.size()));
    kept += '.';
    kept.append(decimals.data(), static_cast<std::size_t>(std::min<qsizetype>(decimals.size(), 3)));
    while (kept.size() < static_cast<std::size_t>(whole.size()) + 4) kept += '0';
    if (decimals.size() > 3) {
        const QByteArrayView rest = decimals.sliced(3);
        bool tail = false;
        for (qsizetype i = 1; i < rest.size(); ++i) tail = tail || rest[i] != '0';
        const bool up = rest[0] > '5' || (rest[0] == '5' && (tail || (kept.back() - '0') % 2 == 1));
        if (up) {
            std::size_t i = kept.size();
            for (;;) {
                --i;
                if (kept[i] == '.')
                    continue;
                if (kept[i] != '9') {
                    ++kept[i];
                    break;
                }
                kept[i] = '0';
                if (i == 0) {
                    kept.insert(kept.begin(), '1');
                    break;
                }
            }
        }
    }
    double value = 0;
    std::from_chars(kept.data(), kept.data() + kept.size(), value);
    return value;
}

}  // namespace ostravel
