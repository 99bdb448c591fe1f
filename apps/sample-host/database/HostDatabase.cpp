#include "HostDatabase.h"

HostDatabase::HostDatabase(QString connectionName, Translator translator)
    : m_connectionName(std::move(connectionName)), m_translator(std::move(translator))
{}

HostDatabase::~HostDatabase()
{
    connection().close();
    QSqlDatabase::removeDatabase(m_connectionName);
}

QSqlDatabase HostDatabase::connection() const
{
    return QSqlDatabase::database(m_connectionName, false);
}

QString HostDatabase::translate(const QString &sql) const
{
    return m_translator ? m_translator(sql) : sql;
}

bool HostDatabase::run(const QString &sql, QSqlQuery &query) const
{
    query = QSqlQuery(connection());
    query.setForwardOnly(true);
    return query.exec(translate(sql));
}
