// Whole files in and out for the backup: read at once, and written through a temporary file
// beside the target that takes its place only when complete, so no partial file is left.
#pragma once

#include <QByteArray>
#include <QString>

namespace ostravel {

namespace err {
constexpr int DiskFull = 61;
constexpr int DiskNotReady = 71;
}  // namespace err

// The file's length can be had: it exists and is a file.
bool fileExists(const QString& path);

// Raises a run-time error with `source` when the file can't be read: 53 when it is missing,
// 70 when it may not be read, 75 otherwise.
QByteArray readWholeFile(const QString& path, const QString& source);

// Puts `data` in place of the file at `path`, replacing any file there. Raises a run-time error
// with `source` when it fails, and leaves the target as it was: 76 when the folder is missing,
// 70 when writing is denied, 61 when the disk is full, 71 when the device is not ready, 75
// otherwise.
void replaceFile(const QString& path, const QByteArray& data, const QString& source);

}  // namespace ostravel
