#pragma once

// The sample host's service object, answering the library's host contract
// (library/HostContract.h) over the sample settings tree in the user's data folder:
//   <data>/System/Reports   shared settings files
//   <data>/User/Reports     this user's settings files
// The settings profile is "Sample".

#include <QObject>
#include <QString>

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

public:
    explicit SampleHost(const QString &dataFolder, QObject *parent = nullptr);

    QObject *options() { return &m_options; }
    QString dataFolder() const { return m_dataFolder; }

private:
    QString m_dataFolder;
    SampleOptions m_options;
};

// Copies the embedded sample files into `dataFolder`, leaving files that exist alone.
void InstallSampleData(const QString &dataFolder);
