// The captions of the ledger screens' date buttons: today's short form when a screen loads,
// and the calendar's pick as "dd/MMM/yyyy".
#pragma once

#include <QString>

namespace ostravel {

inline const QString kPickedDatePattern = QStringLiteral("dd/MMM/yyyy");

QString todayCaption();
QString pickedDateCaption(double serial);

}  // namespace ostravel
