#pragma once

// The printer configuration files of one folder: "*.pcx" directly in it, matched without
// regard to case, in the order a folder listing gives them (by name, ignoring case).

#include <QString>
#include <QStringList>

namespace bravcpl5 {

// Full paths; empty when the folder is "" or does not exist.
QStringList ListConfigurationFiles(const QString &folder);
// The configuration's name: the file name without folder and extension.
QString ConfigurationName(const QString &path);
// Whether the text names a file with a folder part rather than a bare configuration name.
bool HasFolderPart(const QString &nameOrFile);

} // namespace bravcpl5
