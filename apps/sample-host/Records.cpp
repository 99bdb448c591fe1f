#include "Records.h"

#include "database/HostDatabase.h"
#include "filters/FilterDefinitions.h"

#include <QDate>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>
#include <array>

namespace {

// Made-up customers of a dealer in Idaho, for orders and quotes.
struct Customer {
    const char *name, *address, *city, *zip, *phone;
};
constexpr std::array customers{
    Customer{"Harper & Lane Interiors", "212 N 8th St", "Boise", "83702", "(208) 555-0170"},
    Customer{"Dana Whitfield", "4410 W Hillcrest Dr", "Meridian", "83646", "(208) 555-0121"},
    Customer{"Riverside Dental Group", "980 E Parkcenter Blvd", "Boise", "83706", "(208) 555-0193"},
    Customer{"Marcus and Elena Ortiz", "1735 S Owyhee St", "Nampa", "83686", "(208) 555-0137"},
    Customer{"Foothills Property Management", "55 E Jefferson St", "Eagle", "83616",
             "(208) 555-0158"},
    Customer{"Greg Tanaka", "3021 N Cole Rd", "Boise", "83704", "(208) 555-0116"},
    Customer{"Summit View Apartments", "600 W Franklin Rd", "Meridian", "83642", "(208) 555-0184"},
};
constexpr std::array salespeople{"Karen Bishop", "Luis Moreno", "Amy Chen"};
constexpr std::array statuses{"Ordered", "In Production", "Shipped", "Ready to Install"};
constexpr int installedAfterDays = 45;
constexpr std::array rooms{"Living Room", "Kitchen",     "Master Bedroom",
                           "Office",      "Dining Room", "Den"};
constexpr std::array colors{"Snow White", "Linen", "Driftwood", "Espresso", "Pewter", "Sand"};
constexpr std::array mounts{"Inside Mount", "Outside Mount"};
constexpr std::array controls{"Cordless", "Continuous Loop", "Motorized"};

QString text(const char *latin1) { return QString::fromLatin1(latin1); }

// The records a query gives, keyed by the names of its columns.
QList<Record> select(const HostDatabase *database, const QString &sql)
{
    QList<Record> records;
    QSqlQuery query;
    if (!database || !database->run(sql, query))
        return records;
    while (query.next()) {
        Record record;
        const QSqlRecord columns = query.record();
        for (int i = 0; i < columns.count(); ++i)
            record.insert(columns.fieldName(i), query.value(i));
        records.append(record);
    }
    return records;
}

// The product source captions of the filters dialog by their codes, as the database keeps them.
QString productSource(const QVariant &code)
{
    for (const bravcpl5::FilterChoice &choice :
         bravcpl5::FillFilterChoices(nullptr, bravcpl5::FilterType::ProductSource, 0)) {
        if (QVariant(choice.data) == code)
            return choice.caption;
    }
    return {};
}

QList<Record> products(const HostDatabase *database)
{
    QList<Record> records = select(
        database,
        QStringLiteral("SELECT p.Product, t.ProductType, m.Manufacturer, v.VendorName,"
                       " p.ProductSource, p.ListPrice"
                       " FROM Products p"
                       " JOIN ProductTypes t ON t.ProductTypeID = p.ProductTypeID"
                       " LEFT JOIN Manufacturers m ON m.ManufacturerID = p.ManufacturerID"
                       " LEFT JOIN Vendors v ON v.VendorID = p.VendorID"
                       " ORDER BY t.ProductType COLLATE NOCASE, p.Product COLLATE NOCASE"));
    for (qsizetype i = 0; i < records.size(); ++i) {
        Record &r = records[i];
        const double price = r.value(QStringLiteral("ListPrice")).toDouble();
        r[QStringLiteral("ListPrice")] = price;
        r[QStringLiteral("ProductSource")] = productSource(
            r.value(QStringLiteral("ProductSource")));
        r[QStringLiteral("MinWidth")] = 12 + int(i % 3) * 6;
        r[QStringLiteral("MaxWidth")] = 72 + int(i % 4) * 24;
        r[QStringLiteral("MinHeight")] = 12 + int(i % 2) * 12;
        r[QStringLiteral("MaxHeight")] = 84 + int(i % 3) * 12;
        r[QStringLiteral("LeadTime")] = 7 + int(i % 4) * 7;
        r[QStringLiteral("DealerCost")] = qRound(price * 55) / 100.0;
    }
    return records;
}

QList<Record> vendors(const HostDatabase *database)
{
    static constexpr std::array contacts{"Pat Reyes", "Jordan Blake", "Sam Whitaker",
                                         "Chris Nguyen", "Terry Walsh"};
    static constexpr std::array terms{"Net 30", "Net 45", "2% 10 Net 30"};
    QList<Record> records = select(
        database, QStringLiteral("SELECT VendorName, City, State, Phone FROM Vendors"
                                 " ORDER BY VendorName COLLATE NOCASE"));
    for (qsizetype i = 0; i < records.size(); ++i) {
        Record &r = records[i];
        const QString name = r.value(QStringLiteral("VendorName")).toString();
        QString domain = name.toLower();
        domain.remove(QRegularExpression(QStringLiteral("[^a-z]")));
        r[QStringLiteral("Contact")] = text(contacts[size_t(i) % contacts.size()]);
        r[QStringLiteral("Address")] = QStringLiteral("%1 Commerce Way").arg(100 + i * 35);
        r[QStringLiteral("Zip")] = QStringLiteral("%1").arg(30100 + i * 1371 % 60000, 5, 10,
                                                            QLatin1Char('0'));
        QString fax = r.value(QStringLiteral("Phone")).toString();
        if (!fax.isEmpty())
            fax.replace(fax.size() - 1, 1, QString::number((fax.back().digitValue() + 1) % 10));
        r[QStringLiteral("Fax")] = fax;
        r[QStringLiteral("Email")] = QStringLiteral("orders@%1.com").arg(domain.left(18));
        r[QStringLiteral("AccountNumber")] = QStringLiteral("SB-%1").arg(4100 + i * 7);
        r[QStringLiteral("Terms")] = text(terms[size_t(i) % terms.size()]);
        r[QStringLiteral("LeadTime")] = 10 + int(i % 3) * 5;
    }
    return records;
}

// One line per ordered product: order i has one to three lines, so the grouped and the
// plain order reports both have something to show. Orders come every two to five days,
// the last one today, so that every named date range has some; the older ones are
// installed.
QList<Record> orders(const HostDatabase *database, const QDate &today)
{
    const QList<Record> catalogue = products(database);
    QList<Record> records;
    if (catalogue.isEmpty())
        return records;
    constexpr int count = 40;
    for (int order = 0; order < count; ++order) {
        const Customer &customer = customers[size_t(order) % customers.size()];
        const int age = (count - 1 - order) * 3 + order % 3;
        const QDate ordered = today.addDays(-age);
        const QString status = age > installedAfterDays
                                   ? QStringLiteral("Installed")
                                   : text(statuses[size_t(order) % statuses.size()]);
        const int lines = 1 + order % 3;
        double total = 0;
        QList<Record> orderLines;
        for (int line = 0; line < lines; ++line) {
            const Record &product = catalogue[(order * 7 + line * 13) % catalogue.size()];
            const int quantity = 1 + (order + line) % 4;
            const double unit = product.value(QStringLiteral("ListPrice")).toDouble();
            Record r;
            r[QStringLiteral("OrderNumber")] = 10240 + order;
            r[QStringLiteral("OrderDate")] = ordered;
            r[QStringLiteral("PromisedDate")] = ordered.addDays(21);
            r[QStringLiteral("Customer")] = text(customer.name);
            r[QStringLiteral("City")] = text(customer.city);
            r[QStringLiteral("State")] = QStringLiteral("ID");
            r[QStringLiteral("Zip")] = text(customer.zip);
            r[QStringLiteral("Sidemark")] = text(rooms[size_t(order + line) % rooms.size()]);
            r[QStringLiteral("Salesperson")] = text(
                salespeople[size_t(order) % salespeople.size()]);
            r[QStringLiteral("Status")] = status;
            r[QStringLiteral("Installed")] = age > installedAfterDays;
            for (const char *key :
                 {"VendorName", "Manufacturer", "ProductType", "Product", "ProductSource"})
                r[QLatin1String(key)] = product.value(QLatin1String(key));
            r[QStringLiteral("Vendor")] = product.value(QStringLiteral("VendorName"));
            r[QStringLiteral("Quantity")] = quantity;
            r[QStringLiteral("Width")] = 24 + (order * 5 + line * 3) % 48;
            r[QStringLiteral("Height")] = 36 + (order * 7 + line) % 48;
            r[QStringLiteral("Color")] = text(colors[size_t(order + line) % colors.size()]);
            r[QStringLiteral("UnitPrice")] = unit;
            r[QStringLiteral("ExtendedPrice")] = unit * quantity;
            r[QStringLiteral("Price")] = unit * quantity;
            r[QStringLiteral("Cost")] = qRound(unit * quantity * 55) / 100.0;
            total += unit * quantity;
            orderLines.append(r);
        }
        const double deposit = qRound(total * 50) / 100.0;
        for (Record &r : orderLines) {
            r[QStringLiteral("Deposit")] = deposit;
            r[QStringLiteral("BalanceDue")] = total - deposit;
        }
        records += orderLines;
    }
    return records;
}

} // namespace

