// The program's folder on first start: its sub-folders and the help texts that ship inside the
// program are put in place when missing, never over a file the user has.
#pragma once

#include <QString>

namespace ostravel {

// Creates database/, history/daily/ and help/ under the program's folder and writes the help
// files that are missing. Returns an error text, empty when all is in place.
QString prepareProgramFolder();

}  // namespace ostravel
