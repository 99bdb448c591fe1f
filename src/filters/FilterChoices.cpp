// The value lists of the filter types: fixed lists, and lists read from the host's
// database each time so that they are always current.

#include "filters/DateRanges.h"
#include "filters/FilterDefinitions.h"

#include "library/HostContract.h"
#include "library/LateBinding.h"
#include "library/ValueRules.h"
#include "library/Xml.h"

#include <string>

namespace bravcpl5 {

namespace {

struct DatabaseList {
    FilterType type;
    const char *query;
    const char *field;
};

constexpr DatabaseList databaseLists[] = {
    {FilterType::Manufacturer, "SELECT Manufacturer FROM Manufacturers ORDER BY Manufacturer",
     "Manufacturer"},
    {FilterType::ProductType, "SELECT ProductType FROM ProductTypes ORDER BY ProductType",
     "ProductType"},
    {FilterType::Product, "SELECT Product FROM Products ORDER BY Product", "Product"},
    {FilterType::Vendor, "SELECT VendorName FROM Vendors ORDER BY VendorName", "VendorName"},
};

const DatabaseList *findDatabaseList(FilterType type)
{
    for (const DatabaseList &list : databaseLists) {
        if (type == list.type)
            return &list;
    }
    return nullptr;
}

struct StringWriter final : pugi::xml_writer {
    void write(const void *data, size_t size) override
    {
        text.append(static_cast<const char *>(data), size);
    }
    std::string text;
};

// One row as the XML text that the host's GetRecordValue2 takes.
QString recordText(pugi::xml_node record, StringWriter &writer)
{
    writer.text.clear();
    record.print(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return QString::fromUtf8(writer.text.data(), qsizetype(writer.text.size()));
}

// Appends the `field` of every row that the host's database returns for `query`. Rows
// whose field cannot be read are skipped; PreTerminate is called once whatever happened.
void appendDatabaseChoices(QObject *host, const DatabaseList &list, QList<FilterChoice> &choices)
{
    QObject *database = host::database(host);
    if (!database)
        return;
    const QString field = QString::fromLatin1(list.field);
    const XmlDocumentPtr rows = LoadXmlText(
        late::text(database, "ExecuteRead", {QString::fromLatin1(list.query)}));
    const pugi::xml_node records = rows ? SelectSingleNode(*rows, QStringLiteral("Records")).node()
                                        : pugi::xml_node();
    StringWriter writer;
    const QLocale locale;
    for (pugi::xml_node record : records.children("Record")) {
        QVariant value;
        if (late::call(database, "GetRecordValue2", {recordText(record, writer), field}, &value))
            choices.append({values::variantToText(value, locale), 0});
    }
    late::call(database, "PreTerminate");
}

} // namespace

bool FilterTypeHasChoices(FilterType type) { return type != FilterType::FreeText; }

QList<FilterChoice> FillFilterChoices(QObject *host, FilterType type, int allowAll)
{
    QList<FilterChoice> choices;
    if (type == FilterType::Boolean) {
        choices = {{QStringLiteral("Yes"), 0}, {QStringLiteral("No"), 0}};
    } else if (type == FilterType::DateRange) {
        for (const QString &name : DateRangeChoices())
            choices.append({name, 0});
    } else if (type == FilterType::ProductSource) {
        choices = {{QStringLiteral("None"), 0},
                   {QStringLiteral("Purchase"), 1},
                   {QStringLiteral("Fabricate"), 2},
                   {QStringLiteral("Stock"), 3},
                   {QStringLiteral("Other"), 4}};
    } else if (const DatabaseList *list = findDatabaseList(type)) {
        if (type == FilterType::Vendor && allowAll == 1)
            choices.append({QString::fromLatin1(allVendorsChoice), 0});
        appendDatabaseChoices(host, *list, choices);
    }
    return choices;
}

} // namespace bravcpl5
