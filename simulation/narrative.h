// The narrative of a run: what the rule's investor made against the buy-and-hold investor, in
// the program's own words and spellings, from the figures equitymanager holds after the run.
#pragma once

#include <QString>
#include <functional>

namespace ostravel {

class Program;
class VbError;

// Six pieces with an empty line between each two, line ends CR LF; `name` is the company's
// name. A piece is one statement: one whose figure is no number is left out, and its error
// goes to `failed`.
QString narrative(Program& program, const QString& name, const std::function<void(const VbError&)>& failed);

}  // namespace ostravel
