#include "runtime/apppath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace ostravel {

namespace {

QString& overridePath() {
    static QString path;
    return path;
}

QString defaultAppPath() {
    const QString exeDir = QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
    if (!exeDir.isEmpty() && QFileInfo(exeDir).isWritable())
        return exeDir;
    return QDir::homePath() + QStringLiteral("/.local/share/Ostravel");
}

}  // namespace

QString appPath() {
    if (overridePath().isEmpty())
        overridePath() = defaultAppPath();
    return overridePath();
}

void setAppPath(const QString& folder) {
    overridePath() = QDir::cleanPath(folder);
}

QString appFile(const QString& relative) {
    QString rel = relative;
    rel.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (rel.startsWith(QLatin1Char('/'))) rel.remove(0, 1);
    // The program spells its history folder both "history/Daily" and "history/daily".
    if (rel.startsWith(QLatin1String("history/"), Qt::CaseInsensitive)) {
        rel.replace(0, 8, QStringLiteral("history/"));
        if (rel.mid(8).startsWith(QLatin1String("daily"), Qt::CaseInsensitive))
            rel.replace(8, 5, QStringLiteral("daily"));
    }
    return QDir::cleanPath(appPath() + QLatin1Char('/') + rel);
}

}  // namespace ostravel
