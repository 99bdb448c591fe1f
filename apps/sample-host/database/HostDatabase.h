#pragma once

// A database connection of the host, through Qt SQL, with the translation of the SQL
// dialect that the library sends ("SELECT TOP n ...") into the database's own. The host's
// Common and BRAVSQL objects work on it without knowing which driver is behind it; a
// database that speaks the library's dialect needs no translator.

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <functional>

class HostDatabase
{
public:
    using Translator = std::function<QString(const QString &sql)>;

    // Takes over the named connection (QSqlDatabase::addDatabase) and removes it when
    // destroyed; the connection must be open.
    HostDatabase(QString connectionName, Translator translator = {});
    ~HostDatabase();
    HostDatabase(const HostDatabase &) = delete;
    HostDatabase &operator=(const HostDatabase &) = delete;

    QString connectionName() const { return m_connectionName; }
    QSqlDatabase connection() const;
    QString translate(const QString &sql) const;

    // Runs a statement forward-only; false when it failed.
    bool run(const QString &sql, QSqlQuery &query) const;

private:
    QString m_connectionName;
    Translator m_translator;
};
