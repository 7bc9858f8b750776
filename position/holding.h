// The holding of the main frame's selection, as every statement of the position screens finds it.
#pragma once

#include <QString>
#include <memory>

namespace ostravel {

class Program;
class Recordset;

// "where EquitySymbol='<symbol>' And portname = '<portfolio>'", the symbol without ".NS" and the
// quotes of both doubled. Written straight after the table's bracket, as the program's
// statements are.
QString holdingCondition(Program& program);

// select * from [equity]where ... : the holding row, or no row when it isn't in the portfolio.
std::shared_ptr<Recordset> openHolding(Program& program);

// The recordset a module-level variable holds; one never set raises 91.
Recordset& currentRow(const std::shared_ptr<Recordset>& recordset);

}  // namespace ostravel
