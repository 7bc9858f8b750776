// The openers of the screens that logic asks for by name (see app/screens.h).
#pragma once

namespace ostravel {

class MDIForm1View;
class Program;

void registerScreenOpeners(MDIForm1View& frame, Program& program);

}  // namespace ostravel
