#include "SampleHost.h"

#include "database/HostBravSql.h"
#include "database/HostCommon.h"
#include "database/SqliteDatabase.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

SampleOptions::SampleOptions(QString dataFolder, QObject *parent)
    : QObject(parent), m_dataFolder(std::move(dataFolder))
{}

QString SampleOptions::FixSettingsKey(const QString &key) const
{
    QString fixed = key;
    return fixed.replace(QLatin1String("<1>"), QLatin1String("Sample"));
}

QString SampleOptions::SystemFileLocation(const QString &kind) const
{
    return QDir(m_dataFolder).filePath(QStringLiteral("System/") + kind);
}

QString SampleOptions::UserFileLocation(const QString &kind) const
{
    return QDir(m_dataFolder).filePath(QStringLiteral("User/") + kind);
}

SampleHost::SampleHost(const QString &dataFolder, QObject *parent)
    : QObject(parent),
      m_dataFolder(dataFolder),
      m_options(dataFolder),
      m_database(OpenSqliteDatabase(QDir(dataFolder).filePath(QStringLiteral("Sample.sqlite")),
                                    QStringLiteral("sample-host-%1").arg(quintptr(this))))
{
    if (m_database) {
        m_common = std::make_unique<HostCommon>(*m_database);
        m_bravSql = std::make_unique<HostBravSql>(*m_database);
    }
}

SampleHost::~SampleHost() = default;

QObject *SampleHost::common() const { return m_common.get(); }
QObject *SampleHost::bravSql() const { return m_bravSql.get(); }

void InstallSampleData(const QString &dataFolder)
{
    const QString prefix = QStringLiteral(":/sample-data/");
    QDirIterator it(prefix, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString target = QDir(dataFolder).filePath(source.mid(prefix.size()));
        if (QFileInfo::exists(target))
            continue;
        QDir().mkpath(QFileInfo(target).absolutePath());
        if (QFile::copy(source, target))
            QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                                              | QFile::ReadOther);
    }
    QDir().mkpath(QDir(dataFolder).filePath(QStringLiteral("System/Reports")));
    QDir().mkpath(QDir(dataFolder).filePath(QStringLiteral("User/Reports")));
}
