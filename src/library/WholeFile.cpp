#include "library/WholeFile.h"

#include <QFile>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace bravcpl5 {

namespace {

// Pushes Qt's buffer to the system and the system's cache to the disk. A network drive or
// a full disk may only report its failure here.
bool flushToDisk(QFileDevice &file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0;
#else
    return true;
#endif
}

// What the system said of the last failure on the file: the C library's words for the
// system call that failed (cleared before each save), else Qt's.
QString systemError(const QFileDevice &file)
{
#ifdef Q_OS_UNIX
    if (errno != 0)
        return QString::fromLocal8Bit(std::strerror(errno));
#endif
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    return QStringLiteral("the system refused the file");
}

bool writeAll(QFileDevice &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size() && flushToDisk(file);
}

// Qt 6.4's QSaveFile::commit() flushes without looking at the result, so a document
// smaller than its write buffer would be renamed into place short on a full disk: the
// flush and the size are checked here before commit is allowed to rename.
bool commitChecked(QSaveFile &file, const QByteArray &bytes, QString &why)
{
    if (!writeAll(file, bytes) || file.size() != bytes.size()) {
        why = systemError(file);
        file.cancelWriting();
        return false;
    }
    if (file.commit())
        return true;
    why = systemError(file);
    return false;
}

// Makes room for `size` bytes before anything is overwritten, so that a full disk fails
// while the old content is untouched. Where the system can reserve blocks without writing
// (posix_fallocate) nothing else happens; otherwise zeros are appended, and taken off again
// when they do not all fit.
bool reserve(QFile &file, qint64 size, QString &why)
{
    const qint64 old = file.size();
    if (size <= old)
        return true;
#ifdef Q_OS_UNIX
    const int reserved = ::posix_fallocate(file.handle(), 0, size);
    if (reserved == 0)
        return true;
    if (reserved != EOPNOTSUPP && reserved != EINVAL) {
        why = QString::fromLocal8Bit(std::strerror(reserved));
        return false;
    }
#endif
    if (file.seek(old) && writeAll(file, QByteArray(size - old, '\0')))
        return true;
    why = systemError(file);
    file.resize(old);
    return false;
}

// Rewrites an existing file through its own, unbuffered handle: the room is reserved
// first, then the new bytes are written and the file cut to exactly their length. A
// failure after the room was reserved puts the old bytes back and the old length.
bool overwriteInPlace(const QString &path, const QByteArray &bytes, QString &why)
{
    QFile file(path);
    if (!file.exists() || !file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        why = systemError(file);
        return false;
    }
    const QByteArray old = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        why = systemError(file);
        return false;
    }
    if (!reserve(file, bytes.size(), why))
        return false;
    if (file.seek(0) && writeAll(file, bytes) && file.resize(bytes.size()) && flushToDisk(file)
        && file.size() == bytes.size())
        return true;
    why = systemError(file);
    // Best effort: the room for the old bytes is still there, so this normally succeeds.
    file.seek(0);
    writeAll(file, old);
    file.resize(old.size());
    flushToDisk(file);
    return false;
}

} // namespace

bool WriteWholeFile(const QString &path, const QByteArray &bytes, QString *why)
{
    QString reason = QStringLiteral("no file was named");
    bool written = false;
    if (!path.isEmpty()) {
#ifdef Q_OS_UNIX
        errno = 0;
#endif
        QSaveFile file(path);
        file.setDirectWriteFallback(false);
        if (file.open(QIODevice::WriteOnly)) {
            written = commitChecked(file, bytes, reason);
        } else {
            written = overwriteInPlace(path, bytes, reason);
        }
    }
    if (!written && why)
        *why = reason;
    return written;
}

} // namespace bravcpl5
