// How quickly the printer information answers with many queues installed: one printer's
// sizes, bins and current codes (what the page setup dialog asks when it opens), read afresh
// on every call and through the dialog's cache, and the printer list. Runs against the
// sandboxed cupsd (scripts/cups-sandbox; CUPS_SERVER set), to which it adds queues made from
// a real office laser's PPD until 150 are installed, and removes them again at the end.

#include "printers/CachedPrinterInfo.h"
#include "support/SandboxCups.h"

#include <QCoreApplication>
#include <QFile>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cups/ppd.h>

namespace {

using namespace bravcpl5;

constexpr int installedQueues = 150;
const QString measured = QStringLiteral("Real-HP-LaserJet-4250");
const QString fallback = QStringLiteral("Office-Laser");

QStringList added;

// The measured printer's PPD, copied for the extra queues.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
QString printerPpd(const QString &printer)
{
    const char *path = cupsGetPPD2(CUPS_HTTP_DEFAULT, printer.toUtf8().constData());
    return path ? QString::fromLocal8Bit(path) : QString();
}
#pragma GCC diagnostic pop

QString measuredPrinter()
{
    return QPrinterInfo::availablePrinterNames().contains(measured) ? measured : fallback;
}

bool addQueues()
{
    const QString ppd = printerPpd(measuredPrinter());
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
    return QPrinterInfo::availablePrinterNames().size() >= installedQueues;
}

void removeQueues()
{
    for (const QString &name : std::as_const(added))
        QProcess::execute(QStringLiteral("lpadmin"), {QStringLiteral("-x"), name});
}

// The four answers the page setup dialog needs of one printer.
void askForPaper(benchmark::State &state, const PrinterInfo &info, const QString &printer)
{
    const QList<PaperSizeInfo> sizes = info.paperSizes(printer);
    const QList<PaperBinInfo> bins = info.paperBins(printer);
    benchmark::DoNotOptimize(info.currentPaperSize(printer) + info.currentPaperBin(printer));
    if (sizes.isEmpty() || bins.isEmpty())
        state.SkipWithError("the printer has no sizes or bins");
}

// Every answer read from the print system again, as the process's printer information does.
void BM_PrinterPaper_EveryCall(benchmark::State &state)
{
    const std::unique_ptr<PrinterInfo> info = CreateSystemPrinterInfo();
    const QString printer = measuredPrinter();
    for (auto _ : state)
        askForPaper(state, *info, printer);
}
BENCHMARK(BM_PrinterPaper_EveryCall)->Unit(benchmark::kMillisecond)->UseRealTime();

// As a dialog asks: a fresh cache over the system's information each time, so each
// iteration reads the printer once.
void BM_PrinterPaper_Dialog(benchmark::State &state)
{
    const std::unique_ptr<PrinterInfo> system = CreateSystemPrinterInfo();
    const QString printer = measuredPrinter();
    for (auto _ : state) {
        CachedPrinterInfo info(*system);
        askForPaper(state, info, printer);
    }
}
BENCHMARK(BM_PrinterPaper_Dialog)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_PrinterList(benchmark::State &state)
{
    const std::unique_ptr<PrinterInfo> info = CreateSystemPrinterInfo();
    for (auto _ : state) {
        const QStringList names = info->printerNames();
        benchmark::DoNotOptimize(info->defaultPrinterName());
        if (names.size() < installedQueues)
            state.SkipWithError("fewer queues than expected");
    }
}
BENCHMARK(BM_PrinterList)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication app(argc, argv);
    if (!bravcpl5::test::CupsReachable() || !addQueues()) {
        removeQueues();
        fprintf(stderr, "bench_printers needs the sandboxed cupsd (scripts/cups-sandbox start "
                        "build/cups-sandbox; "
                        "eval \"$(scripts/cups-sandbox env build/cups-sandbox)\")\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    removeQueues();
    return 0;
}
