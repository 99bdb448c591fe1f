#pragma once

// The page setup of a printer configuration (its "PageSetup" element) as the page setup
// dialog holds it: the texts of its fields, the item codes selected in its lists, and the
// states of its check box and orientation options. The dialog binds these to its
// controls; reading and writing a document works on the value alone.

#include "library/XmlDocument.h"
#include "printers/PrinterInfo.h"

#include <QList>
#include <QString>
#include <optional>

namespace bravcpl5 {

// What the dialog's lists offer, as the item codes of their entries, in list order.
struct PageSetupChoices {
    QList<int> paperSizes;
    QList<int> paperSources;
    QList<int> printDirections;
    // Takes every stored code as it stands, none where none is stored: the file as it is,
    // for a listing rather than a dialog's lists.
    bool storedCodes = false;
    // The printer's sizes with their dimensions: a printer's own code (256 and up) saved on
    // another workstation selects the size of the stored width and height.
    QList<PaperSizeInfo> paperSheets = {};
};

// The paper a page setup takes where its file stores none: the current size and bin of the
// workstation's default printer; none without one.
struct PaperDefaults {
    std::optional<int> paperSize;
    std::optional<int> paperBin;
};
// The defaults from one read of `info`'s default printer.
PaperDefaults DefaultPrinterPaper(const PrinterInfo &info);

struct PageSetup {
    // Lengths in inches, as typed (".125" stays ".125").
    QString topMargin;
    QString bottomMargin;
    QString leftMargin;
    QString rightMargin;
    QString gutter;
    bool mirrorMargins = false;
    bool landscape = false;

    // Selected item codes; none when nothing is selected.
    std::optional<int> paperSize;
    QString paperWidth;
    QString paperHeight;
    std::optional<int> paperSource;

    QString columnsPerSheet;
    std::optional<int> printDirection;
    QString horizontalGap;
    QString verticalGap;
    QString labelWidth;
    QString labelHeight;

    bool operator==(const PageSetup &) const = default;

    // Fills the fields from a document's "PageSetup" element: stored values, else the
    // defaults (for paper size and bin, `paper`). A stored paper code of 256 and up selects
    // the printer's size of the stored width and height, the code only breaking ties; any
    // other stored code that the choices lack selects their first entry. Paper width and
    // height are read
    // only for a custom size (code 256 and up); otherwise they keep what the chosen paper
    // gave them. False, with the fields untouched, when there is no "PageSetup" element.
    bool read(const pugi::xml_document &document, const PageSetupChoices &choices,
              const PaperDefaults &paper);
    // Stores the fields into the document's "PageSetup" element, which is never created.
    // A field whose text is not a number, or a list with nothing selected, leaves its
    // element as it was. False when there is no "PageSetup" element.
    bool write(pugi::xml_document &document) const;
};

// The same on a configuration's file (the store finds it by name): reading leaves `fields`
// untouched when there is no file; writing saves the file in place and is false when it
// could not.
bool ReadPageSetup(const QString &file, const PageSetupChoices &choices, const PaperDefaults &paper,
                   PageSetup &fields);
bool WritePageSetup(const QString &file, const PageSetup &fields, QString *why = nullptr);

} // namespace bravcpl5
