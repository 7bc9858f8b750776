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

}  // namespace

double Val(const QString& text) {
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

    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too small gives 0; too large is an overflow, as Val raises it.
        const std::size_t e = number.find('e');
        if (e == std::string::npos || number[e + 1] != '-')
            raise(err::Overflow);
        return 0.0;
    }
    return value;
}

std::optional<double> parseNumber(const QString& text) {
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

    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const std::size_t e = number.find('e');
        if (e != std::string::npos && number[e + 1] == '-')
            return 0.0;
        return std::nullopt;
    }
    return value;
}

QString fixedDecimalText(double value, int decimals, Tie tie) {
    if (!std::isfinite(value))
        return QString::number(value);
    decimals = std::max(decimals, 0);

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
    std::string text;
    if (integerLength <= 0)
        text = "0";
    for (int i = 0; i < integerLength; ++i) text += digitAt(i);
    if (decimals > 0) {
        text += '.';
        for (int i = integerLength; i < integerLength + decimals; ++i) text += digitAt(i);
    }
    const bool zero = d.digits.find_first_not_of('0') == std::string::npos;
    if (value < 0.0 && !zero)
        text.insert(text.begin(), '-');
    return QString::fromLatin1(text);
}

namespace {

double roundTo(double value, int digits, Tie tie) {
    if (digits < 0)
        raise(err::InvalidProcedureCall);
    if (!std::isfinite(value) || value == 0.0)
        return value;
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

}  // namespace ostravel
