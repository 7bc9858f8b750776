#include "position/vbvalues.h"

#include "app/base/variant.h"
#include "app/base/vberror.h"
#include "app/base/vbmath.h"

namespace ostravel {

double columnNumber(const Variant& value) {
    return value.isNull() ? 0.0 : value.toDouble();
}

QString columnText(const Variant& value) {
    return value.isNull() ? QString() : value.toString();
}

}  // namespace ostravel
