#include "runtime/vbformat.h"

#include <QDateTime>
#include <QStringList>
#include <QVarLengthArray>
#include <algorithm>
#include <bitset>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "runtime/variant.h"
#include "runtime/vbdate.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

// ---- shared by both pattern languages -------------------------------------------------------

// Splits off the next character or quoted run; quoted text and a character after "\" are literal.
struct PatternChar {
    QString text;
    bool literal = false;
};

std::vector<PatternChar> patternChars(const QString& pattern) {
    std::vector<PatternChar> out;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == u'"') {
            const qsizetype end = pattern.indexOf(u'"', i + 1);
            const qsizetype stop = end < 0 ? pattern.size() : end;
            out.push_back({pattern.mid(i + 1, stop - i - 1), true});
            i = stop;
        } else if (c == u'\\' && i + 1 < pattern.size()) {
            out.push_back({pattern.mid(++i, 1), true});
        } else {
            out.push_back({QString(c), false});
        }
    }
    return out;
}

// ---- number patterns ----------------------------------------------------------------------

enum class NumberToken { Optional, Required, Point, Comma, Percent, Literal };

struct NumberItem {
    NumberToken kind;
    QString text;
};

std::vector<NumberItem> numberItems(const QString& section) {
    std::vector<NumberItem> items;
    bool point = false;
    for (const PatternChar& c : patternChars(section)) {
        if (c.literal) {
            items.push_back({NumberToken::Literal, c.text});
            continue;
        }
        const QChar ch = c.text.at(0);
        if (ch == u'#')
            items.push_back({NumberToken::Optional, {}});
        else if (ch == u'0')
            items.push_back({NumberToken::Required, {}});
        else if (ch == u'.' && !point) {
            point = true;
            items.push_back({NumberToken::Point, {}});
        } else if (ch == u',')
            items.push_back({NumberToken::Comma, {}});
        else if (ch == u'%')
            items.push_back({NumberToken::Percent, c.text});
        else
            items.push_back({NumberToken::Literal, c.text});
    }
    return items;
}

bool isPlaceholder(NumberToken kind) {
    return kind == NumberToken::Optional || kind == NumberToken::Required;
}

// What a number section asks for, read once before the digits are laid out.
struct NumberLayout {
    int integerPlaces = 0;     // placeholders before the point
    int minIntegerDigits = 0;  // from the first "0" before the point up to the point
    int decimalPlaces = 0;     // placeholders after the point
    int minDecimals = 0;       // up to the last "0" after the point
    int percents = 0;
    std::vector<int> commaOffsets;  // placeholders right of each grouping comma, ascending
};

NumberLayout numberLayout(const std::vector<NumberItem>& items) {
    NumberLayout layout;
    bool afterPoint = false;
    int firstRequired = -1;
    std::vector<int> commasAt;  // integer placeholders seen before each comma
    for (const NumberItem& item : items) {
        switch (item.kind) {
            case NumberToken::Optional:
            case NumberToken::Required:
                if (afterPoint) {
                    ++layout.decimalPlaces;
                    if (item.kind == NumberToken::Required)
                        layout.minDecimals = layout.decimalPlaces;
                } else {
                    if (item.kind == NumberToken::Required && firstRequired < 0)
                        firstRequired = layout.integerPlaces;
                    ++layout.integerPlaces;
                }
                break;
            case NumberToken::Point:
                afterPoint = true;
                break;
            case NumberToken::Comma:
                if (!afterPoint)
                    commasAt.push_back(layout.integerPlaces);
                break;
            case NumberToken::Percent:
                ++layout.percents;
                break;
            case NumberToken::Literal:
                break;
        }
    }
    if (firstRequired >= 0)
        layout.minIntegerDigits = layout.integerPlaces - firstRequired;
    // Only a comma with placeholders on both sides groups; the nearest to the point comes first.
    for (auto it = commasAt.rbegin(); it != commasAt.rend(); ++it) {
        if (*it > 0 && *it < layout.integerPlaces)
            layout.commaOffsets.push_back(layout.integerPlaces - *it);
    }
    return layout;
}

// Integer digits a number can have, and some room for a pattern's leading zeros.
constexpr std::size_t kMostDigits = 512;

