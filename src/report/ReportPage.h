#pragma once

// The page a report prints on: its page settings (as the library sets them on a report,
// in twips and Windows codes) resolved against what the chosen printer can take. A value
// the printer cannot take is replaced by the nearest one it can, and every such change is
// noted, never dropped in silence.

#include "library/Units.h"
#include "printers/CupsQueue.h"
#include "printers/PrinterInfo.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QRectF>
#include <QStringList>

namespace bravcpl5 {

// A report's page settings: paper and bin codes, lengths in twips, orientation 1 portrait
// and 2 landscape. The defaults are those of a fresh report (Letter, one-inch margins).
struct ReportPageValues {
    int paperSize = 1;
    double paperWidth = 12240;
    double paperHeight = 15840;
    int paperSource = 7;
    double topMargin = 1440;
    double bottomMargin = 1440;
    double leftMargin = 1440;
    double rightMargin = 1440;
    double gutter = 0;
    bool mirrorMargins = false;
    int orientation = 1;
};

struct ResolvedReportPage {
    QPageSize paper;    // as the paper lies in the printer (portrait)
    QSizeF paperPoints; // its exact size (Qt gives standard sizes in whole points)
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QMarginsF margins; // twips, on the page as printed, without the gutter
    double gutter = 0; // twips, added at the binding edge
    bool mirrorMargins = false;
    QString mediaKeyword;    // the queue's PageSize; empty without a queue
    QString binKeyword;      // the value of the queue's bin option; empty without a queue
    QString binName;         // that bin as the printer names it
    CupsOptions jobOptions;  // what a job to the queue carries for this paper and bin
    QStringList adjustments; // what was changed to suit the printer

    // The paper as printed (landscape swaps the sides), in twips.
    QSizeF paperTwips() const;
    // Where a page's content goes, in twips from the paper's top left corner. Pages are
    // numbered from 1; with mirror margins even pages swap the side margins and take the
    // gutter on the right, as facing pages bind in the middle.
    QRectF contentRect(int pageNumber) const;
};

// Resolves the page settings for a queue (`queue.found` false: a PDF for no printer, where
// everything is taken as it is). `printerSizes` are the printer's sizes with their codes,
// for a printer's own size code without a width and height.
ResolvedReportPage ResolveReportPage(const ReportPageValues &values, const CupsQueue &queue,
                                     const QList<PaperSizeInfo> &printerSizes);

} // namespace bravcpl5
