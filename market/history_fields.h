// Quick readings of the history file's usual fields, each giving exactly what the run time's
// general routines give for it, and nothing when a field is not of the usual form (the caller
// then takes the general routine).
#pragma once

#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <optional>

namespace ostravel {

// "2006-02-17" as a date.
std::optional<QDate> isoDay(QByteArrayView text);
// "17/Feb/2006" as a date.
std::optional<QDate> fileDay(QByteArrayView text);
// "17/Feb/2006", as Format(d, "dd/mmm/yyyy") writes it.
QString fileDayText(const QDate& day);

// Val(text) for a plain decimal of at most 15 significant digits ("3061024.0").
std::optional<double> plainDecimal(QByteArrayView text);

// Round(Val(text), 3) for a plain decimal of at most 15 significant digits ("15.859429").
std::optional<double> roundedPlainDecimal(QByteArrayView text);

}  // namespace ostravel
