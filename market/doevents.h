// DoEvents for the market data's long loops: the main frame shows its caption again, then the
// pending window events run.
#pragma once

namespace ostravel {

class Program;

void DoEvents(Program& program);

}  // namespace ostravel
