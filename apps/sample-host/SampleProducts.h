#pragma once

#include <QList>
#include <QString>

// The sample host's own small product list, for its sample report.
struct SampleProduct {
    QString productType;
    QString product;
    QString manufacturer;
    QString vendor;
    double listPrice;
};

// Sorted by product type, then product.
QList<SampleProduct> SampleProducts();
