#pragma once

// The host's `BRAVSQL` object: query results as XML documents (library/HostContract.h).
// ExecuteRead answers
//   <Records><Record><Field1>value</Field1>...</Record>...</Records>
// with one child element per column, named by the column, and GetRecordValue2 reads one
// field back out of one <Record> element's XML text.

#include <QObject>
#include <QVariant>

class HostDatabase;

class HostBravSql : public QObject
{
    Q_OBJECT
public:
    explicit HostBravSql(const HostDatabase &database, QObject *parent = nullptr);

    // The rows of the query; an empty text when it failed.
    Q_INVOKABLE QString ExecuteRead(const QString &sql) const;
    // The field of the record; invalid when the record is not XML or has no such field.
    Q_INVOKABLE QVariant GetRecordValue2(const QString &record, const QString &fieldName) const;
    // Each call finishes its own query, so nothing is held between calls to release.
    Q_INVOKABLE void PreTerminate() {}

private:
    const HostDatabase &m_database;
};
