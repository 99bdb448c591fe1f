#pragma once

// The general report layout document ("General Report Layout.lyx", or a report's own
// ".lyx" file beside its configuration file): which header and footer items a general
// report prints, their texts, formats and alignment, and whether it prints through a
// printer configuration of its own. Every value is an attribute of an element under
// "Definition":
//   Report/PrinterConfiguration  enabled, configuration
//   Header  allpages; Company (show, label, alignment), Title, Description, SubTitle
//           (show, alignment), PrintDate (show, format, alignment), PrintTime (show, format)
//   Footer  allpages; ExtraLine (show, label, alignment), PageNumber (show, format, alignment)
// The layout dialog binds to this value; the host reads the loaded document itself.

#include "layout/FormatPickers.h"
#include "library/Xml.h"

#include <QString>
#include <QStringList>
#include <cstdint>

namespace bravcpl5 {

struct LayoutItem {
    bool show = true;
    QString label;                               // Company and ExtraLine only
    QString format;                              // PrintDate, PrintTime and PageNumber only
    std::int16_t alignment = pickers::alignLeft; // not for PrintTime

    bool operator==(const LayoutItem &) const = default;
};

struct GeneralReportLayout {
    // The defaults are what a reader takes for a missing element or attribute; note the
    // alignments: company right, title, description and subtitle centred, others left.
    bool useOwnPrinterConfiguration = true; // "enabled"
    QString printerConfiguration;           // "configuration"
    bool headerOnAllPages = false;
    LayoutItem company{true, {}, {}, pickers::alignRight};
    LayoutItem title{true, {}, {}, pickers::alignCenter};
    LayoutItem description{true, {}, {}, pickers::alignCenter};
    LayoutItem subTitle{true, {}, {}, pickers::alignCenter};
    LayoutItem printDate;
    LayoutItem printTime;
    bool footerOnAllPages = false;
    LayoutItem extraLine;
    LayoutItem pageNumber;

    bool operator==(const GeneralReportLayout &) const = default;

    // Reads "//Definition/Report", "/Header" and "/Footer": a missing section leaves its
    // values as they are, a missing element or attribute gives the default above, and a
    // "show", "alignment", "allpages" or "enabled" that is not a number leaves the value
    // as it is. An alignment code is taken as it stands, even one that is not 0, 1 or 2.
    void read(const pugi::xml_document &document);
    static GeneralReportLayout fromDocument(const pugi::xml_document &document);

    // A new document with every element and attribute, in the file's order.
    XmlDocumentPtr toDocument() const;
    // Writes the document over `path`; an empty path writes nothing (false).
    bool save(const QString &path, QString *why = nullptr) const;
};

// The page number formats offered, in order; "nnn"/"nnnn" stands for the page number and
// "mmm" for the page count.
QStringList PageNumberFormats();

} // namespace bravcpl5
