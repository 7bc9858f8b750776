// App.Path: the program's folder, under which lie all of its files.
#pragma once

#include <QString>

namespace ostravel {

// The folder of the executable when it is writable (a portable install), else
// ~/.local/share/Ostravel. Tests and ostravel-cli point it elsewhere with setAppPath.
QString appPath();
void setAppPath(const QString& folder);

// A path below the program's folder; backslashes in the program's own spellings become "/",
// and "history/daily" reaches the same folder whatever its case in the call.
QString appFile(const QString& relative);

}  // namespace ostravel
