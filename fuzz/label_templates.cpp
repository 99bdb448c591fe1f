// A gLabels template file: any bytes give products or none; every product that says it fits
// a page setup maps to one and every other is refused (equivalents are resolved only when
// the folders are loaded, so they have nothing to map yet); a product's name finds it.

#include "printing/LabelProducts.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // The two sheets nearly every template names; others read as unknown paper.
    static const QHash<QString, QSizeF> papers = {
        {QStringLiteral("A4"), QSizeF(210 / 25.4, 297 / 25.4)},
        {QStringLiteral("US-Letter"), QSizeF(8.5, 11)},
    };
    const QByteArray text(reinterpret_cast<const char *>(data), qsizetype(size));
    const QList<bravcpl5::LabelProduct> products = bravcpl5::ParseLabelTemplates(text, papers);
    for (const bravcpl5::LabelProduct &product : products) {
        bravcpl5::PageSetup setup;
        const bool fits = product.equivalentOf.isEmpty() && product.notRepresentable.isEmpty();
        if (bravcpl5::ApplyLabelProduct(product, setup) != fits)
            __builtin_trap();
        if (!bravcpl5::FilterLabelProducts(products, product.name()).size())
            __builtin_trap();
    }
    return 0;
}
