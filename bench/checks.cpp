// Checking every printer configuration against its printer: 1,000 configurations, assigned
// across 150 printers, each printer read once. Measured with printer information that
// answers at once (the check's own cost: the folders, the registry, the files and the
// rules), and against the sandboxed cupsd's 150 queues (see SandboxQueues.h) when it runs.
// Goal: at most 200 ms.

#include "SandboxQueues.h"

#include "library/Library.h"
#include "library/Registry.h"
#include "printing/PrinterCheck.h"
#include "printing/PrinterConfigurations.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <benchmark/benchmark.h>

namespace {

using namespace bravcpl5;
using bravcpl5::test::TestHost;

constexpr int configurationCount = 1000;
constexpr int printerCount = sandbox_queues::installedQueues;

// Printers that all offer Letter, Legal and A4 from three bins, at once.
struct InstantPrinters final : PaperPrinterInfo {
    InstantPrinters()
    {
        for (int i = 0; i < printerCount; ++i)
            names << QStringLiteral("Printer-%1").arg(i, 3, 10, QLatin1Char('0'));
        const QMargins edges(288, 288, 288, 288);
        offered.sizes = {{QStringLiteral("Letter"), 1, 12240, 15840, edges},
                         {QStringLiteral("Legal"), 5, 12240, 20160, edges},
                         {QStringLiteral("A4"), 9, 11906, 16838, edges}};
        offered.bins = {{QStringLiteral("Automatic"), 7},
                        {QStringLiteral("Tray 1"), 256},
                        {QStringLiteral("Manual Feed"), 4}};
        offered.state.known = true;
    }
    QStringList printerNames() const override { return names; }
    QString defaultPrinterName() const override { return names.value(0); }
    PrinterPaper paper(const QString &) const override { return offered; }

    QStringList names;
    PrinterPaper offered;
};

// Another printer information, with its printers' reads counted.
struct CountedReads final : PaperPrinterInfo {
    explicit CountedReads(const PrinterInfo &source) : source(source) {}
    QStringList printerNames() const override { return source.printerNames(); }
    QString defaultPrinterName() const override { return source.defaultPrinterName(); }
    PrinterPaper paper(const QString &printer) const override
    {
        ++reads;
        return source.paper(printer);
    }

    const PrinterInfo &source;
    mutable int reads = 0;
};

// 1,000 configurations (half shared, half the user's; Letter, Legal and A4 with margins,
// bins and label sheets of their own) over a registry of their own.
struct Store {
    Store()
    {
        SetRegistryFile(QDir(host.root()).filePath(QStringLiteral("registry.ini")));
        for (int i = 0; i < configurationCount; ++i) {
            const QByteArray pageSetup =
                "<PaperSize>"
                + QByteArray::number(i % 3 == 0   ? 1
                                     : i % 3 == 1 ? 5
                                                  : 9)
                + "</PaperSize><PaperSource>" + QByteArray(i % 2 ? "7" : "4")
                + "</PaperSource><TopMargin>.5</TopMargin><LeftMargin>.75</LeftMargin>"
                  "<ColumnsPerSheet>"
                + QByteArray::number(1 + i % 3) + "</ColumnsPerSheet><LabelWidth>2.5</LabelWidth>";
            const QByteArray content = "<PrinterConfiguration><PageSetup>" + pageSetup
                                       + "</PageSetup></PrinterConfiguration>\n";
            const QString file = name(i) + QStringLiteral(".pcx");
            if (i % 2)
                host.writeUserFile(file, content);
            else
                host.writeSystemFile(file, content);
        }
        library.Initialize(&host);
    }
    ~Store() { library.PreTerminate(); }

    static QString name(int i)
    {
        return QStringLiteral("Config %1").arg(i, 4, 10, QLatin1Char('0'));
    }

    // Every configuration assigned, round the printers, in one write.
    bool assign(const QStringList &printers)
    {
        QList<std::pair<QString, QString>> assignments;
        for (int i = 0; i < configurationCount; ++i)
            assignments.append({name(i), printers[i % printers.size()]});
        return SetRegValues(HKEY_CURRENT_USER_HANDLE, PrinterConfigurationsKey(&host), assignments);
    }

    TestHost host;
    Library library;
};

Store &store()
{
    static Store store;
    return store;
}

// Every configuration checked on every iteration; "printerReads" counts the printers read
// per check.
void checkAll(benchmark::State &state, const PrinterInfo &printers)
{
    const CountedReads counted(printers);
    for (auto _ : state) {
        const QList<ConfigurationCheck> checks =
            store().library.printerConfigurations()->checkConfigurations(counted);
        if (checks.size() != configurationCount)
            state.SkipWithError("not every configuration was checked");
        benchmark::DoNotOptimize(checks);
    }
    state.counters["printerReads"] = benchmark::Counter(counted.reads,
                                                        benchmark::Counter::kAvgIterations);
}

void BM_CheckConfigurations_InstantPrinters(benchmark::State &state)
{
    const InstantPrinters printers;
    if (!store().assign(printers.names))
        state.SkipWithError("the assignments could not be written");
    checkAll(state, printers);
}
BENCHMARK(BM_CheckConfigurations_InstantPrinters)->Unit(benchmark::kMillisecond)->UseRealTime();

// The system's printer information over the sandbox's 150 queues.
void BM_CheckConfigurations_Cups(benchmark::State &state)
{
    const std::unique_ptr<PrinterInfo> system = CreateSystemPrinterInfo();
    const QStringList queues = system->printerNames().mid(0, printerCount);
    if (queues.size() < printerCount || !store().assign(queues))
        state.SkipWithError("fewer queues than expected, or no assignments");
    checkAll(state, *system);
}

} // namespace

int main(int argc, char **argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication app(argc, argv);
    const bool cups = sandbox_queues::addQueues();
    if (cups)
        benchmark::RegisterBenchmark("BM_CheckConfigurations_Cups", BM_CheckConfigurations_Cups)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    else
        fprintf(stderr, "bench_checks: the check against CUPS needs the sandboxed cupsd "
                        "(scripts/cups-sandbox start build/cups-sandbox; "
                        "eval \"$(scripts/cups-sandbox env build/cups-sandbox)\")\n");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    sandbox_queues::removeQueues();
    return 0;
}
