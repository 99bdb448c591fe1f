#pragma once

// The printer configuration files of one folder: "*.pcx" directly in it, matched without
// regard to case, in the order a folder listing gives them (by name, ignoring case).

#include <QString>
#include <QStringList>

namespace bravcpl5 {

// The file names (without folder), in listing order; none when the folder is "" or does
// not exist.
QStringList ListConfigurationFiles(const QString &folder);
// The first file in listing order whose configuration name is `name` without regard to
// case, as a full path; "" when there is none.
QString FindConfigurationFile(const QString &folder, const QString &name);
// A listed file's configuration name: its name without the extension.
QString ConfigurationName(QString fileName);
// The full path of a listed file; with no file name, the folder with a closing "/".
QString ConfigurationPath(const QString &folder, const QString &fileName);
// Whether the text names a file with a folder part rather than a bare configuration name.
bool HasFolderPart(const QString &nameOrFile);

} // namespace bravcpl5
