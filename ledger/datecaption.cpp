#include "ledger/datecaption.h"

#include "runtime/vbdate.h"
#include "runtime/vbformat.h"

namespace ostravel {

QString todayCaption() {
    return dateToString(today());
}

QString pickedDateCaption(double serial) {
    return formatDate(serial, kPickedDatePattern);
}

}  // namespace ostravel
