// The store of a headless run opened as the program opens it at start.
#pragma once

namespace ostravel {
class Program;
}

namespace ostravel::cli {

// False, with the reason on stderr, when the store can't be opened.
bool connectStore(Program& program);

}  // namespace ostravel::cli
