// The program's version as its screens show it.
#pragma once

#include <QString>

namespace ostravel {

// The splash's productversion: "Ver " & major & "." & minor.
inline QString productversion() {
    return QStringLiteral("Ver %1.%2").arg(OSTRAVEL_VERSION_MAJOR).arg(OSTRAVEL_VERSION_MINOR);
}

}  // namespace ostravel
