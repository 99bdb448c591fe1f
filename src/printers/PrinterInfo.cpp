#include "printers/PrinterInfo.h"

#include "library/Units.h"
#include "printers/PaperSizeCodes.h"

namespace bravcpl5 {

namespace {
std::unique_ptr<PrinterInfo> &instance()
{
    static std::unique_ptr<PrinterInfo> info;
    return info;
}
} // namespace

PrinterPaper PrinterInfo::paper(const QString &printer) const
{
    return {paperSizes(printer), paperBins(printer), currentPaperSize(printer),
            currentPaperBin(printer)};
}

PrinterInfo &CurrentPrinterInfo()
{
    if (!instance())
        instance() = CreateSystemPrinterInfo();
    return *instance();
}

void SetPrinterInfo(std::unique_ptr<PrinterInfo> info) { instance() = std::move(info); }

const PaperSizeInfo *StoredPaperSize(const QList<PaperSizeInfo> &sizes, int code,
                                     const QSizeF &inches)
{
    const qsizetype index = FindStoredPaper(
        sizes, code, inches * (TwipsPerInch / TwipsPerPoint),
        [](const PaperSizeInfo &size) {
            return QSizeF(size.widthTwips, size.heightTwips) / TwipsPerPoint;
        },
        [](const PaperSizeInfo &size) { return size.code; });
    return index < 0 ? nullptr : &sizes[index];
}

QString FindPrinter(const PrinterInfo &info, const QString &name)
{
    for (const QString &printer : info.printerNames()) {
        if (printer.compare(name, Qt::CaseInsensitive) == 0)
            return printer;
    }
    return QString();
}

} // namespace bravcpl5
