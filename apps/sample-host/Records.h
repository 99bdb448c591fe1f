#pragma once

// The dealer's records behind the sample reports, as rows of named values: products and
// vendors from the host's database, with what a real back office would also keep
// (contacts, lead times, dealer costs) made up from them; orders made up from the
// products, the same on every run, placed in the four months up to today. Money is a
// double, counts an int, dates a QDate, yes/no a bool.

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

class HostDatabase;

using Record = QHash<QString, QVariant>;

// The records of a report's source ("Products", "Vendors" or "Orders"; anything else is
// taken as "Orders"), sorted as a report lists them; empty without a database.
QList<Record> SourceRecords(const HostDatabase *database, const QString &source,
                            const QDate &today = QDate::currentDate());

// A quote's customer and its lines, from the same made-up orders.
struct QuoteLine {
    QString product;
    QString options; // room, mount, colour, control
    int quantity = 1;
    double width = 0, height = 0; // inches
    double unitPrice = 0;
};
struct Quote {
    QString number;
    QString customer, address, cityLine, phone, sidemark, salesperson;
    QList<QuoteLine> lines;
    double discountRate = 0.1;
    double taxRate = 0.06;
};
Quote SampleQuote(const HostDatabase *database);

// The company block of the host's database; empty texts without one.
struct Company {
    QString name, address, cityLine, phone;
};
Company SampleCompany(const HostDatabase *database);
