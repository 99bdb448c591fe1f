// Printer assignments in the registry file with N assignments already in it: one lookup
// in a file that has just changed (read and parsed), one in a file unchanged since it was
// last read (as a host printing report after report finds it), and one assignment (read,
// changed, written whole, synced and renamed under the lock). Goals: a lookup among 1,000
// in at most 1 ms in a changed file and 5 µs in an unchanged one; an assignment among
// 1,000 in at most 20 ms, most of it the disk's sync.

#include "library/Registry.h"

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

using namespace bravcpl5;

const QString key = QStringLiteral(
    "Software\\Tarnwell\\Lumarest\\5.0\\Settings (Acme)\\Printer Configurations");

// A fresh registry file with `count` assignments, written as a person would, named for the
// run; its path.
QString registryWith(int count)
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
    return path;
}

void setModified(const QString &path, const QDateTime &when)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)
        || !file.setFileTime(when, QFileDevice::FileModificationTime))
        std::abort();
}

void lookUp(benchmark::State &state, const QString &name)
{
    const QString printer = GetRegValue(HKEY_CURRENT_USER_HANDLE, key, name, QString());
    if (printer.isEmpty())
        state.SkipWithError("assignment not found");
    benchmark::DoNotOptimize(printer);
}

void GetPrinterAssignment(benchmark::State &state)
{
    const int count = int(state.range(0));
    const QString path = registryWith(count);
    const QString name = QStringLiteral("CONFIGURATION %1").arg(count - 1);
    for (auto _ : state) {
        setModified(path, QDateTime::currentDateTimeUtc()); // as another process's write would
        lookUp(state, name);
    }
    state.SetComplexityN(count);
}

void GetPrinterAssignmentUnchangedFile(benchmark::State &state)
{
    const int count = int(state.range(0));
    const QString path = registryWith(count);
    // Written an hour ago: a file changed a moment ago is parsed on every read, since a
    // change within the same tick of its time stamp would not show.
    setModified(path, QDateTime::currentDateTimeUtc().addSecs(-3600));
    const QString name = QStringLiteral("CONFIGURATION %1").arg(count - 1);
    for (auto _ : state)
        lookUp(state, name);
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
BENCHMARK(GetPrinterAssignmentUnchangedFile)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::o1);
BENCHMARK(SetPrinterAssignment)
    ->Arg(10)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

BENCHMARK_MAIN();
