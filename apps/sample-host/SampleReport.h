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
