#include "SampleProducts.h"

#include "database/HostDatabase.h"

#include <QSqlQuery>
#include <QVariant>

QList<SampleProduct> SampleProducts(const HostDatabase *database)
{
    QList<SampleProduct> products;
    QSqlQuery query;
    if (!database
        || !database->run(QStringLiteral(
               "SELECT t.ProductType, p.Product, m.Manufacturer, v.VendorName, p.ListPrice"
               " FROM Products p"
               " JOIN ProductTypes t ON t.ProductTypeID = p.ProductTypeID"
               " LEFT JOIN Manufacturers m ON m.ManufacturerID = p.ManufacturerID"
               " LEFT JOIN Vendors v ON v.VendorID = p.VendorID"
               " ORDER BY t.ProductType COLLATE NOCASE, p.Product COLLATE NOCASE"),
           query))
        return products;
    while (query.next()) {
        products.append({query.value(0).toString(), query.value(1).toString(),
                         query.value(2).toString(), query.value(3).toString(),
                         query.value(4).toDouble()});
    }
    return products;
}
