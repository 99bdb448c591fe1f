#pragma once

// A general report of the dealer's, laid out from its configuration file as the host
// reads it: the columns its "Fields" list (each with its label, and its size in inches
// from `size`, else `width`; a size of 0 or less leaves the column out), fitted to the
// page (ColumnText.h), the records of its "Identification/Source", grouped by its
// "GroupBy" field when it names one, with subtotals of its money columns, and the header
// and footer furniture of its layout (its own .lyx, else the general one) in the fonts of
// the report fonts document.

#include "Records.h"
#include "ReportBands.h"

#include <memory>

struct GeneralReportTexts {
    QString title;
    QString description;
    QString source;
    QString groupBy;
};

// The title, description, source and grouping a configuration file names.
GeneralReportTexts ReadGeneralReportTexts(const QString &configurationFile);

// The report for a content area `width` twips wide; null when the library has no
// ReportLayout.
std::unique_ptr<BandedReport> BuildGeneralReport(QObject *library, const QString &configurationFile,
                                                 const QList<Record> &records, double width);
