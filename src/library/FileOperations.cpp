#include "library/FileOperations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace bravcpl5 {

PathParts SplitPath(const QString &path)
{
    const QString normal = QDir::fromNativeSeparators(path);
    const qsizetype slash = normal.lastIndexOf(QLatin1Char('/'));
    PathParts parts;
    parts.folder = normal.left(slash + 1);
    const QString file = normal.mid(slash + 1);
    const qsizetype dot = file.lastIndexOf(QLatin1Char('.'));
    parts.name = dot > 0 ? file.left(dot) : file;
    parts.extension = dot > 0 ? file.mid(dot) : QString();
    return parts;
}

QString PathInFolder(const QString &folder, const QString &fileName)
{
    if (folder.endsWith(u'/') || folder.endsWith(u'\\'))
        return folder + fileName;
    return folder + u'/' + fileName;
}

bool FileExists(const QString &path) { return !path.isEmpty() && QFileInfo(path).isFile(); }

// QFile::rename and QFile::copy refuse an existing destination themselves; the check
// first also covers a name that differs only in case on a case-insensitive disk.
bool MoveFile(const QString &from, const QString &to)
{
    return !FileExists(to) && QFile::rename(from, to);
}

bool CopyFile(const QString &from, const QString &to)
{
    return !FileExists(to) && QFile::copy(from, to);
}

bool DeleteFile(const QString &path) { return QFile::remove(path); }

} // namespace bravcpl5
