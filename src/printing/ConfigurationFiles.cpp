#include "printing/ConfigurationFiles.h"

#include <QDir>
#include <QDirIterator>
#include <algorithm>

namespace bravcpl5 {

QStringList ListConfigurationFiles(const QString &folder)
{
    QStringList names;
    if (folder.isEmpty())
        return names;
    // The iterator takes each entry's type from the directory itself, with no file status
    // per entry, which keeps a folder of thousands of configurations quick to list.
    QDirIterator it(folder, {QStringLiteral("*.pcx")}, QDir::Files);
    while (it.hasNext()) {
        it.next();
        names.append(it.fileName());
    }
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    const QString prefix = QDir(folder).path() + QLatin1Char('/');
    for (QString &name : names)
        name.prepend(prefix);
    return names;
}

QString ConfigurationName(const QString &path)
{
    const QString file = path.mid(QDir::fromNativeSeparators(path).lastIndexOf(QLatin1Char('/')) + 1);
    const qsizetype dot = file.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? file : file.left(dot);
}

bool HasFolderPart(const QString &nameOrFile)
{
    return QDir::fromNativeSeparators(nameOrFile).contains(QLatin1Char('/'));
}

} // namespace bravcpl5
