// The quick start screen's one setting: whether it shows at start-up (users.QUICK).
#pragma once

namespace ostravel {

class Program;

bool quickWantedAtStart(Program& program);
// Check1: writes users.QUICK as 1 or 0.
void setQuickAtStart(Program& program, bool show);

}  // namespace ostravel
