// The reading of the rule's columns as numbers and as box texts.
#pragma once

#include <QString>

#include "runtime/vbmath.h"

namespace ostravel {

class Variant;

// A column in the rule's sums: an empty one (Null) counts as 0, as an empty PortControl does.
double columnNumber(const Variant& value);
// A column shown in a box: an empty one shows as an empty box.
QString columnText(const Variant& value);

}  // namespace ostravel