// The digit counts from the right after which a comma stands, for a number of `length` integer
// digits: the groups as written, and past them the leftmost written group again while the rest
// is longer than the placeholders written before the first comma.
std::bitset<kMostDigits> groupBoundaries(const NumberLayout& layout, int length) {
    std::bitset<kMostDigits> boundaries;
    if (layout.commaOffsets.empty())
        return boundaries;
    for (int offset : layout.commaOffsets) {
        if (offset < length)
            boundaries.set(static_cast<std::size_t>(offset));
    }
    const int last = layout.commaOffsets.back();
    const int repeat =
        layout.commaOffsets.size() > 1 ? last - layout.commaOffsets[layout.commaOffsets.size() - 2] : last;
    const int leading = layout.integerPlaces - last;
    if (length - last > leading) {
        for (int pos = last; length - pos > repeat;) {
            pos += repeat;
            if (pos < static_cast<int>(kMostDigits))
                boundaries.set(static_cast<std::size_t>(pos));
        }
    }
    return boundaries;
}

// One section of a number pattern, read once: its items and what they ask for.
struct NumberSection {
    std::vector<NumberItem> items;
    NumberLayout layout;
};

// A laid-out number, built where it needs no memory of its own for the usual sizes.
using NumberText = QVarLengthArray<char16_t, 96>;

void layOutSection(double value, const NumberSection& section, bool showMinus, NumberText& out) {
    const std::vector<NumberItem>& items = section.items;
    const NumberLayout& layout = section.layout;

    double scaled = value;
    for (int i = 0; i < layout.percents; ++i) scaled *= 100.0;
    thread_local std::string digits;
    fixedDecimalDigits(scaled, layout.decimalPlaces, Tie::AwayFromZero, digits);
    std::string_view shown(digits);
    const bool negative = !shown.empty() && shown.front() == '-';
    if (negative)
        shown.remove_prefix(1);

    // The digits end in the places asked for, after a point; only a value beyond every
    // number is written without one.
    const std::size_t point = layout.decimalPlaces > 0 && std::isfinite(scaled)
                                  ? shown.size() - 1 - static_cast<std::size_t>(layout.decimalPlaces)
                                  : std::string_view::npos;
    std::string_view whole = point == std::string_view::npos ? shown : shown.substr(0, point);
    std::string_view fraction = point == std::string_view::npos ? std::string_view() : shown.substr(point + 1);
    if (whole == "0")
        whole = {};
    const int zeros = std::max(layout.minIntegerDigits - static_cast<int>(whole.size()), 0);
    while (static_cast<int>(fraction.size()) > layout.minDecimals && !fraction.empty() && fraction.back() == '0')
        fraction.remove_suffix(1);

    const int length = zeros + static_cast<int>(whole.size());
    const std::bitset<kMostDigits> boundaries =
        layout.commaOffsets.empty() ? std::bitset<kMostDigits>() : groupBoundaries(layout, length);
    out.clear();
    if (negative && showMinus)
        out.append(u'-');
    auto emitDigit = [&](int position) {  // position 0 is the units
        const int index = length - 1 - position;
        out.append(index < zeros ? u'0' : char16_t(whole[static_cast<std::size_t>(index - zeros)]));
        if (position < static_cast<int>(kMostDigits) && boundaries.test(static_cast<std::size_t>(position)))
            out.append(u',');
    };
    bool integerStarted = false;
    auto startInteger = [&] {
        if (integerStarted)
            return;
        integerStarted = true;
        for (int position = length - 1; position >= layout.integerPlaces; --position) emitDigit(position);
    };

    int integerIndex = 0;
    std::size_t decimalIndex = 0;
    bool afterPoint = false;
    for (const NumberItem& item : items) {
        if (isPlaceholder(item.kind) && !afterPoint) {
            startInteger();
            const int position = layout.integerPlaces - 1 - integerIndex++;
            if (position < length)
                emitDigit(position);
        } else if (isPlaceholder(item.kind)) {
            if (decimalIndex < fraction.size())
                out.append(char16_t(fraction[decimalIndex]));
            ++decimalIndex;
        } else if (item.kind == NumberToken::Point) {
            startInteger();
            afterPoint = true;
            if (!fraction.empty())
                out.append(u'.');
        } else if (item.kind != NumberToken::Comma) {
            out.append(reinterpret_cast<const char16_t*>(item.text.utf16()), item.text.size());
        }
    }
}

QStringList sections(const QString& pattern) {
    QStringList out(QString{});
    for (const PatternChar& c : patternChars(pattern)) {
        if (!c.literal && c.text == QLatin1String(";"))
            out.append(QString{});
        else if (c.literal)
            for (const QChar ch : c.text) out.last() += QString(u'\\') + ch;
        else
            out.last() += c.text;
    }
    return out;
}

