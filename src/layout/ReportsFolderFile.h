#pragma once

// Where the layout and fonts settings files are found: the user's "Reports" folder before
// the shared one, as the host names them (library/HostContract.h).

#include "library/FileOperations.h"

#include <QObject>
#include <QString>

namespace bravcpl5 {

inline constexpr auto generalReportFontsFileName = "General Report Fonts.fox";
inline constexpr auto processReportFontsFileName = "Process Report Fonts.fox";
inline constexpr auto generalReportLayoutFileName = "General Report Layout.lyx";

// The user copy of `fileName` when it exists, or its user path whenever `forceUser` is set
// (where a dialog creates it); else the shared copy when it exists; else "". A folder the
// host leaves empty is skipped. Nothing is copied.
QString ResolveReportsFile(QObject *host, const QString &fileName, bool forceUser);

} // namespace bravcpl5
