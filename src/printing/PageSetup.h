#pragma once

// The page setup of a printer configuration (its "PageSetup" element) as the page setup
// dialog holds it: the texts of its fields, the item codes selected in its lists, and the
// states of its check box and orientation options. The dialog binds these to its
// controls; reading and writing the file works on the value alone.

#include <QList>
#include <QString>
#include <optional>

namespace bravcpl5 {

class PrinterConfigurations;

// What the dialog's lists offer, as the item codes of their entries, in list order.
struct PageSetupChoices {
    QList<int> paperSizes;
    QList<int> paperSources;
    QList<int> printDirections;
};

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
};

// Fills `fields` from the configuration's file: stored values, else the defaults (the
// system default printer's current paper size and bin). A stored code that the choices
// lack selects their first entry. Paper width and height are read only for a custom size
// (code 256 and up); otherwise they keep what the chosen paper gave them. False, with
// `fields` untouched, when there is no file or it has no "PageSetup" element.
bool ReadPageSetup(PrinterConfigurations *store, const QString &configuration,
                   const PageSetupChoices &choices, PageSetup &fields);

// Stores `fields` into the configuration's file and saves it in place. A field whose text
// is not a number, or a list with nothing selected, leaves its element as it was. False
// when there is no file, it has no "PageSetup" element, or it could not be saved.
bool WritePageSetup(PrinterConfigurations *store, const QString &configuration,
                    const PageSetup &fields);

} // namespace bravcpl5
