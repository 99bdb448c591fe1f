#include "printers/SystemPrinters.h"

#include <QProcess>

namespace bravcpl5 {

namespace {

// The shell's printers folder, and the printer's own properties dialog.
class ShellPrinters final : public SystemPrinters
{
public:
    QString openPrinters() override
    {
        return run({QStringLiteral("shell32.dll,SHHelpShortcuts_RunDLL"),
                    QStringLiteral("PrintersFolder")});
    }

    bool openPrinterProperties(const QString &printer) override
    {
        return run({QStringLiteral("printui.dll,PrintUIEntry"), QStringLiteral("/p"),
                    QStringLiteral("/n"), printer})
            .isEmpty();
    }

private:
    static QString run(const QStringList &arguments)
    {
        const QString program = QStringLiteral("rundll32.exe");
        return QProcess::startDetached(program, arguments) ? QString() : program;
    }
};

} // namespace

std::unique_ptr<SystemPrinters> CreatePlatformSystemPrinters()
{
    return std::make_unique<ShellPrinters>();
}

} // namespace bravcpl5
