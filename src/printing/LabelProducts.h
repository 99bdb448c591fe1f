#pragma once

// Label products (Avery 5160, Herma 4474, Zweckform L7160) as gLabels' template files
// describe them, read at run time from the system's template folder (Debian's glabels-data)
// and the user's own, and what each one makes of a page setup: paper, label size, gaps,
// columns and margins, so that a dealer picks a product instead of measuring a sheet.

#include "printing/PageSetup.h"

#include <QHash>
#include <QList>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace bravcpl5 {

// One layout of a template's labels: `nx` by `ny` labels, the first at (x0, y0) from the
// sheet's top left corner, the next ones `dx` and `dy` further on; inches.
struct LabelLayout {
    int nx = 0;
    int ny = 0;
    double x0 = 0;
    double y0 = 0;
    double dx = 0;
    double dy = 0;

    bool operator==(const LabelLayout &) const = default;
};

struct LabelProduct {
    QString brand;          // "Avery"
    QString part;           // "5160"
    QString description;    // "Address Labels", in English as the files have it
    QString paperName;      // "US Letter", "A4"; "" for a sheet of the template's own size
    QSizeF paperInches;     // the sheet, portrait; for a roll its width and no height
    QStringList categories; // "label", "mail", ...
    QString shape;          // "rectangle", "round", "ellipse", "cd"
    QSizeF labelInches;     // the label's bounding box (a round or CD label: its square)
    QList<LabelLayout> layouts;
    QString equivalentOf;     // "Avery 5160" for a product declared equivalent to it; else ""
    QString notRepresentable; // why the page setup cannot hold it ("several layouts",
                              // "a continuous roll"); "" when it can

    // "Avery 5160".
    QString name() const { return brand + u' ' + part; }
};

struct LabelDatabase {
    QList<LabelProduct> products; // by brand, then part (5160 before 15160)
    QStringList folders;          // the folders whose files were read
};

// The folders to read: the host's folder when it names one, else the system's template
// folder and the user's own gLabels templates, those that exist.
QStringList LabelTemplateFolders(const QString &hostFolder = QString());

// Every product of the "*-templates.xml" files in the folders, with the paper sizes of
// their "paper-sizes.xml"; equivalents take the geometry of the product they name. A file
// that cannot be read or is malformed is skipped with a log line.
LabelDatabase LoadLabelProducts(const QStringList &folders);

// The products of one template file's text, its paper sizes by id (inches, portrait);
// none when the text is malformed. Equivalents are left for LoadLabelProducts to resolve.
QList<LabelProduct> ParseLabelTemplates(const QByteArray &text,
                                        const QHash<QString, QSizeF> &paperSizes);

// The indexes of the products that every word of `search` finds in their brand, part or
// description, without regard to case ("5160", "avery 5160", "address"); all for "".
QList<qsizetype> FilterLabelProducts(const QList<LabelProduct> &products, const QString &search);

// Fills the page setup's paper and label fields from a representable product: the standard
// paper code of the sheet's dimensions (Letter 1, A4 9), else 256 with PaperWidth and
// PaperHeight; portrait; the columns, label size and gaps; and margins that put the labels
// where the product has them. False, with `setup` untouched, for a product that cannot be
// held.
bool ApplyLabelProduct(const LabelProduct &product, PageSetup &setup);

} // namespace bravcpl5
