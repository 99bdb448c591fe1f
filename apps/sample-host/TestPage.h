#pragma once

#include "report/ReferenceReport.h"

#include <QString>

class QPainter;

// What the test page reports besides the geometry it draws.
struct TestPageInfo {
    QString configuration;
    QString printer;    // the printer the page is for; "" when there is none
    bool toPdf = false; // written to a PDF rather than printed
    int paperSize = 0;  // the codes the configuration stores
    int paperSource = 0;
    float paperWidth = 0; // twips, the page settings' paper width the print width comes from
    float printWidth = 0; // twips, as the configuration set it
};

// Draws a page that shows its own geometry: the paper's outline, the margins, the gutter
// (hatched) and the content area, and says in words what it was printed with: printer,
// paper and bin by their names (codes in small print), margins, gutter, orientation, and
// how the report's print width relates to the content area. Draws two pages when margins
// are mirrored, so the swap shows.
bool DrawTestPage(QPainter &painter, const bravcpl5::ReportPageToDraw &page,
                  const bravcpl5::ResolvedReportPage &resolved, const TestPageInfo &info);
