#pragma once

// The smallest host the library needs from a shell: the shared and the user's settings
// folders and the settings profile, answered through the host contract's Options object.

#include <QObject>
#include <QString>

class ToolOptions : public QObject
{
    Q_OBJECT
public:
    QString systemFolder;
    QString userFolder;
    QString profile;

    Q_INVOKABLE QString FixSettingsKey(const QString &key) const;
    Q_INVOKABLE QString SystemFileLocation(const QString &kind) const;
    Q_INVOKABLE QString UserFileLocation(const QString &kind) const;
};

class ToolHost : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *Options READ options)
public:
    QObject *options() { return &m_options; }
    ToolOptions &settings() { return m_options; }

private:
    ToolOptions m_options;
};
