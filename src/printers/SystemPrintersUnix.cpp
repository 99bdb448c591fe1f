#include "printers/SystemPrinters.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace bravcpl5 {

namespace {

// The desktop's printer settings when installed, else the CUPS web interface's pages.
class DesktopPrinters final : public SystemPrinters
{
public:
    QString openPrinters() override
    {
        const QString tool = QStandardPaths::findExecutable(
            QStringLiteral("system-config-printer"));
        if (!tool.isEmpty())
            return QProcess::startDetached(tool, {}) ? QString() : tool;
        return openPage(QStringLiteral("printers/"));
    }

    QString openPrinterProperties(const QString &printer) override
    {
        return openPage(QStringLiteral("printers/")
                        + QString::fromLatin1(QUrl::toPercentEncoding(printer)));
    }

private:
    static QString openPage(const QString &page)
    {
        const QUrl address(QStringLiteral("http://localhost:631/") + page);
        return QDesktopServices::openUrl(address) ? QString() : address.toString();
    }
};

} // namespace

std::unique_ptr<SystemPrinters> CreatePlatformSystemPrinters()
{
    return std::make_unique<DesktopPrinters>();
}

} // namespace bravcpl5
