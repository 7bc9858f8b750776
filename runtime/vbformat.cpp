#include "runtime/vbformat.h"

#include <QDateTime>
#include <QStringList>
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

// What a section writes, in its order: a run of digit places (a comma among them only groups
// the digits), the point, or literal text.
struct LayoutStep {
    enum class Kind { Integer, Point, Decimal, Text };
    Kind kind;
    int places = 0;
    QString text;
};

std::vector<LayoutStep> layoutSteps(const std::vector<NumberItem>& items) {
    std::vector<LayoutStep> steps;
    bool afterPoint = false;
    for (const NumberItem& item : items) {
        if (isPlaceholder(item.kind)) {
            const LayoutStep::Kind kind = afterPoint ? LayoutStep::Kind::Decimal : LayoutStep::Kind::Integer;
            if (steps.empty() || steps.back().kind != kind)
                steps.push_back({kind, 0, {}});
            ++steps.back().places;
        } else if (item.kind == NumberToken::Point) {
            afterPoint = true;
            steps.push_back({LayoutStep::Kind::Point, 0, {}});
        } else if (item.kind != NumberToken::Comma) {
            steps.push_back({LayoutStep::Kind::Text, 0, item.text});
        }
    }
    return steps;
}

// One section of a number pattern, read once: what it writes and what it asks for.
struct NumberSection {
    std::vector<LayoutStep> steps;
    NumberLayout layout;
    std::size_t literals = 0;  // the characters of its literal text
    // The usual section, "#####.##" or "#0.#%": its text only before and after one run of
    // integer places, the point and one run of places, and no grouping.
    bool plain = false;
    QString before, after;
};

NumberSection numberSection(const std::vector<NumberItem>& items) {
    NumberSection section;
    section.steps = layoutSteps(items);
    section.layout = numberLayout(items);
    for (const LayoutStep& step : section.steps) section.literals += static_cast<std::size_t>(step.text.size());
    using Kind = LayoutStep::Kind;
    const auto isText = [](const LayoutStep& step) { return step.kind == Kind::Text; };
    const auto first = std::find_if_not(section.steps.begin(), section.steps.end(), isText);
    const auto last = std::find_if_not(section.steps.rbegin(), section.steps.rend(), isText).base();
    std::vector<Kind> middle;
    for (auto step = first; step < last; ++step) middle.push_back(step->kind);
    section.plain = section.layout.commaOffsets.empty() &&
                    (middle == std::vector{Kind::Integer} || middle == std::vector{Kind::Integer, Kind::Point} ||
                     middle == std::vector{Kind::Integer, Kind::Point, Kind::Decimal});
    for (auto step = section.steps.begin(); step < first; ++step) section.before += step->text;
    for (auto step = last; step < section.steps.end(); ++step) section.after += step->text;
    return section;
}

// Writes a section's text at `out`; where it ends.
char16_t* writeText(char16_t* out, const QString& text) {
    return std::copy_n(reinterpret_cast<const char16_t*>(text.constData()), text.size(), out);
}

// A value's digits as a section shows them.
struct ShownDigits {
    bool minus;
    int zeros;                  // the zeros of the section's "0" places before the digits
    std::string_view whole;     // none for a whole part of 0
    std::string_view fraction;  // cut after its last digit that is not 0, as far as the section lets
    int length() const { return zeros + static_cast<int>(whole.size()); }
};

// The usual section laid out straight: the minus, the text before, the digits, the point and
// the places, the text after.
void writePlain(const NumberSection& section, const ShownDigits& shown, QString& text) {
    const std::size_t point = shown.fraction.empty() ? 0 : 1;
    char16_t* out = writableText(text, (shown.minus ? 1 : 0) + static_cast<std::size_t>(section.before.size()) +
                                           static_cast<std::size_t>(shown.length()) + point + shown.fraction.size() +
                                           static_cast<std::size_t>(section.after.size()));
    if (shown.minus)
        *out++ = u'-';
    out = writeText(out, section.before);
    out = std::fill_n(out, shown.zeros, u'0');
    out = std::copy(shown.whole.begin(), shown.whole.end(), out);
    if (point != 0) {
        *out++ = u'.';
        out = std::copy(shown.fraction.begin(), shown.fraction.end(), out);
    }
    writeText(out, section.after);
}

