#pragma once

// Where the registry lives off Windows: an INI file that mirrors the current user's hive,
// in the user's configuration folder unless a host (or a test) names another file. On
// Windows the real registry is used and the file is never read.

#include "bravcpl5_export.h"

#include <QString>

namespace bravcpl5 {

// An empty path restores the default.
BRAVCPL5_EXPORT void SetRegistryFile(const QString &path);
BRAVCPL5_EXPORT QString RegistryFile();

} // namespace bravcpl5
