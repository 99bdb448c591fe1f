#include "printing/ConfigurationFiles.h"

#include <QDir>
#include <algorithm>
#include <vector>

#ifdef Q_OS_UNIX
#include <QFile>
#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>
#else
#include <QDirIterator>
#endif

namespace bravcpl5 {

namespace {

#ifdef Q_OS_UNIX
// Reads the directory itself: a folder of ten thousand configurations is listed in a few
// milliseconds, where a file status per entry would take many times that. Hidden files
// are left out, as a folder listing leaves them out.
QStringList configurationFileNames(const QString &folder)
{
    QStringList names;
    DIR *dir = opendir(QFile::encodeName(folder).constData());
    if (!dir)
        return names;
    while (const dirent *entry = readdir(dir)) {
        const char *name = entry->d_name;
        const size_t length = strlen(name);
        if (name[0] == '.' || length < 5 || strcasecmp(name + length - 4, ".pcx") != 0)
            continue;
        bool regular = entry->d_type == DT_REG;
        if (entry->d_type == DT_UNKNOWN || entry->d_type == DT_LNK) {
            struct stat status {
            };
            regular = fstatat(dirfd(dir), name, &status, 0) == 0 && S_ISREG(status.st_mode);
        }
        if (regular)
            names.append(QFile::decodeName(name));
    }
    closedir(dir);
    return names;
}
#else
QStringList configurationFileNames(const QString &folder)
{
    QStringList names;
    QDirIterator it(folder, {QStringLiteral("*.pcx")}, QDir::Files);
    while (it.hasNext()) {
        it.next();
        names.append(it.fileName());
    }
    return names;
}
#endif

// Folder listings order names without regard to case.
bool listedBefore(const QString &upperA, const QString &a, const QString &upperB, const QString &b)
{
    return upperA != upperB ? upperA < upperB : a < b;
}

constexpr qsizetype extensionLength = 4; // ".pcx"

} // namespace

QStringList ListConfigurationFiles(const QString &folder)
{
    if (folder.isEmpty())
        return {};
    QStringList names = configurationFileNames(folder);
    // Upper-case keys made once, so that sorting compares plain strings.
    std::vector<std::pair<QString, QString>> keyed;
    keyed.reserve(size_t(names.size()));
    for (QString &name : names)
        keyed.emplace_back(name.toUpper(), std::move(name));
    std::sort(keyed.begin(), keyed.end(), [](const auto &a, const auto &b) {
        return listedBefore(a.first, a.second, b.first, b.second);
    });
    for (qsizetype i = 0; i < names.size(); ++i)
        names[i] = std::move(keyed[size_t(i)].second);
    return names;
}

QString FindConfigurationFile(const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return QString();
    // Only the matches need ordering, so the folder is scanned rather than sorted.
    QString first, firstUpper;
    for (const QString &file : configurationFileNames(folder)) {
        if (QStringView(file).chopped(extensionLength).compare(name, Qt::CaseInsensitive) != 0)
            continue;
        const QString upper = file.toUpper();
        if (first.isEmpty() || listedBefore(upper, file, firstUpper, first)) {
            first = file;
            firstUpper = upper;
        }
    }
    return first.isEmpty() ? QString() : ConfigurationPath(folder, first);
}

QString ConfigurationName(QString fileName)
{
    fileName.chop(extensionLength);
    return fileName;
}

QString ConfigurationPath(const QString &folder, const QString &fileName)
{
    return QDir(folder).path() + QLatin1Char('/') + fileName;
}

bool HasFolderPart(const QString &nameOrFile)
{
    return QDir::fromNativeSeparators(nameOrFile).contains(QLatin1Char('/'));
}

} // namespace bravcpl5
