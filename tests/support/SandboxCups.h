#pragma once

// Test access to the cupsd that scripts/test starts (scripts/cups-sandbox): whether one is
// reachable, what a job carried, the document it printed, and what pdfinfo says of a PDF.

#include <QHash>
#include <QSizeF>
#include <QString>

namespace bravcpl5::test {

// True when the cupsd that CUPS_SERVER (or the client configuration) names answers.
bool CupsReachable();

#define SKIP_WITHOUT_CUPSD()                                                                       \
    if (!bravcpl5::test::CupsReachable())                                                          \
    GTEST_SKIP() << "no cupsd reachable (scripts/test starts one)"

// Waits for a job to finish (at most ten seconds) and returns its attributes as text
// (the first value of each); "job-state" is 9 when it completed.
QHash<QString, QString> FinishedJobAttributes(int jobId);

// Saves the printed document of a job (kept in the spool) to `file`.
bool SaveJobDocument(const QString &queue, int jobId, const QString &file);

struct PdfFacts {
    int pages = 0;
    QSizeF pageSize; // points, of the first page, as the page is shown
};
// Runs pdfinfo; zero pages when it fails.
PdfFacts ReadPdfFacts(const QString &file);

} // namespace bravcpl5::test
