#include "safety/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include "runtime/vberror.h"

namespace ostravel {

namespace {

[[noreturn]] void raiseFromErrno(int error, bool reading, const QString& source) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            if (reading)
                raise(err::FileNotFound, {}, source);
            raise(err::PathNotFound, {}, source);
        case EACCES:
        case EPERM:
        case EROFS:
            raise(err::PermissionDenied, {}, source);
        case ENOSPC:
        case EDQUOT:
            raise(err::DiskFull, QStringLiteral("Disk full"), source);
        case ENXIO:
        case ENODEV:
        case ENOMEDIUM:
        case EIO:
            raise(err::DiskNotReady, QStringLiteral("Disk not ready"), source);
        default:
            raise(err::PathFileAccess, {}, source);
    }
}

// Closes the descriptor when the scope ends, whatever way it ends.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return m_fd; }
    // Closes now, reporting the error a late write may only show here.
    int close() {
        const int result = ::close(m_fd);
        m_fd = -1;
        return result;
    }

private:
    int m_fd;
};

bool writeAll(int fd, const char* data, qsizetype size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, static_cast<std::size_t>(size));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

mode_t newFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

bool fileExists(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && info.isFile();
}

QByteArray readWholeFile(const QString& path, const QString& source) {
    Descriptor fd(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    if (fd.get() < 0)
        raiseFromErrno(errno, true, source);
    struct stat status {};
    if (::fstat(fd.get(), &status) != 0)
        raiseFromErrno(errno, true, source);
    if (!S_ISREG(status.st_mode))
        raise(err::PathFileAccess, {}, source);

    QByteArray data(static_cast<qsizetype>(status.st_size), Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < data.size()) {
        const ssize_t got = ::read(fd.get(), data.data() + filled, static_cast<std::size_t>(data.size() - filled));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            raiseFromErrno(errno, true, source);
        if (got == 0)
            break;  // the file shrank while being read
        filled += got;
    }
    data.resize(filled);
    return data;
}

void replaceFile(const QString& path, const QByteArray& data, const QString& source) {
    const QFileInfo target(path);
    QByteArray temporary =
        QFile::encodeName(target.absolutePath() + QLatin1String("/.") + target.fileName() + QLatin1String(".XXXXXX"));
    Descriptor fd(::mkstemp(temporary.data()));
    if (fd.get() < 0)
        raiseFromErrno(errno, false, source);

    int error = 0;
    if (::fchmod(fd.get(), newFileMode()) != 0 || !writeAll(fd.get(), data.constData(), data.size()) ||
        ::fsync(fd.get()) != 0 || fd.close() != 0 ||
        ::rename(temporary.constData(), QFile::encodeName(target.absoluteFilePath()).constData()) != 0)
        error = errno;
    if (error != 0) {
        ::unlink(temporary.constData());
        raiseFromErrno(error, false, source);
    }
}

}  // namespace ostravel
