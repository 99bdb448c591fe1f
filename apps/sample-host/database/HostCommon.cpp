#include "HostCommon.h"

#include "HostDatabase.h"

#include <QSqlRecord>

HostCommon::HostCommon(const HostDatabase &database, QObject *parent)
    : QObject(parent), m_database(database)
{}

QVariant HostCommon::ExecuteScaler(const QString &sql) const { return firstRowValue(sql, {}); }

QVariant HostCommon::ExecuteSelectField(const QString &sql, const QString &fieldName) const
{
    return firstRowValue(sql, fieldName);
}

// The first column when no field is named.
QVariant HostCommon::firstRowValue(const QString &sql, const QString &fieldName) const
{
    QSqlQuery query;
    if (!m_database.run(sql, query))
        return {};
    const int column = fieldName.isEmpty() ? 0 : query.record().indexOf(fieldName);
    if (column < 0 || column >= query.record().count())
        return {};
    if (!query.next() || query.isNull(column))
        return QString(); // an answer, but an empty one
    return query.value(column).toString();
}
