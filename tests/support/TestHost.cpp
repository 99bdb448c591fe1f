#include "support/TestHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace bravcpl5::test {

QString TestOptions::FixSettingsKey(const QString &key) const
{
    QString fixed = key;
    return fixed.replace(QLatin1String("<1>"), profile);
}

QString TestOptions::SystemFileLocation(const QString &kind) const
{
    return kind == QLatin1String("Reports") ? systemFolder : QString();
}

QString TestOptions::UserFileLocation(const QString &kind) const
{
    return kind == QLatin1String("Reports") ? userFolder : QString();
}

TestHost::TestHost()
{
    m_options.systemFolder = m_root.filePath(QStringLiteral("system/Reports"));
    m_options.userFolder = m_root.filePath(QStringLiteral("user/Reports"));
    QDir().mkpath(m_options.systemFolder);
    QDir().mkpath(m_options.userFolder);
}

QString TestHost::writeSystemFile(const QString &name, const QByteArray &content) const
{
    return writeFile(QDir(m_options.systemFolder).filePath(name), content);
}

QString TestHost::writeUserFile(const QString &name, const QByteArray &content) const
{
    return writeFile(QDir(m_options.userFolder).filePath(name), content);
}

QString writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(content);
    return path;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace bravcpl5::test
