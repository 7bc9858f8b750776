#include "position/holding.h"

#include "context/program.h"
#include "runtime/vberror.h"
#include "store/sqltext.h"

namespace ostravel {

QString holdingCondition(Program& program) {
    MainFrame& frame = program.frame();
    return QStringLiteral("where EquitySymbol='") + sqlText(frame.equitySymbol()) +
           QStringLiteral("' And portname = '") + sqlText(frame.cmbportfolio.text) + QLatin1Char('\'');
}

std::shared_ptr<Recordset> openHolding(Program& program) {
    return program.store().database().openRecordset(QStringLiteral("select * from [equity]") +
                                                    holdingCondition(program));
}

Recordset& currentRow(const std::shared_ptr<Recordset>& recordset) {
    if (!recordset)
        raise(err::ObjectNotSet);
    return *recordset;
}

}  // namespace ostravel
