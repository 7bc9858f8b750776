#include "context/quick.h"

#include "context/program.h"
#include "runtime/trap.h"

namespace ostravel {

bool quickWantedAtStart(Program& program) {
    bool wanted = false;
    trapped(program.reporter(), QStringLiteral("(Form) quick::Sub Form_Load"), [&] {
        const Variant value = program.store().users->field(QStringLiteral("QUICK"));
        wanted = !value.isNull() && value.toDouble() == 1;
    });
    return wanted;
}

void setQuickAtStart(Program& program, bool show) {
    trapped(program.reporter(), QStringLiteral("(Form) quick::Sub Check1_Click"), [&] {
        Recordset& users = *program.store().users;
        users.edit();
        users.setField(QStringLiteral("QUICK"), Variant(show ? 1 : 0));
        users.update();
    });
}

}  // namespace ostravel
