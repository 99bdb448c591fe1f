#pragma once

// What the library needs to know about this workstation's printers: which are installed,
// which is the default, and for each printer its paper sizes and paper bins with the
// codes that printer configuration files store (Windows paper and bin codes, so that a
// file written on one system reads the same on another).
//
// The process holds one PrinterInfo. By default it reads the system's printers (CUPS for the
// printer list, the CUPS queue itself for sizes and bins), afresh on every call; tests install
// a fake with SetPrinterInfo. A dialog holds a CachedPrinterInfo over it, which reads each
// thing once for the dialog's lifetime.

#include <QList>
#include <QMargins>
#include <QSize>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <memory>

namespace bravcpl5 {

struct PaperSizeInfo {
    QString name;        // display name, as a user knows it ("Letter", "A4", "Label 4 x 6")
    int code = 0;        // Windows paper code; 256 and up for the printer's own sizes
    int widthTwips = 0;  // portrait width
    int heightTwips = 0; // portrait height
    QMargins unprintableTwips = {}; // portrait edges the printer cannot reach; none known: 0
};

// What the print system says of a printer's readiness; nothing known by default.
struct PrinterState {
    bool known = false;
    bool stopped = false;      // disabled (cupsdisable) or paused
    bool acceptingJobs = true; // false when rejecting jobs (cupsreject)
    QStringList reasons;       // the printer's own state reasons ("media-empty-error",
                               // "offline-report"), none when all is well
};

struct PaperBinInfo {
    QString name; // display name ("Upper", "Manual Feed")
    int code = 0; // Windows bin code; 256 and up for bins without a standard code
};

// One printer's paper and state, as one read of the printer gives them.
struct PrinterPaper {
    QList<PaperSizeInfo> sizes;
    QList<PaperBinInfo> bins;
    int currentSize = 0;
    int currentBin = 0;
    // The portrait sizes a printer takes as custom sheets, smallest and largest; empty when
    // it takes none.
    QSize customMinTwips = {};
    QSize customMaxTwips = {};
    PrinterState state = {};
};

class PrinterInfo
{
public:
    virtual ~PrinterInfo() = default;

    // Installed printers, in the system's order.
    virtual QStringList printerNames() const = 0;
    // The default printer's name, or "" when none is set.
    virtual QString defaultPrinterName() const = 0;
    // Empty lists for a printer that is not installed.
    virtual QList<PaperSizeInfo> paperSizes(const QString &printer) const = 0;
    virtual QList<PaperBinInfo> paperBins(const QString &printer) const = 0;
    // The printer's current (default) paper size and bin codes; 0 when unknown.
    virtual int currentPaperSize(const QString &printer) const = 0;
    virtual int currentPaperBin(const QString &printer) const = 0;
    // All four at once; the system's reads the printer once for them.
    virtual PrinterPaper paper(const QString &printer) const;
};

// A PrinterInfo whose per-printer answers all come from one paper() read.
class PaperPrinterInfo : public PrinterInfo
{
public:
    QList<PaperSizeInfo> paperSizes(const QString &printer) const final
    {
        return paper(printer).sizes;
    }
    QList<PaperBinInfo> paperBins(const QString &printer) const final
    {
        return paper(printer).bins;
    }
    int currentPaperSize(const QString &printer) const final { return paper(printer).currentSize; }
    int currentPaperBin(const QString &printer) const final { return paper(printer).currentBin; }
    PrinterPaper paper(const QString &printer) const override = 0;
};

// The process's printer information.
PrinterInfo &CurrentPrinterInfo();
// Replaces it (tests); null restores the system's.
void SetPrinterInfo(std::unique_ptr<PrinterInfo> info);
// The system's printers, as CurrentPrinterInfo() gives them by default.
std::unique_ptr<PrinterInfo> CreateSystemPrinterInfo();

// The size of `sizes` that a stored paper code prints on, with the width and height stored
// beside it in inches (empty where none is stored): see FindStoredPaper in PaperSizeCodes.h.
// Null for none.
const PaperSizeInfo *StoredPaperSize(const QList<PaperSizeInfo> &sizes, int code,
                                     const QSizeF &inches);

// The installed printer whose name equals `name` without regard to case, or "".
QString FindPrinter(const PrinterInfo &info, const QString &name);

} // namespace bravcpl5
