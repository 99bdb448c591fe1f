#pragma once

// The output fields of a general report's configuration file: the children of its first
// "Fields" element, each shown by its `label` with a size. The size is read from `width`
// and written to `size`: the host reads `size`, and `width` keeps the value it had, so a
// reopened list shows `width` again.

#include <QList>
#include <QString>
#include <pugixml.hpp>

namespace bravcpl5 {

struct OutputField {
    QString key;   // the field element's name
    QString label; // `label`, else the key
    QString size;  // `width`, else "2", until the user changes it
};

// The fields in document order; empty when there is no document or no "Fields" element.
QList<OutputField> LoadReportFields(const pugi::xml_document *document);

// A size the user may enter: any number in the locale's syntax, negative ones included.
bool IsAcceptableFieldSize(const QString &text);

// Writes each field's size into the `size` attribute of the first element of its key
// (fields sharing a key therefore all land on the first one, the last winning), then saves
// the whole document over `file`, with or without a "Fields" element. False when the save
// failed or there is no document.
bool SaveReportFields(pugi::xml_document *document, const QList<OutputField> &fields,
                      const QString &file, QString *why = nullptr);

} // namespace bravcpl5
