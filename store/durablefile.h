// File steps that survive a crash: data forced to the disk, and names replaced in one step.
#pragma once

#include <QString>

namespace ostravel {

// Each raises 3043 (disk error) when the system refuses.
void syncFile(const QString& path);
void syncFolder(const QString& folder);
// Gives `from` the name `to` unless `to` exists; false when it does.
bool renameNoReplace(const QString& from, const QString& to);
// Puts `from` in the place of `to` in one step, and makes the new name durable.
void replaceFile(const QString& from, const QString& to);
// Removes the file, if it is there, and makes its absence durable.
void removeFile(const QString& path);

}  // namespace ostravel
