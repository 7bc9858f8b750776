// The drives and folders that the backup and restore screens let the user walk through: the
// mounted volumes stand for drives, and the system's root for the drive "c:".
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace ostravel {

class Prompt;

// The drive the screens start on, and fall back to when another can't be read.
inline const QString kStartDrive = QStringLiteral("/");

// The root folders of the mounted volumes that can be read, the start drive first.
QStringList driveList();

// The folder a drive opens on: the current folder when it lies on that drive, else the
// drive's root; nothing when the drive can't be read.
std::optional<QString> driveFolder(const QString& drive);

// The folder exists and its entries can be listed.
bool folderAccessible(const QString& folder);

// Drive1_Change of the screens: the folder the folder list goes to. A drive that can't be read
// is told to the user and `drive` returns to the start drive.
QString openDrive(Prompt& prompt, QString& drive);

}  // namespace ostravel
