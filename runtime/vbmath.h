// The numeric run time: Val, the two roundings, number to text, and 32-bit float steps.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>

namespace ostravel {

// Prefix parse: blanks, tabs and line feeds skipped (also inside the number, "1 2" is 12), an
// optional sign, digits and one point as far as they go, an optional exponent (E or D); "&H" and
// "&O" read hexadecimal and octal, 16-bit or 32-bit signed as the digits need. Anything else
// ends it; nothing numeric gives 0. A number too large for a double raises 6.
double Val(const QString& text);

// The strict parse of CDbl and IsNumeric: blanks around, an optional sign, digits with at most
// one point, an optional exponent, and nothing else. "", "abc" and "1.2.3" are no number.
std::optional<double> parseNumber(const QString& text);

// Both roundings decide a tie on the value's 15 significant decimal digits, the digits the
// user sees, so that 2.675 is a tie although its double lies just below it.
enum class Tie { ToEven, AwayFromZero };

// Round(x, digits): to the nearest, halves to the even digit. Negative digits raise 5.
double Round(double value, int digits = 0);
// The rounding of the "0" and "#" patterns: halves away from zero.
double roundHalfAway(double value, int digits = 0);
// The value rounded to `decimals` places as plain decimal text, "-1234.50" or "0.00", never
// with an exponent; a result of 0 carries no minus.
QString fixedDecimalText(double value, int decimals, Tie tie);
// The same into a buffer of plain characters, for loops that lay out many numbers.
void fixedDecimalDigits(double value, int decimals, Tie tie, std::string& text);

// Str(x): the numeric-to-string conversion with its leading blank for values not negative and
// no zero before the point: " 140", " .5", "-.5".
QString Str(double value);
// CStr(x): the same without the blank, 0.5 as "0.5"; up to 15 significant digits, and the
// exponent form ("1E+15", "1E-05") from 1e15 up and below 1e-4.
QString numberToText(double value);

// Single precision: where the program holds a value in a 32-bit float, its rounding is kept.
inline float toSingle(double value) {
    return static_cast<float>(value);
}
inline double single(double value) {
    return static_cast<double>(static_cast<float>(value));
}
// CInt: to a 16-bit integer, halves to even; out of range raises 6 (overflow).
std::int16_t toInteger(double value);
// CLng: to a 32-bit integer, halves to even; out of range raises 6.
std::int32_t toLongInteger(double value);

// a / b as the run time divides: 0 / 0 raises 6 (overflow), another number / 0 raises 11
// (division by zero), and a quotient beyond a double raises 6.
double divide(double a, double b);

// A value stored into a 32-bit float; beyond its range raises 6.
float toSingleChecked(double value);

// CStr of a 32-bit float: seven significant digits ("2600", "6666.667"), the exponent form
// from 1E+07 on.
QString singleText(float value);

// CSng and CDbl of a text: blanks around, grouping commas passed over; anything else that is
// no number raises 13.
float textToSingle(const QString& text);
double textToDouble(const QString& text);

}  // namespace ostravel
