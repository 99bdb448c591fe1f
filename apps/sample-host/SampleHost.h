#pragma once

// The sample host's service object, answering the library's host contract
// (library/HostContract.h) over the sample settings tree in the user's data folder:
//   <data>/System/Reports   shared settings files
//   <data>/User/Reports     this user's settings files
//   <data>/Sample.sqlite    the dealer's database behind Common and BRAVSQL
// The settings profile is "Sample".

#include <QObject>
#include <QString>
#include <memory>

class HostBravSql;
class HostCommon;
class HostDatabase;

class SampleOptions : public QObject
{
    Q_OBJECT
public:
    explicit SampleOptions(QString dataFolder, QObject *parent = nullptr);

    Q_INVOKABLE QString FixSettingsKey(const QString &key) const;
    Q_INVOKABLE QString SystemFileLocation(const QString &kind) const;
    Q_INVOKABLE QString UserFileLocation(const QString &kind) const;

private:
    QString m_dataFolder;
};

class SampleHost : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *Options READ options CONSTANT)
    Q_PROPERTY(QObject *Common READ common CONSTANT)
    Q_PROPERTY(QObject *BRAVSQL READ bravSql CONSTANT)

public:
    // Opens the database, creating it with the sample data on first run; without it,
    // Common and BRAVSQL are null.
    explicit SampleHost(const QString &dataFolder, QObject *parent = nullptr);
    ~SampleHost() override;

    QObject *options() { return &m_options; }
    QObject *common() const;
    QObject *bravSql() const;
    QString dataFolder() const { return m_dataFolder; }

private:
    QString m_dataFolder;
    SampleOptions m_options;
    std::unique_ptr<HostDatabase> m_database; // declared first: outlives its users
    std::unique_ptr<HostCommon> m_common;
    std::unique_ptr<HostBravSql> m_bravSql;
};

// Copies the embedded sample files into `dataFolder`, leaving files that exist alone.
void InstallSampleData(const QString &dataFolder);
