#include "cli/connect_store.h"

#include <QTextStream>

#include "context/program.h"
#include "runtime/vberror.h"

namespace ostravel::cli {

bool connectStore(Program& program) {
    try {
        program.store().connection();
        return true;
    } catch (const VbError& error) {
        QTextStream(stderr) << "ostravel-cli: " << error.description() << '\n';
        return false;
    }
}

}  // namespace ostravel::cli
