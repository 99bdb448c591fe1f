#pragma once

// The sandboxed cupsd (scripts/cups-sandbox; CUPS_SERVER set) filled up to 150 queues for
// the printer benchmarks: queues made from a real office laser's PPD are added until that
// many are installed, and removed again at the end.

#include "support/SandboxCups.h"

#include <QFile>
#include <QPrinterInfo>
#include <QProcess>
#include <QStringList>
#include <cups/ppd.h>

namespace sandbox_queues {

inline constexpr int installedQueues = 150;
inline const QString measured = QStringLiteral("Real-HP-LaserJet-4250");
inline const QString fallback = QStringLiteral("Office-Laser");

inline QStringList added;

// The measured printer's PPD, copied for the extra queues.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
inline QString printerPpd(const QString &printer)
{
    const char *path = cupsGetPPD2(CUPS_HTTP_DEFAULT, printer.toUtf8().constData());
    return path ? QString::fromLocal8Bit(path) : QString();
}
#pragma GCC diagnostic pop

inline QString measuredPrinter()
{
    return QPrinterInfo::availablePrinterNames().contains(measured) ? measured : fallback;
}

inline void removeQueues()
{
    for (const QString &name : std::as_const(added))
        QProcess::execute(QStringLiteral("lpadmin"), {QStringLiteral("-x"), name});
    added.clear();
}

// True when the sandbox answers and holds 150 queues; else removes what it added.
inline bool addQueues()
{
    const QString ppd = bravcpl5::test::CupsReachable() ? printerPpd(measuredPrinter()) : QString();
    if (ppd.isEmpty())
        return false;
    for (int i = int(QPrinterInfo::availablePrinterNames().size()); i < installedQueues; ++i) {
        const QString name = QStringLiteral("Bench-Queue-%1").arg(i, 3, 10, QLatin1Char('0'));
        if (QProcess::execute(QStringLiteral("lpadmin"),
                              {QStringLiteral("-p"), name, QStringLiteral("-E"),
                               QStringLiteral("-v"), QStringLiteral("file:///dev/null"),
                               QStringLiteral("-P"), ppd})
            != 0)
            break;
        added.append(name);
    }
    QFile::remove(ppd);
    if (QPrinterInfo::availablePrinterNames().size() >= installedQueues)
        return true;
    removeQueues();
    return false;
}

} // namespace sandbox_queues
