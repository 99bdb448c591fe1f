// A report configuration file as the filters dialog reads its filters and saves them.

#include "FuzzInput.h"

#include "filters/FilterDefinitions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString path = fuzz::inputFile(data, size);
    const bravcpl5::XmlDocumentPtr document = bravcpl5::LoadXmlFile(path);
    if (!document)
        return 0;
    const QList<bravcpl5::FilterRow> rows = bravcpl5::LoadFilterRows(nullptr, *document);
    if (bravcpl5::SaveFilterValues(*document, rows, path))
        fuzz::requireLoadable(path);
    return 0;
}
