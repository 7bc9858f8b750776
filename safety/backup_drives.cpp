#include "safety/backup_drives.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <algorithm>

#include "runtime/prompt.h"

namespace ostravel {

QStringList driveList() {
    QStringList drives{kStartDrive};
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        // Single files mounted into the tree are no drives.
        if (volume.isValid() && volume.isReady() && QFileInfo(root).isDir() && !drives.contains(root))
            drives << root;
    }
    std::sort(drives.begin() + 1, drives.end());
    return drives;
}

bool folderAccessible(const QString& folder) {
    const QFileInfo info(folder);
    return info.isDir() && info.isReadable() && info.isExecutable();
}

std::optional<QString> driveFolder(const QString& drive) {
    if (!folderAccessible(drive))
        return std::nullopt;
    const QString root = QDir(drive).absolutePath();
    const QString current = QDir::currentPath();
    if (QStorageInfo(current).rootPath() == root && folderAccessible(current))
        return current;
    return root;
}

QString openDrive(Prompt& prompt, QString& drive) {
    if (const std::optional<QString> folder = driveFolder(drive))
        return *folder;
    prompt.message(QStringLiteral("Drive Cannot be Accessed ..."), Buttons::OK, Icon::None,
                   QStringLiteral("Drive not Accessed ..."));
    drive = kStartDrive;
    return driveFolder(kStartDrive).value_or(kStartDrive);
}

}  // namespace ostravel
