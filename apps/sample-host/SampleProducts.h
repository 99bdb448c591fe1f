#pragma once

#include <QList>
#include <QString>

class HostDatabase;

// One line of the sample report's product list.
struct SampleProduct {
    QString productType;
    QString product;
    QString manufacturer;
    QString vendor;
    double listPrice;
};

// The products of the host's database with their type, manufacturer and vendor, sorted by
// product type, then product; empty when there is no database or the query fails.
QList<SampleProduct> SampleProducts(const HostDatabase *database);
