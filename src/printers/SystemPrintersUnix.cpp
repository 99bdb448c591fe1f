#include "printers/SystemPrinters.h"

#include "printers/CupsQueue.h"
#include "printers/PrintServerPage.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <cups/cups.h>

namespace bravcpl5 {

namespace {

// The desktop's printer settings when installed, else the print server's web pages.
class DesktopPrinters final : public SystemPrinters
{
public:
    QString openPrinters() override
    {
        const QString tool = QStandardPaths::findExecutable(
            QStringLiteral("system-config-printer"));
        if (!tool.isEmpty())
            return QProcess::startDetached(tool, {}) ? QString() : tool;
        const QUrl address = page(QStringLiteral("printers/"));
        if (address.isEmpty())
            return QStringLiteral("the print server %1 has no web interface")
                .arg(QString::fromUtf8(cupsServer()));
        return QDesktopServices::openUrl(address) ? QString() : address.toString();
    }

    bool openPrinterProperties(const QString &printer) override
    {
        const QUrl address = page(QStringLiteral("printers/")
                                  + QString::fromLatin1(QUrl::toPercentEncoding(printer)));
        return !address.isEmpty() && QDesktopServices::openUrl(address);
    }

    PrinterDescription describePrinter(const QString &printer) override
    {
        const CupsQueue queue = ReadCupsQueue(printer);
        return {queue.description, queue.makeAndModel, queue.location, queue.deviceUri};
    }

private:
    static QUrl page(const QString &path)
    {
        return PrintServerPage(QString::fromUtf8(cupsServer()), ippPort(), path,
                               AcceptsConnectionSoon);
    }
};

} // namespace

std::unique_ptr<SystemPrinters> CreatePlatformSystemPrinters()
{
    return std::make_unique<DesktopPrinters>();
}

} // namespace bravcpl5
