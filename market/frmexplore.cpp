#include "market/frmexplore.h"

#include "context/mainframe.h"
#include "context/program.h"
#include "market/frmbrowser.h"
#include "market/history.h"
#include "position/advice.h"
#include "runtime/prompt.h"
#include "runtime/reporterror.h"
#include "runtime/trap.h"
#include "store/database.h"
#include "store/sqltext.h"
#include "store/store.h"

namespace ostravel {

namespace {

const QString kPlace = QStringLiteral("(Form) frmexplore::Sub ctxOutlookBar1_ItemClick");

void act(Program& program, const NavAction& action) {
    if (!action.known())
        return;
    if (!action.message.isEmpty()) {
        program.prompt().inform(action.message);
        return;
    }
    if (action.run)
        action.run(program);
    else
        openBrowser(program, action.url);
    // After the screen's own load, which may write the panel too.
    if (!action.label.isEmpty())
        program.frame().panel6 = action.label;
    program.frame().showChanges();
}

}  // namespace

NavValues fillNavValues(Program& program) {
    NavValues values;
    values.Sym = historySymbol(program.frame());
    values.Sym6 = values.Sym.left(6);
    trapped(program.reporter(), kPlace, [&] {
        auto rs = program.store().database().openRecordset(
            QStringLiteral("select yahoonse,name from qoutense where ticker='") + sqlText(values.Sym) +
            QStringLiteral("';"));
        if (rs->eof())
            return;
        values.BseCode = rs->field(0).isNull() ? QString() : rs->field(0).toString();
        program.frame().caption = rs->field(1).isNull() ? QString() : rs->field(1).toString();
    });
    return values;
}

void ctxOutlookBar1_ItemClick(Program& program, const QString& caption) {
    if (program.frame().cmbequity.isEmpty()) {
        program.prompt().inform(kSelectCompany);
        if (const auto& focus = program.module<AdviceValues>().focusCmbequityname)
            focus();
        return;
    }
    act(program, navAction(caption, fillNavValues(program)));
}

void openProgramPage(Program& program, const QString& caption) {
    act(program, navAction(caption, {}));
}

}  // namespace ostravel
