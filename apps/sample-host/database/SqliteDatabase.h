#pragma once

// The sample host's own database, an SQLite file. Everything particular to SQLite lives
// here: the connection, the tables, and the translation of the library's SQL dialect.
// Another database plugs into the host through HostDatabase with its own driver and,
// when it speaks "SELECT TOP n" itself, no translator.

#include "HostDatabase.h"

#include <QString>
#include <memory>

// "SELECT [DISTINCT] TOP n rest" becomes "SELECT [DISTINCT] rest LIMIT n"; any other
// statement is returned as it is.
QString TranslateTopToLimit(const QString &sql);

enum class NewDatabase { SampleRows, Empty };

// Opens the database file, creating it with its tables (and, for SampleRows, the sample
// dealer's data) when it does not exist yet. Null when it cannot be opened or created.
std::unique_ptr<HostDatabase> OpenSqliteDatabase(const QString &path, const QString &connectionName,
                                                 NewDatabase content = NewDatabase::SampleRows);
