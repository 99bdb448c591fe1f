#pragma once

// Windows paper codes for a printer's paper sizes, decided by dimensions alone, so that a
// configuration's "PaperSize" names the same sheet on every system, whatever the driver
// calls it.

#include <QList>
#include <QSizeF>

namespace bravcpl5 {

// The first code for a size without a standard code (or whose code is already taken).
constexpr int FirstPrinterPaperCode = 256;

// The Windows code of a sheet with this portrait width and height in points, within a
// point either way; 0 when Windows defines no such sheet.
int StandardPaperSizeCode(const QSizeF &points);

// True when two sheets' portrait widths and heights each agree to within a point, as a size
// kept in whole points (Qt's, a PDF's) and the printer's exact one of the same sheet do.
bool SamePaper(const QSizeF &a, const QSizeF &b);

// Codes for a printer's sizes in the printer's order: the first size with standard
// dimensions takes the standard code, every other one (full-bleed twins, variants) 256 and
// up, so codes are unique and the same list always gives the same codes.
QList<int> NumberPaperSizes(const QList<QSizeF> &points);

} // namespace bravcpl5
