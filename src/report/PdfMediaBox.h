#pragma once

// Qt's PDF writer gives every page a whole number of points ("/MediaBox [0 0 595.000000
// 842.000000]"), while a printer's sheet may have fractions of one (A4 is 595.28 x 841.89
// points, a DYMO label 153.6 x 63.12). This puts the exact size back.

#include <QSizeF>
#include <QString>

namespace bravcpl5 {

// Rewrites the media box of every page of `pdfFile` whose size is within a point of
// `points` to exactly `points` (to a millionth). The numbers are written in place, padded to
// their old length, so no offset in the file moves; the file is replaced whole
// (library/WholeFile.h). False, with the file unchanged, when it cannot be read or written
// or has no such page.
bool SetExactMediaBox(const QString &pdfFile, const QSizeF &points);

} // namespace bravcpl5
