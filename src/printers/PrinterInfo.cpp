#include "printers/PrinterInfo.h"

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

QString FindPrinter(const PrinterInfo &info, const QString &name)
{
    for (const QString &printer : info.printerNames()) {
        if (printer.compare(name, Qt::CaseInsensitive) == 0)
            return printer;
    }
    return QString();
}

} // namespace bravcpl5
