#pragma once

// What the system shows of its printers: the printers of this computer, and one printer's
// properties, each opened in the desktop's own tool. Linux uses the desktop's printer
// settings or the CUPS web interface, Windows its printers folder and printer dialogs;
// tests install a fake with SetSystemPrinters.

#include <QString>
#include <memory>

namespace bravcpl5 {

class SystemPrinters
{
public:
    virtual ~SystemPrinters() = default;
    // Each returns "" once the tool has started, else what could not be opened (a program
    // or an address) for the user to see.
    virtual QString openPrinters() = 0;
    virtual QString openPrinterProperties(const QString &printer) = 0;
};

SystemPrinters &CurrentSystemPrinters();
// Replaces it (tests); null restores the platform's.
void SetSystemPrinters(std::unique_ptr<SystemPrinters> printers);

std::unique_ptr<SystemPrinters> CreatePlatformSystemPrinters();

} // namespace bravcpl5
