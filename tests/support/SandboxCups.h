#pragma once

// Test access to the cupsd that scripts/test starts (scripts/cups-sandbox): whether one is
// reachable, what a job carried, the document it printed, and what pdfinfo says of a PDF.

#include <QHash>
#include <QSizeF>
#include <QString>
#include <string>

namespace bravcpl5::test {

// The sandbox's queues made from real PPDs of Debian's printer driver packages: lasers with
// trays and feeders, wide-format plotters, label printers, German PPDs.
inline const char *const RealQueues[] = {
    "Real-HP-LaserJet-4250",       "Real-HP-LaserJet-5200",     "Real-HP-LaserJet-9050",
    "Real-HP-Color-LaserJet-2500", "Real-HP-DesignJet-4000",    "Real-HP-DesignJet-Z6dr",
    "Real-Brother-HL-2600CN",      "Real-Lexmark-C540",         "Real-Kyocera-FS-1000-de",
    "Real-DYMO-LabelWriter-450",   "Real-DYMO-LabelWriter-4XL", "Real-Brother-PT-P700",
    "Real-Brother-QL-550"};

// A test name for a queue ("RealHPLaserJet4250").
inline std::string QueueTestName(const char *queue)
{
    return QString::fromUtf8(queue).remove(u'-').toStdString();
}

// True when the cupsd that CUPS_SERVER (or the client configuration) names answers.
bool CupsReachable();

#define SKIP_WITHOUT_CUPSD()                                                                       \
    if (!bravcpl5::test::CupsReachable())                                                          \
    GTEST_SKIP() << "no cupsd reachable (scripts/test starts one)"

// Waits for a job to finish (at most ten seconds) and returns its attributes as text
// (the first value of each); "job-state" is 9 when it completed.
QHash<QString, QString> FinishedJobAttributes(int jobId);

// The options cupsd gave the job's filters once it turned the job's attributes into the
// PPD's own options ("PageSize", "InputSlot"), from the log that BRAVCPL5_CUPS_LOG names
// (scripts/cups-sandbox env); waits for the job as FinishedJobAttributes does. Empty when
// the log has none.
QHash<QString, QString> JobFilterOptions(int jobId);

// Saves the printed document of a job (kept in the spool) to `file`.
bool SaveJobDocument(const QString &queue, int jobId, const QString &file);

struct PdfFacts {
    int pages = 0;
    QSizeF pageSize; // points, of the first page, as the page is shown
};
// Runs pdfinfo; zero pages when it fails.
PdfFacts ReadPdfFacts(const QString &file);

} // namespace bravcpl5::test
