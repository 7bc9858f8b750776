// Values concatenated into the program's statements: each single quote is doubled, so that a
// name such as "Dr. Reddy's" stays one text and the statement stays the designed one.
#pragma once

#include <QString>

namespace ostravel {

inline QString sqlText(const QString& value) {
    QString quoted = value;
    quoted.replace(QLatin1Char('\''), QLatin1String("''"));
    return quoted;
}

}  // namespace ostravel
