#pragma once

#include "SampleProducts.h"

#include <QObject>
#include <QString>

// The sample host's general report: its product list, grouped by product type. The
// controls take their fonts, heights and some formatting presets from the library's
// ReportLayout, the header and footer furniture follow the general report layout, and
// the page follows the printer configuration that the layout names.
struct SampleReportOutcome {
    bool written = false;
    int pages = 0;
    QString printerConfiguration; // empty when the layout names none
};

SampleReportOutcome PrintSampleReport(QObject *library, const QList<SampleProduct> &products,
                                      const QString &pdfFile);

// The furniture's format texts: "Page nnn of mmm" and the like for page numbers; the
// named formats "Short Date", "Long Date", "Short Time", "Long Time" or a date/time
// pattern ("AM/PM" for the half of the day) for the print date and time.
QString FormatPageNumber(const QString &format, int page, int pageCount);
QString FormatPrintDate(const QString &format, const QDate &date);
QString FormatPrintTime(const QString &format, const QTime &time);
