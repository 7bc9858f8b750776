#include "runtime/vbmath.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <system_error>

#include "runtime/vberror.h"

namespace ostravel {

namespace {

// The significant digits the run time shows of a double.
constexpr int kSignificantDigits = 15;

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// Whole numbers below this are exact in a double, and so are their quotients by a power of ten
// up to 1e22 rounded once.
constexpr double kExactWhole = 9007199254740992.0;  // 2^53

// A value scaled to its places that stays below this, and lies farther than the margin from a
// half, rounds the same on the double as on its 15 shown digits: those digits differ from the
// double by less than 5e-15 of it, a hundred-thousandth of a place at this size.
constexpr double kQuickScaled = 2147483648.0;  // 2^31
constexpr double kTieMargin = 1e-4;
constexpr int kQuickPlaces = 9;

// The value rounded to `decimals` places, as a whole number of those places, where that needs
// no look at its shown digits: none when it lies near a half, or is too large or too fine.
std::optional<std::int64_t> quickScaled(double value, int decimals) {
    if (decimals < 0 || decimals > kQuickPlaces || !std::isfinite(value))
        return std::nullopt;
    const double scaled = std::fabs(value) * kPowersOfTen[decimals];
    if (!(scaled < kQuickScaled))
        return std::nullopt;
    const double whole = std::floor(scaled);
    const double fraction = scaled - whole;
    if (std::fabs(fraction - 0.5) < kTieMargin)
        return std::nullopt;
    const auto rounded = static_cast<std::int64_t>(whole) + (fraction > 0.5 ? 1 : 0);
    return value < 0 ? -rounded : rounded;
}

// n places of a decimal as plain digits: "-12.50" for -1250 with 2 places; no minus on 0.
// Laid out in a buffer and appended at once: every figure of a run passes through here.
void placesText(std::int64_t n, int decimals, std::string& out) {
    char digits[24];
    const auto magnitude = static_cast<std::uint64_t>(n < 0 ? -n : n);
    const auto end = std::to_chars(digits, digits + sizeof digits, magnitude).ptr;
    const int length = static_cast<int>(end - digits);
    std::array<char, 64> text{};
    char* at = text.data();
    if (n < 0)
        *at++ = '-';
    const int whole = std::max(length - decimals, 0);
    if (whole == 0)
        *at++ = '0';
    at = std::copy(digits, digits + whole, at);
    if (decimals > 0) {
        *at++ = '.';
        at = std::fill_n(at, std::max(decimals - length, 0), '0');
        at = std::copy(digits + whole, end, at);
    }
    out.append(text.data(), static_cast<std::size_t>(at - text.data()));
}

// The decimal of few places that a value is the double of: the fewest places, up to nine,
// with at most 15 digits. Then those digits are the ones the run time shows.
std::optional<std::pair<std::int64_t, int>> shortDecimal(double value) {
    const double magnitude = std::fabs(value);
    for (int places = 0; places <= kQuickPlaces; ++places) {
        const double scaled = magnitude * kPowersOfTen[places];
        if (scaled >= 1e15)
            break;
        const double whole = std::nearbyint(scaled);
        if (whole / kPowersOfTen[places] == magnitude)
            return std::pair{static_cast<std::int64_t>(value < 0 ? -whole : whole), places};
    }
    return std::nullopt;
}

// The plain digits of a number's parse: a sign, digits with at most one point, nothing else.
// The double they name, when that needs no general conversion: up to 15 digits.
std::optional<double> quickDecimal(const char* text, std::size_t length) {
    std::uint64_t whole = 0;
    int digits = 0;
    int places = 0;
    bool point = false;
    std::size_t i = 0;
    const bool negative = length > 0 && text[0] == '-';
    if (negative)
        ++i;
    for (; i < length; ++i) {
        const char c = text[i];
        if (c == '.') {
            point = true;
            continue;
        }
        if (c < '0' || c > '9' || ++digits > kSignificantDigits)
            return std::nullopt;
        whole = whole * 10 + static_cast<std::uint64_t>(c - '0');
        places += point ? 1 : 0;
    }
    const double value = static_cast<double>(whole) / kPowersOfTen[places];
    return negative ? -value : value;
}

// The parse of a number's plain or exponent text, as the run time converts it.
double parsedNumber(const char* text, std::size_t length) {
    if (const std::optional<double> quick = quickDecimal(text, length))
        return *quick;
    double value = 0.0;
    const auto result = std::from_chars(text, text + length, value);
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view number(text, length);
        const std::size_t e = number.find('e');
        // Too small gives 0; too large is no number.
        if (e != std::string_view::npos && number[e + 1] == '-')
            return 0.0;
        return std::numeric_limits<double>::infinity();
    }
    return value;
}

// |value| as its 15 significant digits d1..d15 and the power of ten of d1.
struct Digits {
    std::string digits;
    int exponent = 0;
};

Digits significantDigits(double value) {
    std::array<char, 40> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                      std::chars_format::scientific, kSignificantDigits - 1);
    const std::string text(buffer.data(), result.ptr);  // "1.23450000000000e+02"
    const std::size_t e = text.find('e');
    Digits out;
    out.digits = text.substr(0, 1) + text.substr(2, e - 2);
    out.exponent = std::stoi(text.substr(e + 1));
    return out;
}

