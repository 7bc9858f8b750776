// Arithmetic on the texts that Format gives, as the run time does it when the overview computes
// with figures it has already formatted.
#pragma once

#include <QString>

#include "runtime/variant.h"

namespace ostravel {

// P = "": the empty text, or a value never assigned.
bool isEmptyText(const Variant& value);

// A value in arithmetic: numbers as they are; texts with their grouping commas passed over
// ("12,34568" is 1234568). Null raises 94; a text that is then no number, "" among them, 13.
double arithmeticValue(const Variant& value);

// Format(value, pattern) as a value: a Null stays Null, so that computing with it raises 94.
Variant formattedOrNull(const Variant& value, const QString& pattern);

}  // namespace ostravel
