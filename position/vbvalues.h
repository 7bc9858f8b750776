// The run time's arithmetic and conversions that the rule needs beyond app/base: the division
// with its two errors, the text of a 32-bit float, and the reading of the rule's columns.
#pragma once

#include <QString>

namespace ostravel {

class Variant;

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

// A column in the rule's sums: an empty one (Null) counts as 0, as an empty PortControl does.
double columnNumber(const Variant& value);
// A column shown in a box: an empty one shows as an empty box.
QString columnText(const Variant& value);

}  // namespace ostravel
