#include "printers/SystemPrinters.h"

namespace bravcpl5 {

namespace {
std::unique_ptr<SystemPrinters> &instance()
{
    static std::unique_ptr<SystemPrinters> printers;
    return printers;
}
} // namespace

PrinterDescription SystemPrinters::describePrinter(const QString &) { return {}; }

SystemPrinters &CurrentSystemPrinters()
{
    if (!instance())
        instance() = CreatePlatformSystemPrinters();
    return *instance();
}

void SetSystemPrinters(std::unique_ptr<SystemPrinters> printers)
{
    instance() = std::move(printers);
}

} // namespace bravcpl5
