#pragma once

// The kinds of filter that a filter's "type" attribute names. The attribute is read once,
// where the filters are read; any other text, an empty one included, names a free-text
// filter. The attribute itself is never written: only values are.

#include <QString>

namespace bravcpl5 {

enum class FilterType {
    FreeText,
    Boolean,       // "boolean"
    DateRange,     // "daterange"
    ProductSource, // "productsource"
    Manufacturer,  // "manufacturer"
    ProductType,   // "producttype"
    Product,       // "product"
    Vendor,        // "vendor"
};

// The kind a "type" attribute names, without regard to case.
FilterType ParseFilterType(const QString &text);

} // namespace bravcpl5
