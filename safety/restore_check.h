// Whether an unpacked backup can take the place of the live database.
#pragma once

#include <QString>

namespace ostravel {

// Raises DatabaseUnusable (3343, "Unrecognized database format ...") unless the file at `path`
// is a sound SQLite database that holds every table of the program with all of its columns.
void checkRestoredDatabase(const QString& path);

}  // namespace ostravel
