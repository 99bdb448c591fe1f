#pragma once

// A host service object for tests, answering the host contract (library/HostContract.h)
// over a temporary settings tree:
//   <root>/system/Reports   Options.SystemFileLocation("Reports")
//   <root>/user/Reports     Options.UserFileLocation("Reports")
// The settings profile is "Test". Common and BRAVSQL are whatever the test plugs in
// (none by default).

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>

namespace bravcpl5::test {

class TestOptions : public QObject
{
    Q_OBJECT
public:
    QString systemFolder;
    QString userFolder;
    QString profile = QStringLiteral("Test");

    Q_INVOKABLE QString FixSettingsKey(const QString &key) const;
    Q_INVOKABLE QString SystemFileLocation(const QString &kind) const;
    Q_INVOKABLE QString UserFileLocation(const QString &kind) const;
};

class TestHost : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *Options READ options)
    Q_PROPERTY(QObject *Common READ common)
    Q_PROPERTY(QObject *BRAVSQL READ bravSql)

public:
    TestHost();

    QObject *options() { return &m_options; }
    QObject *common() const { return m_common; }
    QObject *bravSql() const { return m_bravSql; }
    void setCommon(QObject *common) { m_common = common; }
    void setBravSql(QObject *database) { m_bravSql = database; }

    TestOptions &testOptions() { return m_options; }
    // The two "Reports" folders (created); a folder can be made unavailable by setting
    // the matching TestOptions field to "".
    QString systemFolder() const { return m_options.systemFolder; }
    QString userFolder() const { return m_options.userFolder; }
    // Writes `content` to a file in the system or user folder and returns its path.
    QString writeSystemFile(const QString &name, const QByteArray &content) const;
    QString writeUserFile(const QString &name, const QByteArray &content) const;
    QString root() const { return m_root.path(); }

private:
    QTemporaryDir m_root;
    TestOptions m_options;
    QPointer<QObject> m_common;
    QPointer<QObject> m_bravSql;
};

// Writes a file (creating its folder); returns its path.
QString writeFile(const QString &path, const QByteArray &content);
QByteArray readFile(const QString &path);

} // namespace bravcpl5::test
