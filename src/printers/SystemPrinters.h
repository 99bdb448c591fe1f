#pragma once

// What the system shows of its printers: the printers of this computer, and one printer's
// properties, each opened in the desktop's own tool. Linux uses the desktop's printer
// settings or the print server's web interface, Windows its printers folder and printer
// dialogs; tests install a fake with SetSystemPrinters.

#include <QString>
#include <memory>

namespace bravcpl5 {

// What the system says of a printer beyond its paper; each part "" where it says nothing.
struct PrinterDescription {
    QString description;  // the administrator's words for it ("Front office laser")
    QString makeAndModel; // its driver's make and model
    QString location;
    QString deviceUri; // where it is connected ("usb://...", "socket://10.0.0.9")
};

class SystemPrinters
{
public:
    virtual ~SystemPrinters() = default;
    // Returns "" once the tool has started, else what could not be opened (a program or an
    // address) for the user to see.
    virtual QString openPrinters() = 0;
    // Opens the system's own view of the printer's properties; false where there is none to
    // open (no web interface, no tool), so that the caller shows the printer's details itself.
    virtual bool openPrinterProperties(const QString &printer) = 0;
    virtual PrinterDescription describePrinter(const QString &printer);
};

SystemPrinters &CurrentSystemPrinters();
// Replaces it (tests); null restores the platform's.
void SetSystemPrinters(std::unique_ptr<SystemPrinters> printers);

std::unique_ptr<SystemPrinters> CreatePlatformSystemPrinters();

} // namespace bravcpl5
