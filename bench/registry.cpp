// Printer assignments in the registry file with N assignments already in it: one lookup
// (the file read and parsed), and one assignment (read, changed, written whole, synced
// and renamed under the lock). Goals: a lookup among 1,000 in at most 1 ms; an
// assignment among 1,000 in at most 20 ms, most of it the disk's sync.

#include "library/Registry.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

using namespace bravcpl5;

const QString key = QStringLiteral(
    "Software\\Tarnwell\\Lumarest\\5.0\\Settings (Acme)\\Printer Configurations");

// A fresh registry file with `count` assignments, written as a person would, named for the run.
void registryWith(int count)
{
    static QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("registry-%1.ini").arg(count));
    QByteArray text = "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\n";
    for (int i = 0; i < count; ++i)
        text += "Configuration " + QByteArray::number(i) + "=Printer " + QByteArray::number(i % 7)
                + '\n';
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
    SetRegistryFile(path);
}

void GetPrinterAssignment(benchmark::State &state)
{
    const int count = int(state.range(0));
    registryWith(count);
    const QString name = QStringLiteral("CONFIGURATION %1").arg(count - 1);
    for (auto _ : state) {
        const QString printer = GetRegValue(HKEY_CURRENT_USER_HANDLE, key, name, QString());
        if (printer.isEmpty())
            state.SkipWithError("assignment not found");
        benchmark::DoNotOptimize(printer);
    }
    state.SetComplexityN(count);
}

void SetPrinterAssignment(benchmark::State &state)
{
    const int count = int(state.range(0));
    registryWith(count);
    int round = 0;
    for (auto _ : state) {
        if (!SetRegValue(HKEY_CURRENT_USER_HANDLE, key, QStringLiteral("configuration 0"),
                         QStringLiteral("Printer %1").arg(++round)))
            state.SkipWithError("assignment not written");
    }
    state.SetComplexityN(count);
}

} // namespace

BENCHMARK(GetPrinterAssignment)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(SetPrinterAssignment)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

BENCHMARK_MAIN();
