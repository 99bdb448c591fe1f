#include "printers/PrinterInfo.h"

namespace bravcpl5 {

namespace {

// The spooler's printers are not read yet: the place for EnumPrinters and
// DeviceCapabilities (DC_PAPERS, DC_PAPERNAMES, DC_PAPERSIZE, DC_BINS, DC_BINNAMES), whose
// codes are the ones configuration files store. Until then a Windows build links and
// offers no printers, and every dialog says so.
class WindowsPrinterInfo final : public PaperPrinterInfo
{
public:
    QStringList printerNames() const override { return {}; }
    QString defaultPrinterName() const override { return QString(); }
    PrinterPaper paper(const QString &) const override { return {}; }
};

} // namespace

std::unique_ptr<PrinterInfo> CreateSystemPrinterInfo()
{
    return std::make_unique<WindowsPrinterInfo>();
}

} // namespace bravcpl5
