#include "context/program_folder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include "runtime/apppath.h"

namespace ostravel {

QString prepareProgramFolder() {
    for (const char* folder : {"database", "history/daily", "help"}) {
        const QString path = appFile(QString::fromLatin1(folder));
        if (!QDir().mkpath(path))
            return QStringLiteral("The folder %1 can't be created.").arg(path);
    }
    QDirIterator it(QStringLiteral(":/help"));
    while (it.hasNext()) {
        const QString resource = it.next();
        const QString target = appFile(QStringLiteral("help/") + it.fileName());
        if (QFile::exists(target))
            continue;
        if (!QFile::copy(resource, target))
            return QStringLiteral("The help file %1 can't be written.").arg(target);
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
    return {};
}

}  // namespace ostravel
