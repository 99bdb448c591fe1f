#pragma once

// A test host whose Common and BRAVSQL answer from a real SQLite database (the sample
// host's own database code) in the host's temporary folder.

#include "filters/FilterDefinitions.h"
#include "support/QtPrinters.h"
#include "support/TestHost.h"

#include "database/HostBravSql.h"
#include "database/HostCommon.h"
#include "database/SqliteDatabase.h"

#include <QDir>
#include <QSqlQuery>
#include <QStringList>
#include <memory>

namespace bravcpl5::test {

class DatabaseHost : public TestHost
{
public:
    explicit DatabaseHost(NewDatabase content = NewDatabase::SampleRows)
        : m_database(OpenSqliteDatabase(QDir(root()).filePath(QStringLiteral("Sample.sqlite")),
                                        QStringLiteral("test-%1").arg(quintptr(this)), content))
    {
        if (!m_database)
            return;
        m_common = std::make_unique<HostCommon>(*m_database);
        m_bravSql = std::make_unique<HostBravSql>(*m_database);
        setCommon(m_common.get());
        setBravSql(m_bravSql.get());
    }

    const HostDatabase *database() const { return m_database.get(); }
    HostBravSql *hostBravSql() const { return m_bravSql.get(); }

    // The first column of a statement run directly on the database; {"failed"} when it fails.
    QStringList column(const QString &sql) const
    {
        QSqlQuery query;
        if (!m_database || !m_database->run(sql, query))
            return {QStringLiteral("failed")};
        QStringList values;
        while (query.next())
            values.append(query.value(0).toString());
        return values;
    }

private:
    std::unique_ptr<HostDatabase> m_database; // first: outlives its users
    std::unique_ptr<HostCommon> m_common;
    std::unique_ptr<HostBravSql> m_bravSql;
};

// The captions of a value list, to compare with a query's column.
inline QStringList captions(const QList<FilterChoice> &choices)
{
    QStringList list;
    for (const FilterChoice &choice : choices)
        list.append(choice.caption);
    return list;
}

} // namespace bravcpl5::test
