#pragma once

// Creates the published classes by programmatic identifier, for automation clients that
// know only names ("bravcpl5.Library", "bravcpl5.PrinterConfigurations",
// "bravcpl5.ReportLayout", "bravcpl5.ReportConfiguration"). The caller owns the object.

#include "bravcpl5_export.h"

#include <QObject>
#include <QString>

namespace bravcpl5 {

// Null for any other identifier.
BRAVCPL5_EXPORT QObject *CreateObject(const QString &progId);

} // namespace bravcpl5

extern "C" BRAVCPL5_EXPORT QObject *bravcpl5_CreateObject(const char *progId);
