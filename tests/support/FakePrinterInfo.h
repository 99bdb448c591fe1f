#pragma once

// Printers for tests, installed in place of the system's with install():
//   "Office Laser" (default)  Letter 1, Legal 5, A4 9, Envelope #10 20;
//                             bins Upper 1, Lower 2, Manual 4, Envelope 5, Auto 7;
//                             current Letter and Auto
//   "Label Printer"           Label 4 x 6 256, Label 2 x 1 257; bins Roll 1 256, Roll 2 257;
//                             current Label 4 x 6 and Roll 1
//   "PDF Writer"              Letter 1, A4 9; no bins; current A4
// Tests may change any of it through the public fields.

#include "printing/PrinterInfo.h"

namespace bravcpl5::test {

class FakePrinterInfo final : public PrinterInfo
{
public:
    struct Printer {
        QString name;
        QList<PaperSizeInfo> sizes;
        QList<PaperBinInfo> bins;
        int currentSize = 0;
        int currentBin = 0;
    };

    FakePrinterInfo();
    // Makes a fake the process's printer information and returns it; SetPrinterInfo(nullptr)
    // gives the system's back.
    static FakePrinterInfo &install();

    QStringList printerNames() const override;
    QString defaultPrinterName() const override { return defaultPrinter; }
    QList<PaperSizeInfo> paperSizes(const QString &printer) const override;
    QList<PaperBinInfo> paperBins(const QString &printer) const override;
    int currentPaperSize(const QString &printer) const override;
    int currentPaperBin(const QString &printer) const override;

    QList<Printer> printers;
    QString defaultPrinter;

private:
    const Printer *find(const QString &name) const;
};

} // namespace bravcpl5::test
