#pragma once

// What the library asks of the host's service object (the object given to
// Library::Initialize). The library never links against the host: every member below is
// reached by name at run time (library/LateBinding.h), so a host is any QObject that
// answers to these names. It may answer with Q_PROPERTY reads or with public slots /
// Q_INVOKABLE methods; argument and result types convert through QVariant.
//
//   Host (the object given to Initialize)
//     Options     QObject*   property or zero-argument method; required for settings
//     Common      QObject*   property or zero-argument method; required for filter values
//     BRAVSQL     QObject*   property or zero-argument method; may be null (no database)
//
//   Options
//     FixSettingsKey(QString key) -> QString         key with "<1>" replaced by the profile
//     SystemFileLocation(QString kind) -> QString    shared folder for "Reports", or ""
//     UserFileLocation(QString kind) -> QString      the user's folder for "Reports", or ""
//
//   Common
//     ExecuteScaler(QString sql) -> QVariant         first value of the first row
//     ExecuteSelectField(QString sql, QString fieldName) -> QVariant
//                                                    that field of the first row
//
//   BRAVSQL
//     ExecuteRead(QString sql) -> QString            an XML document as text whose rows are
//                                                    the elements "Records/Record"
//     GetRecordValue2(QString record, QString fieldName) -> QVariant
//                                                    record is one Record element as XML text
//     PreTerminate()                                 called once when the library has finished
//                                                    with the object
//
// The SQL the library sends, all of it from the report filters dialog, word for word (the
// dialect has "SELECT TOP n"; a host translates as its database needs):
//
//   BRAVSQL.ExecuteRead, then GetRecordValue2 with the field, for a filter's drop-down list
//     type "manufacturer"  SELECT Manufacturer FROM Manufacturers ORDER BY Manufacturer
//                          field Manufacturer
//     type "producttype"   SELECT ProductType FROM ProductTypes ORDER BY ProductType
//                          field ProductType
//     type "product"       SELECT Product FROM Products ORDER BY Product          field Product
//     type "vendor"        SELECT VendorName FROM Vendors ORDER BY VendorName     field VendorName
//
//   Common.ExecuteSelectField, for a filter value written as a token
//     [companybilltostate] SELECT BillToState FROM Company                        field BillToState
//     [companybilltocity]  SELECT BillToCity FROM Company                         field BillToCity
//     [companybilltozip]   SELECT BillToZip FROM Company                          field BillToZip
//   Common.ExecuteScaler, likewise
//     [1stmanufacturer]    SELECT TOP 1 Manufacturer FROM Manufacturers ORDER BY Manufacturer
//     [1stproducttype]     SELECT TOP 1 ProductType FROM ProductTypes ORDER BY ProductType
//     [1stvendor]          SELECT TOP 1 VendorName FROM Vendors ORDER BY VendorName
//
// (src/filters/FilterChoices.cpp and FilterDefinitions.cpp hold these tables.)
//
// Failures: a host reports a failed call by returning an invalid QVariant from a
// QVariant-returning method (or by throwing, which the library catches). An empty
// answer is a valid QVariant holding an empty string.
//
// Ownership: the library never deletes a host object, nor anything a host member returns;
// it keeps the host pointer only between Initialize and PreTerminate.

#include <QObject>
#include <QString>

namespace bravcpl5::host {

inline constexpr auto reportsKind = "Reports";

QObject *options(QObject *host);
QObject *common(QObject *host);
QObject *database(QObject *host); // BRAVSQL

QString fixSettingsKey(QObject *host, const QString &key);
QString systemFileLocation(QObject *host, const QString &kind = QString::fromLatin1(reportsKind));
QString userFileLocation(QObject *host, const QString &kind = QString::fromLatin1(reportsKind));

} // namespace bravcpl5::host
