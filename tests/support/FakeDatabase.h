#pragma once

// A stand-in for the host's database objects (its `Common` and `BRAVSQL` members) over
// in-memory lists, for tests and benchmarks that need many rows fast. It answers the
// fixed queries the library sends ("SELECT [TOP 1] <Field> FROM ...") with the list kept
// under that field name, and counts what was asked.

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariant>

namespace bravcpl5::test {

class FakeDatabase : public QObject
{
    Q_OBJECT

public:
    // Rows by field name: "VendorName", "Manufacturer", "ProductType", "Product",
    // "BillToState", "BillToCity", "BillToZip".
    QHash<QString, QStringList> fields;
    int reads = 0;
    int preTerminates = 0;

    // BRAVSQL
    Q_INVOKABLE QString ExecuteRead(const QString &sql);
    Q_INVOKABLE QVariant GetRecordValue2(const QString &record, const QString &fieldName);
    Q_INVOKABLE void PreTerminate();
    // Common
    Q_INVOKABLE QVariant ExecuteScaler(const QString &sql);
    Q_INVOKABLE QVariant ExecuteSelectField(const QString &sql, const QString &fieldName);

private:
    static QString selectedField(const QString &sql);

    struct Answer {
        QStringList rows;
        QString xml;
    };
    QHash<QString, Answer> m_answers;
};

} // namespace bravcpl5::test
