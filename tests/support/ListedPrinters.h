#pragma once

// A printer information that lists the given printers and default and nothing else (no
// sizes, no bins), for dialogs that only need printers to choose from or to miss.

#include "printers/PrinterInfo.h"

#include <utility>

namespace bravcpl5::test {

struct ListedPrinters final : PrinterInfo {
    ListedPrinters(QStringList printers, QString defaultPrinter)
        : names(std::move(printers)), defaultName(std::move(defaultPrinter))
    {}
    QStringList printerNames() const override { return names; }
    QString defaultPrinterName() const override { return defaultName; }
    QList<PaperSizeInfo> paperSizes(const QString &) const override { return {}; }
    QList<PaperBinInfo> paperBins(const QString &) const override { return {}; }
    int currentPaperSize(const QString &) const override { return 0; }
    int currentPaperBin(const QString &) const override { return 0; }

    QStringList names;
    QString defaultName;
};

} // namespace bravcpl5::test
