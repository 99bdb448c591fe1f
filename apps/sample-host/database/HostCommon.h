#pragma once

// The host's `Common` object: single values from the host's database
// (library/HostContract.h). A failed query answers an invalid QVariant; a query without
// rows, or a NULL value, answers an empty string.

#include <QObject>
#include <QVariant>

class HostDatabase;

class HostCommon : public QObject
{
    Q_OBJECT
public:
    explicit HostCommon(const HostDatabase &database, QObject *parent = nullptr);

    // The first value of the first row.
    Q_INVOKABLE QVariant ExecuteScaler(const QString &sql) const;
    // The field `fieldName` of the first row; invalid when the query has no such field.
    Q_INVOKABLE QVariant ExecuteSelectField(const QString &sql, const QString &fieldName) const;

private:
    QVariant firstRowValue(const QString &sql, const QString &fieldName) const;

    const HostDatabase &m_database;
};
