#pragma once

// The file operations the dialogs perform on settings files, in one place over Qt's file
// API: splitting a path, and moving, copying and deleting files. None of them overwrites
// an existing file; each says whether it succeeded and never throws.

#include <QString>

namespace bravcpl5 {

struct PathParts {
    QString folder;    // with a closing "/" ("" when the path has none)
    QString name;      // without the extension
    QString extension; // with its dot (".pcx"; "" when there is none)
};

PathParts SplitPath(const QString &path);
// `folder` with a closing separator ensured, then `fileName`.
QString PathInFolder(const QString &folder, const QString &fileName);

// Whether `path` names an existing file (not a folder).
bool FileExists(const QString &path);
// False when `to` exists already, or the move or copy fails.
bool MoveFile(const QString &from, const QString &to);
bool CopyFile(const QString &from, const QString &to);
bool DeleteFile(const QString &path);

} // namespace bravcpl5
