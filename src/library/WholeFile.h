#pragma once

// Writing a settings file so that it is either wholly the new content or left exactly as it
// was. Settings folders are often shared on network drives and disks fill up: a save that
// fails must never leave a short or empty file behind.

#include <QByteArray>
#include <QString>

namespace bravcpl5 {

// Replaces the file at `path` with `bytes`. The bytes go to a temporary file beside the
// target, are flushed to disk and checked, and only then is the temporary file renamed
// over the target. Where the folder cannot take a new file but the existing file is
// writable (a shared folder where users may change files but not create them), the file
// is rewritten in place: the room is reserved first, the file ends exactly where the new
// bytes end, and the old bytes are put back when anything fails. Returns false, with the
// old file byte-for-byte as it was, on any failure; `why`, when given, then says what the
// system answered ("No space left on device"), for the user.
bool WriteWholeFile(const QString &path, const QByteArray &bytes, QString *why = nullptr);

} // namespace bravcpl5
