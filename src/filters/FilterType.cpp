#include "filters/FilterType.h"

namespace bravcpl5 {

FilterType ParseFilterType(const QString &text)
{
    static const struct {
        const char *name;
        FilterType type;
    } names[] = {
        {"boolean", FilterType::Boolean},
        {"daterange", FilterType::DateRange},
        {"productsource", FilterType::ProductSource},
        {"manufacturer", FilterType::Manufacturer},
        {"producttype", FilterType::ProductType},
        {"product", FilterType::Product},
        {"vendor", FilterType::Vendor},
    };
    for (const auto &entry : names) {
        if (text.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0)
            return entry.type;
    }
    return FilterType::FreeText;
}

} // namespace bravcpl5