double parseCanonical(const std::string& text) {
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n';
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

int digitValue(QChar c) {
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'a' && u <= u'f')
        return u - u'a' + 10;
    if (u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    return -1;
}

// Val's "&H" and "&O": the digits as an unsigned number, then signed in 16 bits when they fit
// there and in 32 bits otherwise, as the run time types such literals.
double radixValue(const QString& text, qsizetype pos, int radix) {
    std::uint64_t value = 0;
    for (; pos < text.size(); ++pos) {
        if (isBlank(text.at(pos)))
            continue;
        const int digit = digitValue(text.at(pos));
        if (digit < 0 || digit >= radix)
            break;
        value = value * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(digit);
        if (value > 0xFFFFFFFFu)
            raise(err::Overflow);
    }
    if (value <= 0xFFFFu)
        return static_cast<double>(static_cast<std::int16_t>(static_cast<std::uint16_t>(value)));
    return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

// The usual number of a text, read straight from it: blanks before it, a sign, up to 15 digits
// with at most one point. `whole`: nothing but blanks may follow (the strict parse); otherwise
// the number ends at the first character that can't go on with it (Val). None when anything
// else is there, for the general parse to read.
std::optional<double> quickText(QStringView text, bool whole) {
    qsizetype pos = 0;
    while (pos < text.size() && text[pos] == u' ') ++pos;
    bool negative = false;
    if (pos < text.size() && (text[pos] == u'-' || text[pos] == u'+')) {
        negative = text[pos] == u'-';
        ++pos;
    }
    std::uint64_t digits = 0;
    int count = 0;
    int places = 0;
    bool point = false;
    for (; pos < text.size(); ++pos) {
        const char16_t c = text[pos].unicode();
        if (c >= u'0' && c <= u'9') {
            if (++count > kSignificantDigits)
                return std::nullopt;
            digits = digits * 10 + (c - u'0');
            places += point ? 1 : 0;
        } else if (c == u'.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (count == 0)
        return std::nullopt;
    for (qsizetype rest = pos; rest < text.size(); ++rest) {
        const char16_t c = text[rest].unicode();
        const bool blank = c == u' ';
        // Blanks inside a number, an exponent, a second point: the general parse decides.
        if (c == u'\t' || c == u'\n' || c == u'e' || c == u'E' || c == u'd' || c == u'D' || c == u'.' ||
            (c >= u'0' && c <= u'9') || (whole ? !blank : blank))
            return std::nullopt;
        if (!whole)
            break;
    }
    const double value = static_cast<double>(digits) / kPowersOfTen[places];
    return negative ? -value : value;
}

}  // namespace

double Val(const QString& text) {
    if (const std::optional<double> quick = quickText(text, false))
        return *quick;
    qsizetype pos = 0;
    auto skipBlanks = [&] {
        while (pos < text.size() && isBlank(text.at(pos))) ++pos;
    };
    auto peek = [&]() -> QChar {
        skipBlanks();
        return pos < text.size() ? text.at(pos) : QChar();
    };

    if (peek() == u'&') {
        ++pos;
        const QChar radix = peek().toUpper();
        if (radix == u'H')
            return radixValue(text, pos + 1, 16);
        if (radix == u'O')
            return radixValue(text, pos + 1, 8);
        return 0.0;
    }

    std::string number;
    if (peek() == u'-' || peek() == u'+') {
        if (text.at(pos) == u'-')
            number += '-';
        ++pos;
    }
    bool anyDigit = false;
    bool point = false;
    for (QChar c = peek(); isDigit(c) || (c == u'.' && !point); c = peek()) {
        point = point || c == u'.';
        anyDigit = anyDigit || c != u'.';
        number += static_cast<char>(c.unicode());
        ++pos;
    }
    if (!anyDigit)
        return 0.0;

    const QChar marker = peek().toUpper();
    if (marker == u'E' || marker == u'D') {
        ++pos;
        std::string exponent = "e";
        if (peek() == u'-' || peek() == u'+') {
            exponent += static_cast<char>(text.at(pos).unicode());
            ++pos;
        }
        const std::size_t signLength = exponent.size();
        for (QChar c = peek(); isDigit(c); c = peek()) {
            exponent += static_cast<char>(c.unicode());
            ++pos;
        }
        if (exponent.size() > signLength)
            number += exponent;
    }

    // Too large is an overflow, as Val raises it.
    const double value = parsedNumber(number.data(), number.size());
    if (std::isinf(value))
        raise(err::Overflow);
    return value;
}

std::optional<double> parseNumber(const QString& text) {
    if (const std::optional<double> quick = quickText(text, true))
        return *quick;
    const QString trimmed = text.trimmed();
    std::string number;
    qsizetype pos = 0;
    auto at = [&](qsizetype i) { return i < trimmed.size() ? trimmed.at(i) : QChar(); };

    if (at(pos) == u'-' || at(pos) == u'+') {
        if (at(pos) == u'-')
            number += '-';
        ++pos;
    }
    bool anyDigit = false;
    bool point = false;
    for (; isDigit(at(pos)) || (at(pos) == u'.' && !point); ++pos) {
        point = point || at(pos) == u'.';
        anyDigit = anyDigit || at(pos) != u'.';
        number += static_cast<char>(at(pos).unicode());
    }
    if (!anyDigit)
        return std::nullopt;
    const QChar marker = at(pos).toUpper();
    if (marker == u'E' || marker == u'D') {
        number += 'e';
        ++pos;
        if (at(pos) == u'-' || at(pos) == u'+')
            number += static_cast<char>(at(pos++).unicode());
        if (!isDigit(at(pos)))
            return std::nullopt;
        for (; isDigit(at(pos)); ++pos) number += static_cast<char>(at(pos).unicode());
    }
    if (pos != trimmed.size())
        return std::nullopt;
    const double value = parsedNumber(number.data(), number.size());
    if (std::isinf(value))
        return std::nullopt;
    return value;
}

QString fixedDecimalText(double value, int decimals, Tie tie) {
    std::string text;
    fixedDecimalDigits(value, decimals, tie, text);
    return QString::fromLatin1(text);
}

void fixedDecimalDigits(double value, int decimals, Tie tie, std::string& text) {
    text.clear();
    if (!std::isfinite(value)) {
        text = QString::number(value).toStdString();
        return;
    }
    decimals = std::max(decimals, 0);
    if (const std::optional<std::int64_t> quick = quickScaled(value, decimals)) {
        placesText(*quick, decimals, text);
        return;
    }

    Digits d;
    if (value == 0.0)
        d.digits.assign(kSignificantDigits, '0');
    else
        d = significantDigits(value);
    // Digits before the point; may be 0 or less for values below 1.
    int integerLength = d.exponent + 1;
    const int keep = integerLength + decimals;

    if (keep < kSignificantDigits) {
        std::string kept = keep > 0 ? d.digits.substr(0, static_cast<std::size_t>(keep)) : std::string();
        bool up = false;
        if (keep >= 0) {
            const char next = d.digits[static_cast<std::size_t>(keep)];
            const bool restZero =
                d.digits.find_first_not_of('0', static_cast<std::size_t>(keep) + 1) == std::string::npos;
            const bool lastOdd = !kept.empty() && (kept.back() - '0') % 2 == 1;
            up = next > '5' || (next == '5' && (!restZero || tie == Tie::AwayFromZero || lastOdd));
        }
        if (up) {
            int i = static_cast<int>(kept.size()) - 1;
            for (; i >= 0 && kept[static_cast<std::size_t>(i)] == '9'; --i) kept[static_cast<std::size_t>(i)] = '0';
            if (i >= 0) {
                ++kept[static_cast<std::size_t>(i)];
            } else {
                kept.insert(kept.begin(), '1');
                ++integerLength;
            }
        }
        d.digits = kept;
    }

    auto digitAt = [&](int index) {
        return index >= 0 && index < static_cast<int>(d.digits.size()) ? d.digits[static_cast<std::size_t>(index)]
                                                                       : '0';
    };
    if (integerLength <= 0)
        text += '0';
    for (int i = 0; i < integerLength; ++i) text += digitAt(i);
    if (decimals > 0) {
        text += '.';
        for (int i = integerLength; i < integerLength + decimals; ++i) text += digitAt(i);
    }
    const bool zero = d.digits.find_first_not_of('0') == std::string::npos;
    if (value < 0.0 && !zero)
        text.insert(text.begin(), '-');
}

namespace {

double roundTo(double value, int digits, Tie tie) {
    if (digits < 0)
        raise(err::InvalidProcedureCall);
    if (!std::isfinite(value) || value == 0.0)
        return value;
    if (const std::optional<std::int64_t> quick = quickScaled(value, digits))
        return static_cast<double>(*quick) / kPowersOfTen[digits];
    // A value whose shown digits all lie before the cut has nothing to round.
    if (significantDigits(value).exponent + 1 + digits >= kSignificantDigits)
        return value;
    return parseCanonical(fixedDecimalText(value, digits, tie).toStdString());
}

}  // namespace

double Round(double value, int digits) {
    return roundTo(value, digits, Tie::ToEven);
}

double roundHalfAway(double value, int digits) {
    return roundTo(value, digits, Tie::AwayFromZero);
}

QString numberToText(double value) {
    if (!std::isfinite(value))
        return QString::number(value);
    if (value == 0.0)
        return QStringLiteral("0");
    // The usual figure, whose digits are the few places it is the double of.
    if (std::fabs(value) >= 1e-4)
        if (const std::optional<std::pair<std::int64_t, int>> quick = shortDecimal(value)) {
            std::string text;
            placesText(quick->first, quick->second, text);
            return QString::fromLatin1(text);
        }

    const Digits d = significantDigits(value);
    const std::string digits = d.digits.substr(0, d.digits.find_last_not_of('0') + 1);
    std::string text = value < 0.0 ? "-" : "";
    if (d.exponent < -4 || d.exponent >= kSignificantDigits) {
        text += digits.substr(0, 1);
        if (digits.size() > 1)
            text += '.' + digits.substr(1);
        const int magnitude = std::abs(d.exponent);
        text += d.exponent < 0 ? "E-" : "E+";
        if (magnitude < 10)
            text += '0';
        text += std::to_string(magnitude);
    } else if (d.exponent < 0) {
        text += "0." + std::string(static_cast<std::size_t>(-d.exponent - 1), '0') + digits;
    } else {
        const auto integerLength = static_cast<std::size_t>(d.exponent + 1);
        std::string padded = digits;
        if (padded.size() < integerLength)
            padded.append(integerLength - padded.size(), '0');
        text += padded.substr(0, integerLength);
        if (padded.size() > integerLength)
            text += '.' + padded.substr(integerLength);
    }
    return QString::fromLatin1(text);
}

QString Str(double value) {
    QString text = numberToText(value);
    const bool negative = text.startsWith(u'-');
    const qsizetype digitsStart = negative ? 1 : 0;
    if (text.mid(digitsStart, 2) == QLatin1String("0."))
        text.remove(digitsStart, 1);
    return negative ? text : u' ' + text;
}

std::int16_t toInteger(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= -32768.0 && rounded <= 32767.0))
        raise(err::Overflow);
    return static_cast<std::int16_t>(rounded);
}

std::int32_t toLongInteger(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0))
        raise(err::Overflow);
    return static_cast<std::int32_t>(rounded);
}

