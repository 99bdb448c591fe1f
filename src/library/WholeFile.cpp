#include "library/WholeFile.h"

#include <QFile>
#include <QSaveFile>

#ifdef Q_OS_UNIX
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

bool writeAll(QFileDevice &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size() && flushToDisk(file);
}

// Qt 6.4's QSaveFile::commit() flushes without looking at the result, so a document
// smaller than its write buffer would be renamed into place short on a full disk: the
// flush and the size are checked here before commit is allowed to rename.
bool commitChecked(QSaveFile &file, const QByteArray &bytes)
{
    if (!writeAll(file, bytes) || file.size() != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

// Rewrites an existing file through its own handle. The file first grows to the new
// size, so that a full disk fails while the old content is still untouched; a failure
// after that puts the old bytes back.
bool overwriteInPlace(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.exists() || !file.open(QIODevice::ReadWrite))
        return false;
    const QByteArray old = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return false;
    if (bytes.size() > old.size()) {
        const QByteArray room(bytes.size() - old.size(), '\0');
        if (!file.seek(old.size()) || !writeAll(file, room)) {
            file.resize(old.size());
            return false;
        }
    }
    if (file.seek(0) && writeAll(file, bytes) && file.resize(bytes.size()) && flushToDisk(file))
        return true;
    // Best effort: the room for the old bytes is still there, so this normally succeeds.
    file.seek(0);
    writeAll(file, old);
    file.resize(old.size());
    flushToDisk(file);
    return false;
}

} // namespace

bool WriteWholeFile(const QString &path, const QByteArray &bytes)
{
    if (path.isEmpty())
        return false;
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    if (file.open(QIODevice::WriteOnly))
        return commitChecked(file, bytes);
    return overwriteInPlace(path, bytes);
}

} // namespace bravcpl5
