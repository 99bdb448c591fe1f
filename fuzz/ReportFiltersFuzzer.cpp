// A report configuration file's bytes through the filters reader, every row's value
// applied again as the dialog does, and the values saved as OK saves them: the saved
// file loads again with the same filters.

#include "FuzzInput.h"

#include "filters/FilterDefinitions.h"
#include "library/Xml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace bravcpl5;
    const XmlDocumentPtr document = LoadXmlFile(fuzz::InputFile(data, size));
    if (!document)
        return 0;
    // No host: placeholder tokens stay as they are, as when the database does not answer.
    QList<FilterRow> rows = LoadFilterRows(nullptr, *document);
    for (FilterRow &row : rows) {
        (void)FilterTypeHasChoices(row.type);
        ApplyFilterValue(row, row.value);
    }
    const QString saved = fuzz::OutputFile();
    fuzz::Require(SaveFilterValues(*document, rows, saved), "filter values cannot be saved");
    const XmlDocumentPtr reloaded = LoadXmlFile(saved);
    fuzz::Require(reloaded != nullptr, "saved filters do not load again");
    fuzz::Require(LoadFilterRows(nullptr, *reloaded).size() == rows.size(),
                  "saved filters read back with another number of rows");
    return 0;
}
