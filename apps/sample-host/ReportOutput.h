#pragma once

// What the dealer does with a report: look at it in a print preview, print it to the
// printer its configuration resolves to, or print it to a PDF file. Each asks the library
// which configuration to print with and has it set up the report's page, as the host's
// reports do.

#include "DealerReports.h"

class QWidget;
class SampleHost;

struct ReportOutputContext {
    QObject *library = nullptr;
    SampleHost *host = nullptr;
    QWidget *parent = nullptr;
};

// The print preview (zoom, page navigation) of the report on its printer's page.
void PreviewReport(const ReportOutputContext &context, const DealerReport &report);

// Prints to the configuration's printer with a progress dialog and a busy cursor, then
// says where it went; false when it did not print.
bool PrintReport(const ReportOutputContext &context, const DealerReport &report);

// Writes the report as a PDF to `file` without asking anything; false when it could not.
// `outlines` draws the label sheet's die cuts, as the preview's Print button writes them.
bool WriteReportPdf(const ReportOutputContext &context, const DealerReport &report,
                    const QString &file, bool outlines = false);

// Asks for a PDF file, writes it, and offers to open it.
void PrintReportToPdf(const ReportOutputContext &context, const DealerReport &report,
                      const QString &folder);
