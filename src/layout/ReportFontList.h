#pragma once

// The list the report fonts dialogs edit: one FontDefinition per "Font" element of a
// report family's section, in document order, unknown types and duplicates included.
// It is read from a document and written to a new one; the dialog binds it to its grid.

#include "layout/FontTypes.h"
#include "library/XmlDocument.h"

#include <QList>
#include <QString>
#include <cstdint>

namespace bravcpl5 {

struct ReportFontList {
    std::int16_t reportType = generalReports;
    QList<FontDefinition> fonts;

    // The family's "Font" elements ("//ReportFonts/GeneralReports/Font" or
    // ".../ProcessReports/Font") in place of the list. Missing attributes read as type 0,
    // "Arial", not bold, italic, underlined or struck out, size 12, colour 0; a value that
    // is not a number reads as its default. Sizes are rounded to whole points, halves to
    // even (10.5 reads as 10). Another report type reads as an empty list.
    void read(const pugi::xml_document &document);
    static ReportFontList fromDocument(const pugi::xml_document &document, std::int16_t reportType);

    // Adds the process types 35 to 38 that the list lacks, in that order
    // (ProcessTopUpFonts); the other families' lists are left as they are.
    void addMissingTypes();

    // A new document with the list under the family's section, each "Font" with "type",
    // "name", "bold", "italic", "underline", "strikeout", "size", "color" in that order.
    // Sizes keep a fraction a font dialog gave them (10.5).
    XmlDocumentPtr toDocument() const;
    // Writes toDocument() to `path`, whole or not at all.
    bool save(const QString &path, QString *why = nullptr) const;
};

} // namespace bravcpl5
