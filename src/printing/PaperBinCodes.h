#pragma once

// Windows paper bin codes for the bins that CUPS queues name, so that a configuration's
// "PaperSource" means the same tray on every system.

#include <QList>
#include <QString>

namespace bravcpl5 {

// The first code for a bin without a standard code.
constexpr int FirstPrinterBinCode = 256;

// The standard code of a bin keyword, from a PPD's InputSlot ("Upper", "ManualFeed") or
// an IPP media-source ("top", "large-capacity"); 0 when the bin has none. Case, spaces,
// hyphens and underscores do not matter.
int StandardPaperBinCode(const QString &keyword);

// Codes for a printer's bins in the printer's order: the standard code where there is
// one and not already taken, otherwise 256 and up.
QList<int> NumberPaperBins(const QStringList &keywords);

} // namespace bravcpl5
