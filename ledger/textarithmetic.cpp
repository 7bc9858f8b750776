#include "ledger/textarithmetic.h"

#include <cmath>

#include "runtime/vberror.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"

namespace ostravel {

bool isEmptyText(const Variant& value) {
    return value.isEmpty() || (value.kind() == Variant::Kind::String && value.toString().isEmpty());
}

double arithmeticValue(const Variant& value) {
    if (value.kind() != Variant::Kind::String)
        return value.toDouble();
    return textToDouble(value.toString());
}

Variant formattedOrNull(const Variant& value, const QString& pattern) {
    if (value.isNull())
        return Variant::null();
    return Variant(format(value, pattern));
}

}  // namespace ostravel
