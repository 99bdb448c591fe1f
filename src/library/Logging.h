#pragma once

// The library's logging categories, one per room. Only warnings are shown by default (a
// file that cannot be read or saved, a print server that fails); everything is shown with
// QT_LOGGING_RULES="bravcpl5.*=true", one room with, say, "bravcpl5.store.debug=true".

#include <QLoggingCategory>

namespace bravcpl5 {

Q_DECLARE_LOGGING_CATEGORY(lcXml)      // bravcpl5.xml: settings documents read and saved
Q_DECLARE_LOGGING_CATEGORY(lcPrinters) // bravcpl5.printers: the print system's answers
Q_DECLARE_LOGGING_CATEGORY(lcStore)    // bravcpl5.store: printer configurations and their printers

} // namespace bravcpl5
