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
// Failures: a host reports a failed call by returning an invalid QVariant from a
// QVariant-returning method (or by throwing, which the library catches). An empty
// answer is a valid QVariant holding an empty string. The library sends SQL in the
// dialect "SELECT TOP n ..." and fixed table names (Manufacturers, Vendors, ProductTypes,
// Products, Company); the host translates as its database needs.
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
