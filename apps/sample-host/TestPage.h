#pragma once

#include "report/ReferenceReport.h"

#include <QString>

// Points `report` at the printer and page of `configuration` through the library's
// published names, as the host's reports are.
void SetUpTestPage(QObject *library, const QString &configuration,
                   bravcpl5::ReferenceReport &report);

// Prints the test page of a report set up by SetUpTestPage (to its OutputFileName when that
// is set), for `printer`, the installed printer it is for ("" for none). The page shows its
// own geometry (the paper's outline, the margins, the gutter hatched and the content area)
// and says in words what it was printed with: printer, paper and bin by their names (codes
// in small print), orientation, margins, gutter, and how the report's print width relates
// to the content area. Mirrored margins print two pages, so the swap shows.
bool PrintTestPage(bravcpl5::ReferenceReport &report, const QString &configuration,
                   const QString &printer);
