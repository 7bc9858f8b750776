#include "market/doevents.h"

#include <QCoreApplication>

#include "context/program.h"

namespace ostravel {

void DoEvents(Program& program) {
    program.frame().showChanges();
    QCoreApplication::processEvents();
}

}  // namespace ostravel
