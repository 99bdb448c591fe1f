// How quickly the printer information answers with many queues installed: one printer's
// sizes, bins and current codes (what the page setup dialog asks when it opens), read afresh
// on every call and through the dialog's cache, and the printer list. Runs against the
// sandboxed cupsd (scripts/cups-sandbox; CUPS_SERVER set), to which it adds queues made from
// a real office laser's PPD until 150 are installed, and removes them again at the end.

#include "SandboxQueues.h"

#include "printers/CachedPrinterInfo.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <benchmark/benchmark.h>

namespace {

using namespace bravcpl5;

using namespace sandbox_queues;

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
    if (!addQueues()) {
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
