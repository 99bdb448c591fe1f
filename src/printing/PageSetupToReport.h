#pragma once

// Applies a configuration's page setup to a report object (printing/ReportContract.h).

#include "library/Units.h"

#include <pugixml.hpp>

class QObject;

namespace bravcpl5 {

// Sets the report's eleven page settings from the "PageSetup" element, in order, and then
// its print width from what the page settings read back. A value that cannot be converted
// or that the report refuses skips that member alone.
void ApplyPageSetupToReport(pugi::xml_node pageSetup, QObject *report);

} // namespace bravcpl5
