#pragma once

// Whether a file named as the registry is one this library writes, so that the tool never
// rewrites a file of anyone else's (a hosts file, a binary) as INI.

#include <QByteArray>
#include <QString>

// True for text of the registry's INI form, all of which a rewrite keeps: blank lines,
// groups named "[Software/...]" (or the older flat form's "[General]") and "name=data"
// lines within a group. Nothing else: no NUL bytes, no malformed UTF-8, no comments (a
// rewrite would drop them), no line of any other shape.
bool IsRegistryText(const QByteArray &bytes);

// True when `path` may serve as the registry: it does not exist yet, or it is a file
// whose text IsRegistryText accepts. A folder, an unreadable file or a foreign one is not.
bool IsRegistryFile(const QString &path);
