// Listing printer configurations and finding one by name, with N configuration files in
// each of the two folders (half of the user folder's names repeat the system folder's).
// Goal: 10,000 files a folder in at most 30 ms, growing linearly.

#include "library/Library.h"
#include "support/TestHost.h"

#include <QDir>
#include <benchmark/benchmark.h>
#include <map>
#include <memory>

namespace {

using bravcpl5::Library;
using bravcpl5::test::TestHost;

QString configurationName(int number)
{
    return QStringLiteral("Config %1").arg(number, 5, 10, QLatin1Char('0'));
}

// One settings tree per folder size, made on first use and kept for every run.
struct Store {
    TestHost host;
    Library library;
};

Store &storeWith(int perFolder)
{
    static std::map<int, std::unique_ptr<Store>> stores;
    std::unique_ptr<Store> &store = stores[perFolder];
    if (!store) {
        store = std::make_unique<Store>();
        const QByteArray content = "<PrinterConfiguration><PageSetup/></PrinterConfiguration>\n";
        for (int i = 0; i < perFolder; ++i) {
            store->host.writeSystemFile(configurationName(i) + QStringLiteral(".pcx"), content);
            store->host.writeUserFile(configurationName(i + perFolder / 2) + QStringLiteral(".pcx"),
                                      content);
        }
        store->library.Initialize(&store->host);
    }
    return *store;
}

void GetPrinterConfigurations(benchmark::State &state)
{
    const int perFolder = int(state.range(0));
    auto *configurations = storeWith(perFolder).library.printerConfigurations();
    for (auto _ : state) {
        const QStringList names = configurations->GetPrinterConfigurations(true);
        if (names.size() != 1 + perFolder + perFolder - perFolder / 2)
            state.SkipWithError("wrong number of configurations");
        benchmark::DoNotOptimize(names);
    }
    state.SetComplexityN(perFolder);
}

// The worst case: a system configuration, asked for in another case, so the whole user
// folder is searched first.
void GetPrinterConfigurationFileFromName(benchmark::State &state)
{
    const int perFolder = int(state.range(0));
    auto *configurations = storeWith(perFolder).library.printerConfigurations();
    const QString name = configurationName(0).toUpper();
    for (auto _ : state) {
        const QString file = configurations->GetPrinterConfigurationFileFromName(name);
        if (file.isEmpty())
            state.SkipWithError("configuration not found");
        benchmark::DoNotOptimize(file);
    }
    state.SetComplexityN(perFolder);
}

} // namespace

BENCHMARK(GetPrinterConfigurations)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(GetPrinterConfigurationFileFromName)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

BENCHMARK_MAIN();
