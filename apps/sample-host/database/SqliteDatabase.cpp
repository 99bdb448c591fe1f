#include "SqliteDatabase.h"

#include "SampleData.h"

#include <QFile>
#include <QRegularExpression>
#include <QSqlDatabase>

namespace {

const char *const schema[] = {
    "CREATE TABLE Company (CompanyID INTEGER PRIMARY KEY, CompanyName TEXT NOT NULL,"
    " BillToAddress TEXT, BillToCity TEXT, BillToState TEXT, BillToZip TEXT, Phone TEXT)",
    "CREATE TABLE Manufacturers (ManufacturerID INTEGER PRIMARY KEY,"
    " Manufacturer TEXT NOT NULL, City TEXT, State TEXT)",
    "CREATE INDEX ManufacturersByName ON Manufacturers (Manufacturer)",
    "CREATE TABLE Vendors (VendorID INTEGER PRIMARY KEY, VendorName TEXT NOT NULL,"
    " City TEXT, State TEXT, Phone TEXT)",
    "CREATE INDEX VendorsByName ON Vendors (VendorName)",
    "CREATE TABLE ProductTypes (ProductTypeID INTEGER PRIMARY KEY, ProductType TEXT NOT NULL)",
    "CREATE INDEX ProductTypesByName ON ProductTypes (ProductType)",
    "CREATE TABLE Products (ProductID INTEGER PRIMARY KEY, Product TEXT NOT NULL,"
    " ProductTypeID INTEGER REFERENCES ProductTypes, ManufacturerID INTEGER REFERENCES"
    " Manufacturers, VendorID INTEGER REFERENCES Vendors, ProductSource INTEGER,"
    " ListPrice REAL)",
    "CREATE INDEX ProductsByName ON Products (Product)",
};

// In one transaction: a new database should not wait for a disk write per table.
bool createTables(const HostDatabase &database)
{
    QSqlDatabase connection = database.connection();
    if (!connection.transaction())
        return false;
    QSqlQuery query;
    for (const char *statement : schema) {
        if (!database.run(QString::fromLatin1(statement), query)) {
            connection.rollback();
            return false;
        }
    }
    return connection.commit();
}

} // namespace

QString TranslateTopToLimit(const QString &sql)
{
    static const QRegularExpression top(
        QStringLiteral(R"(^(\s*SELECT\s+(?:DISTINCT\s+)?)TOP\s+(\d+)\s+(.*?)\s*;?\s*$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = top.match(sql);
    if (!match.hasMatch())
        return sql;
    return match.captured(1) + match.captured(3) + QStringLiteral(" LIMIT ") + match.captured(2);
}

std::unique_ptr<HostDatabase> OpenSqliteDatabase(const QString &path, const QString &connectionName,
                                                 NewDatabase content)
{
    const bool isNew = !QFile::exists(path);
    {
        QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"),
                                                            connectionName);
        connection.setDatabaseName(path);
        if (!connection.open()) {
            connection = QSqlDatabase();
            QSqlDatabase::removeDatabase(connectionName);
            return nullptr;
        }
    }
    auto database = std::make_unique<HostDatabase>(connectionName, TranslateTopToLimit);
    if (isNew) {
        const bool created = createTables(*database)
                             && (content == NewDatabase::Empty || FillSampleData(*database));
        if (!created) {
            database.reset();
            QFile::remove(path);
        }
    }
    return database;
}
