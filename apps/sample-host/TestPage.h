#pragma once

#include "report/ReferenceReport.h"

#include <QString>

class QPainter;

// What the test page reports besides the geometry it draws.
struct TestPageInfo {
    QString configuration;
    QString printer; // "" when the page goes to a PDF only
    int paperSize = 0;
    int paperSource = 0;
    float printWidth = 0; // twips, as the configuration set it
};

// Draws a page that shows its own geometry: the paper's outline, the margins, the gutter
// (hatched) and the content area, with the values as text. Draws two pages when margins
// are mirrored, so the swap shows.
bool DrawTestPage(QPainter &painter, const bravcpl5::ReportPageToDraw &page,
                  const bravcpl5::ResolvedReportPage &resolved, const TestPageInfo &info);
