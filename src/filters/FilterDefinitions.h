#pragma once

// The filters of a general report's configuration file: the children of its first
// "Filters" element, each with a label, description, value, type and allowall attribute.
// The host defines the filters and reads their values when it runs the report; the
// library only lets the user change the `value` attributes.
//
// How the filters dialog uses this model:
//   rows = LoadFilterRows(host, *document);            once, on first activation
//   FilterTypeHasChoices(row.type)                      drop-down editor or free text
//   FillFilterChoices(host, row.type, row.allowAll)     each time the drop-down opens
//   ChangeFilterValue(row, chosenText, editor)          after the user changed a value;
//                                                       `editor` opens the custom date
//                                                       range dialog (see DateRanges.h)
//   SaveFilterValues(*document, rows, file)             on OK
// The grid shows row.caption and row.valueCaption; row.value is what is written back.

#include "filters/FilterType.h"

#include <QDate>
#include <QList>
#include <QObject>
#include <QString>
#include <functional>
#include <pugixml.hpp>

namespace bravcpl5 {

struct FilterRow {
    QString identifier;  // the filter element's name; ties the row to its element
    QString caption;     // `label`, else the element name
    QString description; // see GetFilterDescription
    FilterType type = FilterType::FreeText;
    QString typeName;     // `type` in lower case, as the dialog's hidden column holds it
    int allowAll = 0;     // `allowall` as a whole number; 1 offers "(All Vendors)"
    QString value;        // the value as it is written back ("0"/"1" for booleans,
                          // "0" to "4" for product sources)
    QString valueCaption; // the value as shown ("Yes", "Fabricate", ...)
};

// One entry of a filter's value list: the caption shown and its data (the product source
// code for "productsource", else 0).
struct FilterChoice {
    QString caption;
    int data = 0;

    bool operator==(const FilterChoice &) const = default;
};

// Asked when a custom date range is shown after the user chose it: starts with the
// range's dates and returns true when the user confirmed new ones into them.
using CustomRangeEditor = std::function<bool(QDate &start, QDate &end)>;

inline constexpr auto allVendorsChoice = "(All Vendors)";

// The value with a placeholder token ("[1stvendor]", "[companybilltostate]", ... the whole
// value, any case) replaced by the host's database answer; any other value as it stands.
// A token whose query fails stays as it is.
QString ResolveFilterValue(QObject *host, const QString &value);

// The description shown for a filter: the attribute, or the built-in text when the
// attribute is "standard" (any case).
QString GetFilterDescription(const QString &name, const QString &description);

// Whether a filter of this type is edited with a drop-down list rather than as free text.
bool FilterTypeHasChoices(FilterType type);

// The value choices of a type, in order; the database lists are read from the host's
// BRAVSQL each time. Empty for free-text types.
QList<FilterChoice> FillFilterChoices(QObject *host, FilterType type, int allowAll);

// Sets the row's value and shown caption from `value` by the row's type. A custom date
// range is passed to `editor` when one is given.
void ApplyFilterValue(FilterRow &row, const QString &value, const CustomRangeEditor &editor = {});

// The user chose or typed `value` for the row. Choosing "Custom Date Range" starts the
// range at today to today, unless the row already held a custom range, whose dates it
// keeps; the range then goes to `editor`. Every value ends in ApplyFilterValue.
void ChangeFilterValue(FilterRow &row, const QString &value, const CustomRangeEditor &editor);

// The rows of the document's filters, in document order, with resolved values shown
// through ApplyFilterValue. Empty when the document has no "Filters" element.
QList<FilterRow> LoadFilterRows(QObject *host, const pugi::xml_document &document);

// Writes each row's value into the `value` attribute of the filter elements of its name
// and saves the whole document over `file`. False when the save failed.
bool SaveFilterValues(pugi::xml_document &document, const QList<FilterRow> &rows,
                      const QString &file, QString *why = nullptr);

} // namespace bravcpl5