// ---- date patterns ------------------------------------------------------------------------

QString namedDatePattern(const QString& pattern) {
    static const std::pair<const char*, const char*> kNamed[] = {
        {"Short Date", "dd/mm/yyyy"}, {"Medium Date", "dd-mmm-yy"},   {"Long Date", "dd mmmm yyyy"},
        {"Short Time", "hh:nn"},      {"Medium Time", "hh:nn AM/PM"}, {"Long Time", "hh:nn:ss"},
    };
    for (const auto& [name, expansion] : kNamed) {
        if (pattern.trimmed().compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(expansion);
    }
    return {};
}

bool isGeneralDate(const QString& pattern) {
    return pattern.trimmed().compare(QLatin1String("General Date"), Qt::CaseInsensitive) == 0;
}

struct DateItem {
    QChar letter;  // d m y h n s, lower case; 'a' for AM/PM; null for literal text
    int count = 0;
    QString text;  // literal text, or the AM/PM marker as written
};

std::vector<DateItem> dateItems(const QString& pattern) {
    std::vector<DateItem> items;
    const std::vector<PatternChar> chars = patternChars(pattern);
    for (std::size_t i = 0; i < chars.size(); ++i) {
        const PatternChar& c = chars[i];
        if (c.literal) {
            items.push_back({QChar(), 0, c.text});
            continue;
        }
        const QChar lower = c.text.at(0).toLower();
        QString rest;
        for (std::size_t j = i; j < chars.size() && j < i + 5 && !chars[j].literal; ++j) rest += chars[j].text;
        if (rest.startsWith(QLatin1String("AM/PM"), Qt::CaseInsensitive)) {
            items.push_back({u'a', 0, rest.left(5)});
            i += 4;
        } else if (rest.startsWith(QLatin1String("A/P"), Qt::CaseInsensitive)) {
            items.push_back({u'a', 0, rest.left(3)});
            i += 2;
        } else if (QStringLiteral("dmyhns").contains(lower)) {
            int count = 1;
            while (i + 1 < chars.size() && !chars[i + 1].literal && chars[i + 1].text.at(0).toLower() == lower) {
                ++count;
                ++i;
            }
            items.push_back({lower, count, {}});
        } else {
            items.push_back({QChar(), 0, c.text});
        }
    }
    return items;
}

// An "m" or "mm" right after an hour, or right before seconds, stands for minutes.
bool meansMinutes(const std::vector<DateItem>& items, std::size_t index) {
    if (items[index].count > 2)
        return false;
    for (std::size_t i = index; i-- > 0;) {
        if (!items[i].letter.isNull()) {
            if (items[i].letter == u'h')
                return true;
            break;
        }
    }
    for (std::size_t i = index + 1; i < items.size(); ++i) {
        if (!items[i].letter.isNull())
            return items[i].letter == u's';
    }
    return false;
}

QString twoDigits(int value) {
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

QString meridian(const QString& marker, int hour) {
    const bool pm = hour >= 12;
    const qsizetype slash = marker.indexOf(u'/');
    return pm ? marker.mid(slash + 1) : marker.left(slash);
}

bool hasDateLetters(const QString& pattern) {
    bool letters = false;
    for (const PatternChar& c : patternChars(pattern)) {
        if (c.literal)
            continue;
        if (c.text == QLatin1String("#") || c.text == QLatin1String("0"))
            return false;
        letters = letters || QStringLiteral("dmyhns").contains(c.text.at(0).toLower());
    }
    return letters;
}

bool isDatePattern(const QString& pattern) {
    return isGeneralDate(pattern) || !namedDatePattern(pattern).isEmpty() || hasDateLetters(pattern);
}

// The number patterns read so far: the program formats with a few patterns many times over.
const NumberFormat& numberFormat(const QString& pattern) {
    constexpr std::size_t kMostPatterns = 256;
    thread_local std::unordered_map<QString, NumberFormat> read;
    if (const auto found = read.find(pattern); found != read.end())
        return found->second;
    if (read.size() >= kMostPatterns)
        read.clear();
    return read.emplace(pattern, NumberFormat(pattern)).first->second;
}

QString formatNumeric(double value, const QString& pattern) {
    return isDatePattern(pattern) ? formatDate(value, pattern) : formatNumber(value, pattern);
}

}  // namespace

struct NumberFormat::Sections {
    std::vector<std::optional<NumberSection>> parts;  // none for an empty section
};

NumberFormat::NumberFormat(const QString& pattern) {
    auto read = std::make_shared<Sections>();
    if (!pattern.isEmpty()) {
        for (const QString& part : sections(pattern)) {
            if (part.isEmpty() && !read->parts.empty()) {
                read->parts.emplace_back();
                continue;
            }
            std::vector<NumberItem> items = numberItems(part);
            const NumberLayout layout = numberLayout(items);
            read->parts.push_back(NumberSection{std::move(items), layout});
        }
    }
    m_sections = std::move(read);
}

QString NumberFormat::operator()(double value) const {
    QString text;
    into(text, value);
    return text;
}

void NumberFormat::into(QString& text, double value) const {
    const std::vector<std::optional<NumberSection>>& parts = m_sections->parts;
    if (parts.empty()) {
        text = numberToText(value);
        return;
    }
    NumberText out;
    // positive;negative;zero: an empty section falls back to the first, minus and all.
    if (value < 0.0 && parts.size() > 1 && parts[1])
        layOutSection(-value, *parts[1], false, out);
    else if (value == 0.0 && parts.size() > 2 && parts[2])
        layOutSection(value, *parts[2], true, out);
    else
        layOutSection(value, *parts[0], true, out);
    text.resize(out.size());
    std::copy(out.begin(), out.end(), reinterpret_cast<char16_t*>(text.data()));
}

QString formatNumber(double value, const QString& pattern) {
    return numberFormat(pattern)(value);
}

QString formatDate(double serial, const QString& pattern) {
    if (isGeneralDate(pattern) || pattern.isEmpty())
        return dateToString(serial);
    if (const QString named = namedDatePattern(pattern); !named.isEmpty())
        return formatDate(serial, named);

    const QDateTime dateTime = serialToDateTime(serial);
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    const std::vector<DateItem> items = dateItems(pattern);
    bool twelveHours = false;
    for (const DateItem& item : items) twelveHours = twelveHours || item.letter == u'a';

    QString out;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const DateItem& item = items[i];
        const int n = item.count;
        switch (item.letter.unicode()) {
            case u'd':
                if (n <= 2)
                    out += n == 1 ? QString::number(date.day()) : twoDigits(date.day());
                else if (n <= 4)
                    out += weekdayName(date.dayOfWeek() % 7 + 1, n == 3);
                else
                    out += formatDate(serial, n == 5 ? QStringLiteral("Short Date") : QStringLiteral("Long Date"));
                break;
            case u'm':
                if (meansMinutes(items, i))
                    out += n == 1 ? QString::number(time.minute()) : twoDigits(time.minute());
                else if (n <= 2)
                    out += n == 1 ? QString::number(date.month()) : twoDigits(date.month());
                else
                    out += monthName(date.month(), n == 3);
                break;
            case u'y':
                if (n == 1)
                    out += QString::number(date.dayOfYear());
                else if (n == 2)
                    out += twoDigits(date.year() % 100);
                else
                    out += QStringLiteral("%1").arg(date.year(), 4, 10, QLatin1Char('0'));
                break;
            case u'h': {
                int hour = time.hour();
                if (twelveHours)
                    hour = hour % 12 == 0 ? 12 : hour % 12;
                out += n == 1 ? QString::number(hour) : twoDigits(hour);
                break;
            }
            case u'n':
                out += n == 1 ? QString::number(time.minute()) : twoDigits(time.minute());
                break;
            case u's':
                out += n == 1 ? QString::number(time.second()) : twoDigits(time.second());
                break;
            case u'a':
                out += meridian(item.text, time.hour());
                break;
            default:
                out += item.text;
                break;
        }
    }
    return out;
}

QString format(const Variant& value, const QString& pattern) {
    switch (value.kind()) {
        case Variant::Kind::Empty:
        case Variant::Kind::Null:
            return {};
        case Variant::Kind::Date:
            return formatDate(value.toDate(), pattern);
        case Variant::Kind::Boolean:
        case Variant::Kind::Long:
        case Variant::Kind::Double:
            return formatNumeric(value.toDouble(), pattern);
        case Variant::Kind::String:
            break;
    }
    const QString text = value.toString();
    if (const std::optional<double> number = parseNumber(text))
        return formatNumeric(*number, pattern);
    if (isDatePattern(pattern)) {
        if (const std::optional<double> serial = parseDate(text))
            return formatDate(*serial, pattern);
    }
    return text;
}

}  // namespace ostravel
