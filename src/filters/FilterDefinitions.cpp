#include "filters/FilterDefinitions.h"

#include "filters/DateRanges.h"

#include "library/HostContract.h"
#include "library/LateBinding.h"
#include "library/ValueRules.h"
#include "library/Xml.h"

#include <QMultiHash>

namespace bravcpl5 {

namespace {

const QString filtersPath = QStringLiteral("//Filters");

// A placeholder token and the query that gives its value: through
// Common.ExecuteSelectField(query, field) when a field is named, else Common.ExecuteScaler.
struct Token {
    const char *token;
    const char *query;
    const char *field;
};

constexpr Token tokens[] = {
    {"[companybilltostate]", "SELECT BillToState FROM Company", "BillToState"},
    {"[companybilltocity]", "SELECT BillToCity FROM Company", "BillToCity"},
    {"[companybilltozip]", "SELECT BillToZip FROM Company", "BillToZip"},
    {"[1stmanufacturer]", "SELECT TOP 1 Manufacturer FROM Manufacturers ORDER BY Manufacturer",
     nullptr},
    {"[1stproducttype]", "SELECT TOP 1 ProductType FROM ProductTypes ORDER BY ProductType",
     nullptr},
    {"[1stvendor]", "SELECT TOP 1 VendorName FROM Vendors ORDER BY VendorName", nullptr},
};

bool isNo(const QString &value)
{
    const QString lower = value.toLower();
    return lower == QLatin1String("0") || lower == QLatin1String("false")
           || lower == QLatin1String("no");
}

void applyProductSource(FilterRow &row, const QString &value)
{
    for (const FilterChoice &choice : FillFilterChoices(nullptr, row.type, 0)) {
        if (choice.caption.compare(value, Qt::CaseInsensitive) == 0) {
            row.value = QString::number(choice.data);
            row.valueCaption = choice.caption;
            return;
        }
    }
    // Anything else, the stored codes included, is taken as a purchased product.
    row.value = QStringLiteral("1");
    row.valueCaption = QStringLiteral("Purchase");
}

QString applyDateRange(const QString &value, const CustomRangeEditor &editor)
{
    if (!IsCustomDateRange(value))
        return value;
    QDate start, end;
    ParseCustomDateRange(value, start, end);
    if (editor) {
        QDate newStart = start, newEnd = end;
        if (editor(newStart, newEnd)) {
            start = newStart;
            end = newEnd;
        }
    }
    return CustomDateRangeText(start, end);
}

} // namespace

QString ResolveFilterValue(QObject *host, const QString &value)
{
    for (const Token &token : tokens) {
        if (value.compare(QLatin1String(token.token), Qt::CaseInsensitive) != 0)
            continue;
        QObject *common = host::common(host);
        const QString query = QString::fromLatin1(token.query);
        const QVariant answer = token.field ? late::value(common, "ExecuteSelectField",
                                                          {query, QString::fromLatin1(token.field)})
                                            : late::value(common, "ExecuteScaler", {query});
        return answer.isValid() ? values::variantToText(answer) : value;
    }
    return value;
}

QString GetFilterDescription(const QString &name, const QString &description)
{
    if (description.compare(QLatin1String("standard"), Qt::CaseInsensitive) != 0)
        return description;
    // The built-in descriptions: one entry, with the text it has always had.
    if (name.compare(QLatin1String("active"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("asdf");
    return QString();
}

void ApplyFilterValue(FilterRow &row, const QString &value, const CustomRangeEditor &editor)
{
    switch (row.type) {
    case FilterType::Boolean: {
        const bool no = isNo(value);
        row.value = no ? QStringLiteral("0") : QStringLiteral("1");
        row.valueCaption = no ? QStringLiteral("No") : QStringLiteral("Yes");
        break;
    }
    case FilterType::ProductSource:
        applyProductSource(row, value);
        break;
    case FilterType::DateRange:
        row.value = row.valueCaption = applyDateRange(value, editor);
        break;
    default:
        row.value = row.valueCaption = value;
    }
}

void ChangeFilterValue(FilterRow &row, const QString &value, const CustomRangeEditor &editor)
{
    QString changed = value;
    if (IsCustomDateRange(value)) {
        const QDate today = QDate::currentDate();
        changed = row.value.startsWith(QLatin1String(customDateRangeName), Qt::CaseInsensitive)
                      ? row.value
                      : CustomDateRangeText(today, today);
    }
    ApplyFilterValue(row, changed, editor);
}

QList<FilterRow> LoadFilterRows(QObject *host, const pugi::xml_document &document)
{
    QList<FilterRow> rows;
    const pugi::xml_node filters = SelectSingleNode(document, filtersPath).node();
    for (pugi::xml_node node : filters.children()) {
        if (node.type() != pugi::node_element)
            continue;
        FilterRow row;
        row.identifier = QString::fromUtf8(node.name());
        row.description = GetFilterDescription(
            row.identifier, GetXmlAttribute(node, QStringLiteral("description"), QString()));
        row.caption = GetXmlAttribute(node, QStringLiteral("label"), row.identifier);
        row.typeName = GetXmlAttribute(node, QStringLiteral("type"), QString()).toLower();
        row.type = ParseFilterType(row.typeName);
        row.allowAll = values::textToInt32(
                           GetXmlAttribute(node, QStringLiteral("allowall"), QStringLiteral("0")))
                           .value_or(0);
        ApplyFilterValue(row, ResolveFilterValue(
                                  host, GetXmlAttribute(node, QStringLiteral("value"), QString())));
        rows.append(row);
    }
    return rows;
}

bool SaveFilterValues(pugi::xml_document &document, const QList<FilterRow> &rows,
                      const QString &file, QString *why)
{
    // Matched by name only: filters sharing a name all take the value. The elements are
    // indexed once, so that a save takes time in proportion to the filters.
    QMultiHash<QString, pugi::xml_node> byName;
    for (pugi::xml_node node : SelectSingleNode(document, filtersPath).node().children()) {
        if (node.type() == pugi::node_element)
            byName.insert(QString::fromUtf8(node.name()), node);
    }
    for (const FilterRow &row : rows) {
        for (auto it = byName.constFind(row.identifier);
             it != byName.cend() && it.key() == row.identifier; ++it)
            SetXmlAttribute(*it, QStringLiteral("value"), row.value);
    }
    return SaveXmlDocument(document, file, why);
}

} // namespace bravcpl5
