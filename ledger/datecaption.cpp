#include "ledger/datecaption.h"

#include "app/base/vbdate.h"
#include "app/base/vbformat.h"

namespace ostravel {

QString todayCaption() {
    return dateToString(today());
}

QString pickedDateCaption(double serial) {
    return formatDate(serial, kPickedDatePattern);
}

}  // namespace ostravel