QList<Record> SourceRecords(const HostDatabase *database, const QString &source, const QDate &today)
{
    if (source.compare(QLatin1String("Products"), Qt::CaseInsensitive) == 0)
        return products(database);
    if (source.compare(QLatin1String("Vendors"), Qt::CaseInsensitive) == 0)
        return vendors(database);
    return orders(database, today);
}

Quote SampleQuote(const HostDatabase *database)
{
    Quote quote;
    const Customer &customer = customers[3];
    quote.number = QStringLiteral("Q-2024-0317");
    quote.customer = text(customer.name);
    quote.address = text(customer.address);
    quote.cityLine = QStringLiteral("%1, ID %2").arg(text(customer.city), text(customer.zip));
    quote.phone = text(customer.phone);
    quote.sidemark = QStringLiteral("Ortiz residence, new build");
    quote.salesperson = text(salespeople[1]);
    const QList<Record> catalogue = products(database);
    for (int i = 0; i < 6 && !catalogue.isEmpty(); ++i) {
        const Record &product = catalogue[(i * 11 + 4) % catalogue.size()];
        QuoteLine line;
        line.product = product.value(QStringLiteral("Product")).toString();
        line.options = QStringLiteral("%1; %2; %3; %4")
                           .arg(text(rooms[size_t(i) % rooms.size()]),
                                text(mounts[size_t(i) % mounts.size()]),
                                text(colors[size_t(i * 2) % colors.size()]),
                                text(controls[size_t(i) % controls.size()]));
        line.quantity = 1 + i % 3;
        line.width = 23.5 + i * 6.25;
        line.height = 48 + (i % 3) * 12;
        line.unitPrice = product.value(QStringLiteral("ListPrice")).toDouble();
        quote.lines.append(line);
    }
    return quote;
}

Company SampleCompany(const HostDatabase *database)
{
    const QList<Record> rows = select(
        database, QStringLiteral(
                      "SELECT CompanyName, BillToAddress, BillToCity, BillToState, BillToZip, Phone"
                      " FROM Company LIMIT 1"));
    if (rows.isEmpty())
        return {};
    const Record &r = rows.first();
    return {r.value(QStringLiteral("CompanyName")).toString(),
            r.value(QStringLiteral("BillToAddress")).toString(),
            QStringLiteral("%1, %2 %3")
                .arg(r.value(QStringLiteral("BillToCity")).toString(),
                     r.value(QStringLiteral("BillToState")).toString(),
                     r.value(QStringLiteral("BillToZip")).toString()),
            r.value(QStringLiteral("Phone")).toString()};
}
