// A report configuration file's bytes through the filters reader, every row's value
// applied again as the dialog does, and the values saved as OK saves them: the saved
// file loads again and reads back as the same filters with the same values.

#include "FuzzInput.h"

#include "filters/FilterDefinitions.h"
#include "library/Xml.h"

#include <algorithm>

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
    const QList<FilterRow> again = LoadFilterRows(nullptr, *reloaded);
    fuzz::Require(again.size() == rows.size(), "saved filters read back with another number of rows");
    for (qsizetype i = 0; i < rows.size(); ++i) {
        fuzz::Require(again[i].identifier == rows[i].identifier && again[i].caption == rows[i].caption &&
                          again[i].type == rows[i].type,
                      "a saved filter reads back with another name, caption or type");
        // Filters sharing a name all take the value of the last of them.
        const bool shared = std::count_if(rows.cbegin(), rows.cend(), [&](const FilterRow &row) {
                                return row.identifier == rows[i].identifier;
                            }) > 1;
        fuzz::Require(shared || again[i].value == rows[i].value, "a saved filter value reads back different");
    }
    return 0;
}
