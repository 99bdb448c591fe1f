#pragma once

// Windows paper bin codes for the bins that CUPS queues name, so that a configuration's
// "PaperSource" means the same tray on every system.

#include <QList>
#include <QString>

namespace bravcpl5 {

// The first code for a bin without a standard code.
constexpr int FirstPrinterBinCode = 256;

// A bin as the driver names it: the keyword its option takes ("Tray1_Man", "EF1", "top")
// and its name in the driver's own language, before any translation ("Tray 1 (Manual)").
struct PaperBinName {
    QString keyword;
    QString name;
};

// The standard code of a bin, from its keyword, else from its name; 0 when it has none.
// Case, spaces, hyphens, underscores and brackets do not matter, and the common spellings
// of drivers and IPP count ("Tray1_Man", "EF1", "MF", "ManualEnv", "by-pass-tray", "LCT").
// Failing those, a word of either that says manual in a driver's language is the manual
// feed ("Bandeja 1 (Manual)", "Handinvoer", "手差し"), or with an envelope word the manual
// envelope feed ("Sobre manual").
int StandardPaperBinCode(const PaperBinName &bin);

// Codes for a printer's bins in the printer's order: the standard code where there is
// one and not already taken, otherwise 256 and up. A multi-purpose or bypass tray takes the
// manual code only when no other bin is called manual. Names decide only in the driver's own
// language, so the codes do not change with the user's.
QList<int> NumberPaperBins(const QList<PaperBinName> &bins);

} // namespace bravcpl5
