#include "store/durablefile.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "runtime/vberror.h"
#include "store/dberrors.h"

namespace ostravel {

namespace {

[[noreturn]] void diskError(const QString& what, const QString& path) {
    raise(dberr::DiskError, QStringLiteral("Disk or network error. (") + what + QStringLiteral(" '") + path +
                                QStringLiteral("': ") + QString::fromLocal8Bit(std::strerror(errno)) +
                                QLatin1Char(')'));
}

void syncPath(const QString& path, int flags) {
    const QByteArray name = QFile::encodeName(path);
    const int descriptor = ::open(name.constData(), flags | O_CLOEXEC);
    if (descriptor < 0)
        diskError(QStringLiteral("open"), path);
    const int result = ::fsync(descriptor);
    const int savedErrno = errno;
    ::close(descriptor);
    if (result != 0) {
        errno = savedErrno;
        diskError(QStringLiteral("fsync"), path);
    }
}

QString folderOf(const QString& path) {
    return QFileInfo(path).absolutePath();
}

}  // namespace

void syncFile(const QString& path) {
    syncPath(path, O_RDONLY);
}

void syncFolder(const QString& folder) {
    syncPath(folder, O_RDONLY | O_DIRECTORY);
}

bool renameNoReplace(const QString& from, const QString& to) {
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0) {
        syncFolder(folderOf(to));
        return true;
    }
    if (errno == EEXIST)
        return false;
    if (errno != EINVAL && errno != ENOSYS)
        diskError(QStringLiteral("rename"), from);
    // A file system without the flag: a second name made in one step, then the old one dropped.
    if (::link(source.constData(), target.constData()) != 0) {
        if (errno == EEXIST)
            return false;
        diskError(QStringLiteral("link"), from);
    }
    ::unlink(source.constData());
    syncFolder(folderOf(to));
    return true;
}

void replaceFile(const QString& from, const QString& to) {
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    if (::rename(source.constData(), target.constData()) != 0)
        diskError(QStringLiteral("rename"), from);
    syncFolder(folderOf(to));
}

void removeFile(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    if (::unlink(name.constData()) != 0) {
        if (errno == ENOENT)
            return;
        diskError(QStringLiteral("remove"), path);
    }
    syncFolder(folderOf(path));
}

}  // namespace ostravel