// Any section, step by step: the digits placed by their places, with their group commas.
void writeSteps(const NumberSection& section, const ShownDigits& shown, QString& text) {
    const NumberLayout& layout = section.layout;
    const int length = shown.length();
    const int zeros = shown.zeros;
    const std::string_view whole = shown.whole;
    const std::string_view fraction = shown.fraction;
    const bool grouped = !layout.commaOffsets.empty();
    std::bitset<kMostDigits> boundaries;
    if (grouped)
        boundaries = groupBoundaries(layout, length);

    // Laid out where it needs no memory of its own for the usual sizes: at most a minus, the
    // literal text, each digit with a comma after it, the point and the places.
    const std::size_t most = 2 + section.literals + 2 * static_cast<std::size_t>(length) + fraction.size();
    char16_t local[128];
    std::u16string large;
    if (most > std::size(local))
        large.resize(most);
    char16_t* const start = large.empty() ? local : large.data();
    char16_t* out = start;

    if (shown.minus)
        *out++ = u'-';
    auto emitDigit = [&](int position) {  // position 0 is the units
        const int index = length - 1 - position;
        *out++ = index < zeros ? u'0' : char16_t(whole[static_cast<std::size_t>(index - zeros)]);
        if (grouped && position < static_cast<int>(kMostDigits) && boundaries.test(static_cast<std::size_t>(position)))
            *out++ = u',';
    };
    // The digits beyond the integer places go before the first of them.
    bool integerStarted = false;
    auto startInteger = [&] {
        if (integerStarted)
            return;
        integerStarted = true;
        for (int position = length - 1; position >= layout.integerPlaces; --position) emitDigit(position);
    };

    int integerIndex = 0;
    std::size_t decimalIndex = 0;
    for (const LayoutStep& step : section.steps) {
        switch (step.kind) {
            case LayoutStep::Kind::Integer: {
                startInteger();
                // The run's places from its leftmost; a place left of the number's digits shows
                // nothing.
                const int first = layout.integerPlaces - 1 - integerIndex;
                integerIndex += step.places;
                for (int position = std::min(first, length - 1); position > first - step.places; --position)
                    emitDigit(position);
                break;
            }
            case LayoutStep::Kind::Decimal: {
                const std::size_t from = std::min(decimalIndex, fraction.size());
                decimalIndex += static_cast<std::size_t>(step.places);
                const std::size_t to = std::min(decimalIndex, fraction.size());
                out = std::copy(fraction.begin() + from, fraction.begin() + to, out);
                break;
            }
            case LayoutStep::Kind::Point:
                startInteger();
                if (!fraction.empty())
                    *out++ = u'.';
                break;
            case LayoutStep::Kind::Text:
                out = writeText(out, step.text);
                break;
        }
    }
    std::copy(start, out, writableText(text, static_cast<std::size_t>(out - start)));
}

// Lays the value out over `text`, keeping its room.
void layOutSection(double value, const NumberSection& section, bool showMinus, QString& text) {
    const NumberLayout& layout = section.layout;
    double scaled = value;
    for (int i = 0; i < layout.percents; ++i) scaled *= 100.0;
    const DecimalDigits digits(scaled, layout.decimalPlaces, Tie::AwayFromZero);
    ShownDigits shown{digits.negative() && showMinus, 0, digits.whole(), digits.places()};
    if (shown.whole == "0")
        shown.whole = {};
    shown.zeros = std::max(layout.minIntegerDigits - static_cast<int>(shown.whole.size()), 0);
    while (static_cast<int>(shown.fraction.size()) > layout.minDecimals && !shown.fraction.empty() &&
           shown.fraction.back() == '0')
        shown.fraction.remove_suffix(1);
    if (section.plain)
        writePlain(section, shown, text);
    else
        writeSteps(section, shown, text);
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
            read->parts.push_back(numberSection(numberItems(part)));
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
    // positive;negative;zero: an empty section falls back to the first, minus and all.
    if (value < 0.0 && parts.size() > 1 && parts[1])
        layOutSection(-value, *parts[1], false, text);
    else if (value == 0.0 && parts.size() > 2 && parts[2])
        layOutSection(value, *parts[2], true, text);
    else
        layOutSection(value, *parts[0], true, text);
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
