#include "position/vbvalues.h"

#include "runtime/variant.h"
#include "runtime/vberror.h"
#include "runtime/vbmath.h"

namespace ostravel {

double columnNumber(const Variant& value) {
    return value.isNull() ? 0.0 : value.toDouble();
}

QString columnText(const Variant& value) {
    return value.isNull() ? QString() : value.toString();
}

}  // namespace ostravel