namespace {

// What a 32-bit float holds, and where CStr turns to the exponent form for one.
constexpr int kSingleDigits = 7;
constexpr double kSingleExponentFrom = 1e7;

// A float's value to its seven digits, where that needs no general conversion: from 1e-4 up
// to the exponent form, and not near a half of the seventh digit.
std::optional<double> quickSingleDigits(double value) {
    const double magnitude = std::fabs(value);
    if (!(magnitude >= 1e-4 && magnitude < kSingleExponentFrom))
        return std::nullopt;
    // The places that leave seven digits before the point: from 10 (at 1e-4) down to 0.
    int places = kSingleDigits - 1 - static_cast<int>(std::floor(std::log10(magnitude)));
    const auto scaledBy = [&](int p) { return p >= 0 ? magnitude * kPowersOfTen[p] : magnitude / kPowersOfTen[-p]; };
    double scaled = scaledBy(places);
    if (scaled >= 1e7)
        scaled = scaledBy(--places);
    else if (scaled < 1e6)
        scaled = scaledBy(++places);
    if (places < 0 || places > 10)
        return std::nullopt;
    const double whole = std::floor(scaled);
    if (std::fabs(scaled - whole - 0.5) < kTieMargin)
        return std::nullopt;
    const double rounded = (scaled - whole > 0.5 ? whole + 1 : whole) / kPowersOfTen[places];
    return value < 0 ? -rounded : rounded;
}

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
    if (const std::optional<double> quick = quickSingleDigits(v))
        return numberToText(*quick);
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
    // The usual box holds plain digits, and then no comma either.
    if (const std::optional<double> quick = quickText(text, true))
        return *quick;
    const std::optional<double> number =
        text.contains(QLatin1Char(',')) ? parseNumber(QString(text).remove(QLatin1Char(','))) : parseNumber(text);
    if (!number)
        raise(err::TypeMismatch);
    return *number;
}

float textToSingle(const QString& text) {
    return toSingleChecked(textToDouble(text));
}

}  // namespace ostravel
