#include "support/FakePrinterInfo.h"

namespace bravcpl5::test {

namespace {
const PaperSizeInfo letter{QStringLiteral("Letter"), 1, 12240, 15840};
const PaperSizeInfo a4{QStringLiteral("A4"), 9, 11906, 16838};
} // namespace

FakePrinterInfo::FakePrinterInfo()
{
    printers = {
        {QStringLiteral("Office Laser"),
         {letter, {QStringLiteral("Legal"), 5, 12240, 20160}, a4,
          {QStringLiteral("Envelope #10"), 20, 5940, 13680}},
         {{QStringLiteral("Upper"), 1}, {QStringLiteral("Lower"), 2}, {QStringLiteral("Manual"), 4},
          {QStringLiteral("Envelope"), 5}, {QStringLiteral("Auto"), 7}},
         1, 7},
        {QStringLiteral("Label Printer"),
         {{QStringLiteral("Label 4 x 6"), 256, 5760, 8640}, {QStringLiteral("Label 2 x 1"), 257, 2880, 1440}},
         {{QStringLiteral("Roll 1"), 256}, {QStringLiteral("Roll 2"), 257}},
         256, 256},
        {QStringLiteral("PDF Writer"), {letter, a4}, {}, 9, 0},
    };
    defaultPrinter = QStringLiteral("Office Laser");
}

FakePrinterInfo &FakePrinterInfo::install()
{
    auto fake = std::make_unique<FakePrinterInfo>();
    FakePrinterInfo &installed = *fake;
    SetPrinterInfo(std::move(fake));
    return installed;
}

const FakePrinterInfo::Printer *FakePrinterInfo::find(const QString &name) const
{
    for (const Printer &printer : printers) {
        if (printer.name == name)
            return &printer;
    }
    return nullptr;
}

QStringList FakePrinterInfo::printerNames() const
{
    QStringList names;
    for (const Printer &printer : printers)
        names.append(printer.name);
    return names;
}

QList<PaperSizeInfo> FakePrinterInfo::paperSizes(const QString &printer) const
{
    const Printer *found = find(printer);
    return found ? found->sizes : QList<PaperSizeInfo>();
}

QList<PaperBinInfo> FakePrinterInfo::paperBins(const QString &printer) const
{
    const Printer *found = find(printer);
    return found ? found->bins : QList<PaperBinInfo>();
}

int FakePrinterInfo::currentPaperSize(const QString &printer) const
{
    const Printer *found = find(printer);
    return found ? found->currentSize : 0;
}

int FakePrinterInfo::currentPaperBin(const QString &printer) const
{
    const Printer *found = find(printer);
    return found ? found->currentBin : 0;
}

} // namespace bravcpl5::test
