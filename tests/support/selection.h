// The main frame's selection as the user makes it, for tests that open a holding's screens.
#pragma once

#include <QString>

#include "context/mainframe.h"

namespace ostravel::test {

// The portfolio, and the code with its ".NS".
inline void selectHolding(MainFrame& frame, const QString& symbol, const QString& portfolio) {
    frame.cmbportfolio.text = portfolio;
    frame.cmbequity = symbol + QStringLiteral(".NS");
}

}  // namespace ostravel::test
